// The decoder library through its exports: what neither the checker of plug-ins (tests/check/plugins.sh)
// nor the end-to-end tests, which judge samples and damage, ask of it.
#include "contract/Keys.h"
#include "foundation/XArray.h"
#include "foundation/XTagList.h"
#include "host/clZtDecoder.h"
#include "tests/foundation/TestFolder.h"

#include <zlib.h>

#include <vector>

namespace {

XString Backslashes(const wchar_t* path) {
    XString result = path;
    result.Replace(L"/", L"\\");
    return result;
}

class DecoderLibrary : public TestFolder {
protected:
    void SetUp() override {
        TestFolder::SetUp();
        SetDllDirectoryW(Backslashes(TM_CODEC_FOLDER));
        PluginCreateBlock block{};
        ASSERT_TRUE(decoder.Load(Backslashes(TM_DECODER)) && decoder.Recreate(&block));
    }
    void TearDown() override {
        decoder.Unload(); // and with it the file
        TestFolder::TearDown();
    }
    XString LastError() {
        PluginParams parameters{};
        return decoder.Get(decoder.instance, ZtKey::lastError, &parameters) ? XString(parameters.text1)
                                                                            : XString();
    }
    // Of a file of two channels; what the last block was answered with.
    int DecodeAll(const XString& path, std::vector<std::int32_t>& samples) {
        DecoderOpenBlock open{};
        open.path = path;
        EXPECT_TRUE(decoder.Open(decoder.instance, &open)) << LastError().Text();
        std::vector<std::int32_t> block(2 * 4096);
        int done = 0;
        while ((done = decoder.DecodeBlock(decoder.instance, block.data(), 4096)) > 0)
            samples.insert(samples.end(), block.begin(), block.begin() + std::ptrdiff_t{2} * done);
        return done;
    }

    clZtDecoder decoder;
};

// EBML: an element with a size of eight bytes.
std::string Element(std::uint32_t id, const std::string& content) {
    std::string bytes;
    for (int shift = 24; shift >= 0; shift -= 8)
        if (id >> shift)
            bytes.push_back(static_cast<char>(id >> shift));
    bytes.push_back(1);
    for (int shift = 48; shift >= 0; shift -= 8)
        bytes.push_back(static_cast<char>(std::uint64_t{content.size()} >> shift));
    return bytes + content;
}

// Packed blocks need the zlib that FFmpeg was built with.
TEST_F(DecoderLibrary, UnpacksMatroska) {
    std::string pcm; // 16 bit, stereo
    std::vector<std::int32_t> expected;
    for (int i = 0; i < 10000; ++i) {
        const auto sample = static_cast<std::int16_t>(i * 7919);
        expected.push_back(sample);
        pcm.push_back(static_cast<char>(sample));
        pcm.push_back(static_cast<char>(sample >> 8));
    }
    uLongf size = compressBound(static_cast<uLong>(pcm.size()));
    std::string packed(size, '\0');
    ASSERT_EQ(compress2(reinterpret_cast<Bytef*>(packed.data()), &size,
                        reinterpret_cast<const Bytef*>(pcm.data()), static_cast<uLong>(pcm.size()), 9),
              Z_OK);
    packed.resize(size);
    using namespace std::string_literals;
    const std::string audio =
        Element(0xE1, Element(0xB5, "\x47\x2C\x44\0"s) + Element(0x9F, "\2") + Element(0x6264, "\x10"));
    const std::string track =
        Element(0xAE, Element(0xD7, "\1") + Element(0x73C5, "\1") + Element(0x83, "\2") +
                          Element(0x86, "A_PCM/INT/LIT") + audio +
                          Element(0x6D80, Element(0x6240, Element(0x5034, Element(0x4254, "\0"s)))));
    // track 1, time 0, a key frame
    const std::string cluster = Element(0xE7, "\0"s) + Element(0xA3, "\x81\0\0\x80"s + packed);
    const std::string file = Element(0x1A45DFA3, Element(0x4282, "matroska")) +
                             Element(0x18538067, Element(0x1654AE6B, track) + Element(0x1F43B675, cluster));
    const XString path = Put(L"a.mka", file.data(), static_cast<DWORD>(file.size()));
    std::vector<std::int32_t> samples;
    EXPECT_EQ(DecodeAll(path, samples), 0) << LastError().Text();
    EXPECT_TRUE(samples == expected);
}

// The worker would find it, too, but not why.
TEST_F(DecoderLibrary, TellsWhatIsTruncated) {
    using namespace std::string_literals;
    const std::string file = "RIFF\x64\xC4\x0A\0WAVE"s
                             "fmt \x10\0\0\0\1\0\2\0\x44\xAC\0\0\x10\xB1\2\0\4\0\x10\0"s
                             "data\x40\xC4\x0A\0"s + // 4 seconds
                             std::string(300000, '\1');
    std::vector<std::int32_t> samples;
    EXPECT_LT(DecodeAll(Put(L"a.wav", file.data(), static_cast<DWORD>(file.size())), samples), 0);
    EXPECT_GT(LastError().Find(L"truncated: it ends after 75000 of 176400 frames"), 0) << LastError().Text();
}

// Two kinds of tags side by side, one of them in a code page, a cover of an unusual kind, and what has no
// place in the list.
TEST_F(DecoderLibrary, JoinsTagsAndNamesWhatStaysBehind) {
    using namespace std::string_literals;
    const auto chunk = [](const std::string& id, const std::string& content) { // below 256 bytes
        return id + static_cast<char>(content.size()) + "\0\0\0"s + content +
               std::string(content.size() % 2, '\0');
    };
    const auto frame = [](const std::string& id, const std::string& content) { // below 128 bytes
        return id + "\0\0\0"s + static_cast<char>(content.size()) + "\0\0"s + content;
    };
    const std::string frames = frame("TIT2", "\0Song"s) + frame("POPM", "me\0\xC4"s) +
                               frame("APIC", "\0image/pjpeg\0\3\0\xFF\xD8\xFF\xE0"s);
    const std::string chunks = "WAVE" + chunk("fmt ", "\1\0\1\0\x44\xAC\0\0\x88\x58\1\0\2\0\x10\0"s) +
                               chunk("data", std::string(200, '\1')) +
                               chunk("LIST", "INFO" + chunk("IART", "B\xE4nd\0"s) +
                                                 chunk("INAM", "Other\0"s) + chunk("ICOP", "Us\0"s)) +
                               chunk("id3 ", "ID3\3\0\0\0\0\0"s + static_cast<char>(frames.size()) + frames);
    const auto size = static_cast<std::uint32_t>(chunks.size());
    const std::string file = "RIFF" + std::string(reinterpret_cast<const char*>(&size), sizeof size) + chunks;
    const XString path = Put(L"a.wav", file.data(), static_cast<DWORD>(file.size()));
    DecoderOpenBlock open{};
    open.path = path;
    open.wanted = ztOpenAll;
    ASSERT_TRUE(decoder.Open(decoder.instance, &open)) << LastError().Text();
    XTagList tags;
    tags.Deserialize(open.tagData, open.tagDataSize);
    EXPECT_EQ(tags.Get(L"title"), L"Song");
    EXPECT_EQ(tags.Get(L"artist"), GetACP() == CP_UTF8 ? XString(L"B\u00E4nd") : XString("B\xE4nd"));
    EXPECT_EQ(tags.Get(L"copyright"), L"Us");
    EXPECT_EQ(tags.Get(L"picture"), L"3;image/jpeg;");
    PluginParams parameters{};
    ASSERT_TRUE(decoder.Get(decoder.instance, ZtKey::information, &parameters));
    EXPECT_EQ(XString(parameters.text1), L"Not carried over from the source: rating");
}

TEST_F(DecoderLibrary, ClaimsEachExtensionOnce) {
    XStringArray seen;
    PluginParams parameters{};
    for (; decoder.Get(decoder.instance, ZtKey::decodes, &parameters); ++parameters.index) {
        ASSERT_LT(parameters.index, 1000u);
        EXPECT_EQ(parameters.text1[0], L'.');
        EXPECT_FALSE(seen.Contains(parameters.text1, true)) << parameters.text1;
        EXPECT_FALSE(XString(parameters.text2).IsEmpty());
        seen.AddString(parameters.text1);
    }
    for (const wchar_t* common :
         {L".mp3", L".flac", L".ogg", L".opus", L".m4a", L".wma", L".wv", L".ape", L".wav"})
        EXPECT_TRUE(seen.Contains(common, true));
}

} // namespace
