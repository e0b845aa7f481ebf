#include "HostFixtureWin.h"

#include "foundation/XFile.h"
#include "foundation/XFindFile.h"
#include "host/DecoderCatalogue.h"
#include "host/Settings.h"

namespace {

class Catalogue : public HostTest {
protected:
    static XString CacheKey() { return SettingsPath(Setting::keyDecoderCache); }
    static XString Cached(const wchar_t* extension) { return RegReadString(extension, nullptr, CacheKey()); }
    static void Remember(const wchar_t* extension, const wchar_t* library) {
        RegWriteString(library, extension, nullptr, CacheKey());
    }
    // The library that takes the path, or the empty text.
    static XString TakerOf(const wchar_t* path) {
        clZtDecoder decoder;
        PluginCreateBlock block{};
        const bool taken = OpenDecoderFor(path, decoder, &block);
        EXPECT_EQ(taken, decoder.instance != nullptr);
        EXPECT_EQ(taken, decoder.module.IsValid());
        return decoder.loadedPath;
    }
    XString FirstListed() {
        XFindFile files(DecoderFolder(), L"*.dll");
        EXPECT_TRUE(files.Next());
        return files.fullPath;
    }
};

XString Joined(const XStringArray& texts) {
    XString all;
    for (const XString& text : texts)
        all += text + L"\n";
    all.Replace(L"\r", L"|");
    return all;
}

} // namespace

TEST_F(Catalogue, FindsByExtension) {
    const XString good = Place(L"good", L"decoder\\good.dll");
    Place(L"rival", L"decoder\\rival.bin"); // not a .dll
    Place(L"lacking", L"decoder\\a lacking.dll");
    Place(L"barren", L"decoder\\b barren.dll");
    Place(L"silent", L"decoder\\c silent.dll");
    Put(L"decoder\\d text.dll", "no library", 10);
    ASSERT_TRUE(CreateDirectoryW(folder + L"decoder\\e folder.dll", nullptr));
    struct Row {
        const wchar_t* path;
        bool taken;
    };
    static constexpr Row rows[] = {
        {L"C:\\x\\song.aaa", true},     {L"C:\\x\\song.AAA", true}, {L"C:\\x\\song.bbb", true},
        {L"C:\\x\\two.dots.aaa", true}, {L"C:\\x\\song", false},    {L"C:\\x.aaa\\song", false},
        {L"C:\\x\\song.aaaa", false},   {L"C:\\x\\song.", false},   {L"", false},
        {L"C:\\x\\song.never", false},
    };
    for (const Row& row : rows)
        EXPECT_EQ(TakerOf(row.path), row.taken ? good : XString()) << row.path;
    // Names fold in the registry: the first spelling stays.
    EXPECT_EQ(Cached(L".aaa"), good);
    EXPECT_EQ(Cached(L".aaaa"), XString());
    // A null text for the description still counts as a claim.
    EXPECT_EQ(TakerOf(L"x.sil"), folder + L"decoder\\c silent.dll");
}

TEST_F(Catalogue, FirstOfTwoRivalsWinsAndTheCacheKeepsItsWinner) {
    const XString a = Place(L"good", L"decoder\\good.dll");
    const XString b = Place(L"rival", L"decoder\\rival.dll");
    const XString first = FirstListed();
    const XString second = first == a ? b : a;
    EXPECT_EQ(TakerOf(L"x.aaa"), first);
    Remember(L".aaa", second);
    EXPECT_EQ(TakerOf(L"x.aaa"), second);
    EXPECT_EQ(Cached(L".aaa"), second);
}

TEST_F(Catalogue, StaleCacheIsTriedAndOverwritten) {
    const XString good = Place(L"good", L"decoder\\good.dll");
    const XString silent = Place(L"silent", L"decoder\\silent.dll");
    for (const XString& stale :
         {folder + L"decoder\\gone.dll", silent, XString(L"C:\\"), XString(L"nonsense")}) {
        Remember(L".aaa", stale);
        EXPECT_EQ(TakerOf(L"x.aaa"), good) << stale.Text();
        EXPECT_EQ(Cached(L".aaa"), good);
    }
    // Where the scan finds nothing the old entry stays.
    Remember(L".zzz", L"C:\\old.dll");
    EXPECT_EQ(TakerOf(L"x.zzz"), XString());
    EXPECT_EQ(Cached(L".zzz"), XString(L"C:\\old.dll"));
}

TEST_F(Catalogue, SecondFileOfAnExtensionKeepsTheLibrary) {
    const XString good = Place(L"good", L"decoder\\good.dll");
    clZtDecoder decoder;
    PluginCreateBlock block{};
    ASSERT_TRUE(OpenDecoderFor(L"1.aaa", decoder, &block));
    Remember(L".aaa", L"untouched");
    ASSERT_TRUE(OpenDecoderFor(L"2.AAA", decoder, &block));
    EXPECT_EQ(Cached(L".aaa"), XString(L"untouched"));
    PluginParams params{};
    EXPECT_EQ(decoder.AskGet(L"Test Live", params), 1);
    EXPECT_EQ(decoder.AskGet(L"Test Created", params), 2);
    EXPECT_FALSE(OpenDecoderFor(L"3.zzz", decoder, &block));
    EXPECT_FALSE(decoder.instance);
}

TEST_F(Catalogue, EndlessClaimsComeToAnEnd) {
    Place(L"endless", L"decoder\\endless.dll");
    EXPECT_EQ(TakerOf(L"x.aaa"), XString());
    XStringArray extensions;
    EnumerateDecoders(false, &extensions, nullptr);
    EXPECT_EQ(extensions.Count(), 4096);
}

TEST_F(Catalogue, EnumeratesAllButTheIgnored) {
    Place(L"good", L"decoder\\1good.dll");
    Place(L"rival", L"decoder\\2rival.dll");
    Place(L"barren", L"decoder\\3barren.dll");
    Place(L"silent", L"decoder\\4silent.dll");
    XStringArray extensions;
    DecoderFilterList filters;
    extensions.AddString(L"old");
    EnumerateDecoders(true, &extensions, &filters);
    EXPECT_EQ(Joined(extensions), XString(L".aaa\n.Bbb\n.aaa\n"));
    EXPECT_EQ(Joined(filters), XString(L"All Audio Files|*.aaa;*.Bbb;*.aaa\n"
                                       L"Alpha  (*.aaa; *.aaa)|*.aaa;*.aaa\n"
                                       L"Beta  (*.Bbb)|*.Bbb\n"));
    EnumerateDecoders(true, nullptr, nullptr);
    // What reaches no list still has its decoder.
    EXPECT_EQ(TakerOf(L"C:\\disc.IGNORE"), folder + L"decoder\\2rival.dll");
}

TEST_F(Catalogue, SourceIconsAreAskedOncePerExtension) {
    SourceIconCache cache;
    EXPECT_EQ(GetSourceIconIndex(cache, L"x.IGNORE"), -1); // no decoder takes it
    cache.iconIndex = 4711;
    EXPECT_EQ(GetSourceIconIndex(cache, L"other.ignore"), 4711);
    EXPECT_EQ(GetSourceIconIndex(cache, L".ignore"), 4711);
    const int plain = GetSourceIconIndex(cache, L".txt");
    EXPECT_NE(plain, 4711);
    EXPECT_EQ(cache.extension, XString(L".txt"));
    EXPECT_EQ(GetSourceIconIndex(cache, L"C:\\no such folder\\b.TXT"), plain);
}
