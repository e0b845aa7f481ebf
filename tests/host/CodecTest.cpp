#include "HostFixtureWin.h"

#include "foundation/XFile.h"
#include "foundation/XFileSystem.h"
#include "host/CodecHandler.h"
#include "host/EffectChain.h"
#include "host/Settings.h"

#include <shlobj.h>

namespace {
class Codec : public HostTest {};

XString TextOf(const XString& path) {
    XBuffer bytes;
    EXPECT_TRUE(ReadWholeFile(path, bytes));
    XString text;
    text.SetLength(static_cast<int>(bytes.size / 2));
    memcpy(text.Buffer(), bytes.data, bytes.size);
    return text;
}
} // namespace

TEST_F(Codec, LoadsByNameAndTraces) {
    Place(L"encoder", L"encoder\\Fake One.dll");
    Place(L"effect", L"DSPs\\Loud.dll");
    {
        XFile log(folder + L"log.txt");
        ASSERT_TRUE(log.Open(GENERIC_WRITE, CREATE_ALWAYS));
        PluginCreateBlock block{};
        block.logFile = log.handle;
        clZtEncoder encoder;
        EXPECT_TRUE(clZtCodecHandler::LoadEncoder(L"Fake One", encoder, &block));
        clZtDSP effect;
        EXPECT_TRUE(clZtCodecHandler::LoadDSP(L"Loud", effect, &block));
        // The one that was there is gone, whatever comes of the new one.
        EXPECT_FALSE(clZtCodecHandler::LoadEncoder(L"Gone", encoder, &block));
        EXPECT_FALSE(encoder.module.IsValid() || encoder.instance);
        PluginCreateBlock mute{};
        EXPECT_FALSE(clZtCodecHandler::LoadDSP(L"Gone", effect, &mute));
        mute.logFile = INVALID_HANDLE_VALUE;
        clZtCodecHandler::Trace(L"nowhere", &mute);
        clZtCodecHandler::Trace(L"nowhere", nullptr);
    }
    EXPECT_EQ(TextOf(folder + L"log.txt"),
              L"->-> clZtCodecHandler::LoadEncoder\r\n  Loading Encoder '" + folder +
                  L"encoder\\Fake One.DLL'\r\n<-<- clZtCodecHandler::LoadEncoder\r\n"
                  L"->-> clZtCodecHandler::LoadDSP\r\n  Loading DSP '" +
                  folder +
                  L"DSPs\\Loud.DLL'\r\n<-<- clZtCodecHandler::LoadDSP\r\n"
                  L"->-> clZtCodecHandler::LoadEncoder\r\n  Loading Encoder '" +
                  folder + L"encoder\\Gone.DLL'\r\n<-<- clZtCodecHandler::LoadEncoder\r\n");
}

TEST_F(Codec, ExtensionIsTheEncodersAnswer) {
    Place(L"encoder", L"encoder\\Fake.dll");
    Place(L"mute", L"encoder\\Mute.dll");
    EXPECT_EQ(GetEncoderExtension(L"Fake"), XString(L".fake"));
    EXPECT_EQ(GetEncoderExtension(L"Mute"), XString());
    EXPECT_EQ(GetEncoderExtension(L"Gone"), XString());
}

XString Shown(const clRecipe& recipe) {
    return DecimalText(static_cast<std::int64_t>(recipe.mode)) + L"|" + recipe.folder + L"|" + recipe.naming +
           L"|" + recipe.encoderSettings + L"|" + recipe.effects;
}

TEST_F(Codec, RecipesComeBackAndAbsentOnesAreDefaults) {
    const XString item = ProfileItemText(L"Car", L"Fake");
    EXPECT_EQ(Shown(ReadRecipe(item)), DecimalText(outputSourceFolder) + L"|" +
                                           GetSpecialFolder(CSIDL_MYMUSIC) +
                                           L"|[artist]\\[artist] - [title]||");
    clRecipe recipe;
    recipe.encoderSettings = L"-q=\"5\"";
    recipe.mode = outputDynamic;
    recipe.folder = L"Music\\Pop";
    recipe.naming = L"[title]";
    recipe.effects = L"-dspeffect1=\"A=1\"";
    WriteRecipe(item, recipe);
    EXPECT_EQ(Shown(ReadRecipe(item)), Shown(recipe));
    EXPECT_TRUE(ReadRecipe(L"Fake").effects.IsEmpty()); // the encoder's own item is another
    RegWriteString(L"2", Setting::outputMode, nullptr, EncoderKeyPath(item));
    EXPECT_EQ(ReadRecipe(item).mode, 0u);
    DeleteRecipe(item);
    XStringArray items;
    RegEnumSubkeys(nullptr, SettingsPath(Setting::keyCodecs), items);
    EXPECT_FALSE(items.Contains(item, false));
}

TEST_F(Codec, EffectFiles) {
    const XString path = folder + L"chain.dspeffect";
    const XString chain = L"-dspeffect1=\"\u00c4\u4e2d=1\"";
    EXPECT_TRUE(WriteEffectFile(path, L"something longer than what replaces it, to the end"));
    EXPECT_TRUE(WriteEffectFile(path, chain));
    EXPECT_EQ(TextOf(path), chain); // no mark, no line end
    EXPECT_EQ(ReadEffectFile(path), chain);
    EXPECT_TRUE(WriteEffectFile(path, L"\ufeff" + chain + L"\r\n-dspeffect2=\"B=2\""));
    EXPECT_EQ(ReadEffectFile(path), chain);
    EXPECT_TRUE(WriteEffectFile(path, L""));
    EXPECT_TRUE(ReadEffectFile(path).IsEmpty());
    EXPECT_TRUE(ReadEffectFile(folder + L"gone.dspeffect").IsEmpty());
    EXPECT_FALSE(WriteEffectFile(folder + L"no folder\\x.dspeffect", chain));
}

TEST_F(Codec, SmartInstallListInAnyLineEnds) {
    XArray<clSmartInstall> records;
    ReadSmartInstallList(records);
    EXPECT_EQ(records.Count(), 0);
    constexpr char list[] = ".a\r\nOne\naddr1\r.b\r\nTwo\r\naddr2\r\n.c\r\nCut";
    Put(smartInstallFileName, list, sizeof list - 1);
    ReadSmartInstallList(records);
    ASSERT_EQ(records.Count(), 2);
    EXPECT_EQ(records[1].name, XString(L"Two"));
    EXPECT_EQ(records[1].address, XString(L"addr2"));
}

TEST_F(Codec, IconsComeFromBesideTheLibraryOrTheShell) {
    const XString library = EffectLibraryPath(L"Loud");
    EXPECT_EQ(library, folder + L"DSPs\\Loud.dll");
    EXPECT_FALSE(GetEffectIcon(library).IsValid());
    // One icon of 16 by 16 in 1 bit: directory, header, two colours, image and mask.
    unsigned char icon[6 + 16 + 40 + 8 + 64 + 64] = {0, 0, 1, 0, 1,   0, 16, 16, 2, 0,
                                                     1, 0, 1, 0, 176, 0, 0,  0,  22};
    unsigned char* header = icon + 22;
    header[0] = 40;
    header[4] = 16;
    header[8] = 32;
    header[12] = header[14] = 1;
    Put(L"DSPs\\Loud.ico", icon, sizeof(icon));
    EXPECT_TRUE(GetEffectIcon(library).IsValid());
    EXPECT_TRUE(GetEncoderIcon(L".txt", library).IsValid());
    EXPECT_TRUE(GetEncoderIcon(L".txt", EncoderLibraryPath(L"Gone")).IsValid());
    EXPECT_GE(GetEncoderIconIndex(L".txt", EncoderLibraryPath(L"Gone")), 0);
}
