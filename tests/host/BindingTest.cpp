#include "HostFixtureWin.h"

#include "host/clZtDSP.h"
#include "host/clZtDecoder.h"
#include "host/clZtEncoder.h"

namespace {

class Binding : public HostTest {};

std::int32_t Ask(const clZtDecoder& decoder, const wchar_t* key) {
    PluginParams params{};
    return decoder.AskGet(key, params);
}

} // namespace

TEST_F(Binding, AllOrNothing) {
    const XString lacking = Place(L"lacking", L"decoder\\lacking.dll");
    const XString good = Place(L"good", L"decoder\\good.dll");
    clZtDecoder decoder;
    EXPECT_FALSE(decoder.Load(lacking));
    // A held library is never replaced or looked at again.
    EXPECT_FALSE(decoder.Load(good));
    EXPECT_FALSE(decoder.DeleteATag);
    decoder.Unload();
    EXPECT_FALSE(decoder.Create || decoder.SetPosition || decoder.module.IsValid());
    EXPECT_TRUE(decoder.Load(good));
    EXPECT_TRUE(decoder.Load(L"C:\\no such library.dll"));
    EXPECT_TRUE(decoder.Load(nullptr));
    EXPECT_TRUE(decoder.Create);
}

TEST_F(Binding, WhatIsNoLibraryStaysUnbound) {
    Put(L"decoder\\text.dll", "no library", 10);
    const XString encoder = Place(L"encoder", L"decoder\\encoder.dll");
    for (const XString& path : {folder + L"decoder\\text.dll", folder + L"decoder", XString(L""), encoder}) {
        clZtDecoder decoder;
        EXPECT_FALSE(decoder.LoadFor(path, L".aaa")) << path.Text();
        EXPECT_TRUE(decoder.loadedExtension.IsEmpty() && decoder.loadedPath.IsEmpty());
        EXPECT_EQ(Ask(decoder, L"Test Live"), 0);
        DecoderOpenBlock block{};
        EXPECT_EQ(decoder.AskOpen(block), 0);
    }
}

TEST_F(Binding, InstancesAreDestroyedBeforeNewOnesAndAtTheEnd) {
    const XString good = Place(L"good", L"decoder\\good.dll");
    clZtDecoder watch;
    PluginCreateBlock block{};
    ASSERT_TRUE(watch.LoadFor(good, L".aaa"));
    EXPECT_FALSE(watch.instance);
    {
        clZtDecoder decoder;
        ASSERT_TRUE(decoder.LoadFor(good, L".aaa") && decoder.Recreate(&block) && decoder.Recreate(&block));
        EXPECT_EQ(Ask(decoder, L"Test Live"), 1);
        EXPECT_EQ(Ask(decoder, L"Test Created"), 2);
        // Its own texts as arguments of a new load.
        ASSERT_TRUE(decoder.LoadFor(decoder.loadedPath, decoder.loadedExtension));
        EXPECT_EQ(decoder.LoadedExtension(), XString(L".aaa"));
        ASSERT_TRUE(decoder.Recreate(&block));
    }
    ASSERT_TRUE(watch.Recreate(&block));
    EXPECT_EQ(Ask(watch, L"Test Live"), 1);
    watch.module.Reset();
    watch.instance = nullptr;
    EXPECT_TRUE(watch.LoadedExtension().IsEmpty());
}

TEST_F(Binding, EncodersAndEffectsShowAndReturnTheirSettings) {
    PluginCreateBlock block{};
    clZtEncoder encoder;
    ASSERT_TRUE(encoder.Load(Place(L"encoder", L"encoder\\encoder.dll")));
    EXPECT_TRUE(encoder.RemoveConfig(nullptr).IsEmpty());
    ASSERT_TRUE(encoder.Recreate(&block));
    EXPECT_TRUE(encoder.RemoveConfig(ztKeepPanel).IsEmpty()); // the plug-in answers null
    encoder.ShowConfig(nullptr, 1, 2, L"-q 5");
    EXPECT_EQ(encoder.RemoveConfig(ztKeepPanel), XString(L"-q 5"));
    encoder.Unload();
    EXPECT_FALSE(encoder.ENC_Create || encoder.instance || encoder.bound);

    clZtDSP effect;
    EXPECT_FALSE(effect.Load(folder + L"encoder\\encoder.dll"));
    effect.Unload();
    ASSERT_TRUE(effect.Load(Place(L"effect", L"DSPs\\effect.dll")) && effect.Recreate(&block));
    effect.ShowConfig(nullptr, 1, 2, L"-gain 1");
    EXPECT_EQ(effect.RemoveConfig(nullptr), XString(L"-gain 1"));
}
