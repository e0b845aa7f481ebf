// The decoder library through its exports: samples of Wave files that the test writes itself come
// back to the bit in blocks of any size; what is damaged is told.
#include "contract/Keys.h"
#include "foundation/XArray.h"
#include "foundation/XFile.h"
#include "foundation/XTagList.h"
#include "foundation/XTempFile.h"
#include "host/clZtDecoder.h"

#include <gtest/gtest.h>

#include <zlib.h>

#include <cstring>
#include <memory>
#include <string>
#include <vector>

namespace {

XString Backslashes(const wchar_t* path) {
    XString result = path;
    result.Replace(L"/", L"\\");
    return result;
}

class DecoderLibrary : public testing::Test {
protected:
    void SetUp() override {
        SetDllDirectoryW(Backslashes(TM_CODEC_FOLDER));
        ASSERT_TRUE(decoder.Load(Backslashes(TM_DECODER)));
        PluginCreateBlock block{};
        ASSERT_TRUE(decoder.Recreate(&block));
    }

    bool Open(const XString& path, std::uint32_t wanted = ztOpenFormat) {
        open = DecoderOpenBlock{};
        open.path = path;
        open.wanted = wanted;
        return decoder.Open(decoder.instance, &open) != 0;
    }
    XString LastError() {
        PluginParams parameters{};
        return decoder.Get(decoder.instance, ZtKey::lastError, &parameters) ? XString(parameters.text1)
                                                                            : XString();
    }
    // Everything that is left, in blocks of `block` frames; empty and `failed` set on damage.
    std::vector<std::int32_t> DecodeAll(unsigned block, bool* failed = nullptr) {
        std::vector<std::int32_t> samples;
        const unsigned channels = open.format.channels;
        std::vector<std::int32_t> buffer(static_cast<std::size_t>(block) * channels);
        for (;;) {
            const int done = decoder.DecodeBlock(decoder.instance, buffer.data(), block);
            if (failed)
                *failed = done < 0;
            if (done <= 0)
                return samples;
            samples.insert(samples.end(), buffer.begin(),
                           buffer.begin() + static_cast<std::ptrdiff_t>(done) * channels);
        }
    }

    clZtDecoder decoder;
    DecoderOpenBlock open{};
};

struct WaveRow {
    int bits;
    bool isFloat;
    int channels;
    int frames;
    unsigned block;
};

void Put(std::string& bytes, std::uint32_t value, int count) {
    for (int i = 0; i < count; ++i)
        bytes.push_back(static_cast<char>(value >> (8 * i)));
}

// Sample values that use all bits of their depth, the extremes among them.
std::int32_t SampleAt(const WaveRow& row, int index) {
    const std::uint32_t noise = static_cast<std::uint32_t>(index) * 2654435761u;
    if (row.isFloat) {
        const float value = static_cast<float>(static_cast<std::int32_t>(noise)) / 1.0e9f; // beyond 1.0 too
        std::int32_t bits;
        std::memcpy(&bits, &value, sizeof bits);
        return bits;
    }
    return static_cast<std::int32_t>(index == 0   ? 0x80000000u
                                     : index == 1 ? 0x7fffffffu
                                                  : noise) >>
           (32 - row.bits);
}

std::string WaveBytes(const WaveRow& row) {
    const int sampleBytes = row.bits / 8;
    std::string data;
    for (int i = 0; i < row.frames * row.channels; ++i)
        Put(data, static_cast<std::uint32_t>(SampleAt(row, i)) + (row.bits == 8 ? 128u : 0u), sampleBytes);
    std::string bytes = "RIFF";
    Put(bytes, static_cast<std::uint32_t>(36 + data.size()), 4);
    bytes += "WAVEfmt ";
    Put(bytes, 16, 4);
    Put(bytes, row.isFloat ? 3 : 1, 2);
    Put(bytes, static_cast<std::uint32_t>(row.channels), 2);
    Put(bytes, 44100, 4);
    Put(bytes, static_cast<std::uint32_t>(44100 * row.channels * sampleBytes), 4);
    Put(bytes, static_cast<std::uint32_t>(row.channels * sampleBytes), 2);
    Put(bytes, static_cast<std::uint32_t>(row.bits), 2);
    bytes += "data";
    Put(bytes, static_cast<std::uint32_t>(data.size()), 4);
    return bytes + data;
}

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

// A file of these bytes that goes with the object.
class Source {
public:
    explicit Source(const std::string& bytes) {
        EXPECT_TRUE(name.MakeNew(L"dec"));
        XFile file(name);
        EXPECT_TRUE(file.Open(GENERIC_WRITE, CREATE_ALWAYS));
        EXPECT_TRUE(file.Write(bytes.data(), static_cast<DWORD>(bytes.size())));
    }
    [[nodiscard]] const XString& Path() const { return name; }

private:
    XTempFile name;
};

constexpr WaveRow waveRows[] = {
    {8, false, 1, 5000, 4096}, {16, false, 2, 44101, 1},   {16, false, 2, 44101, 1023},
    {24, false, 2, 9999, 777}, {24, false, 6, 3000, 4096}, {32, false, 1, 8193, 8192},
    {32, true, 2, 12345, 500}, {16, false, 1, 1, 16},
};

TEST_F(DecoderLibrary, DeliversTheSamplesOfWaveFiles) {
    for (const WaveRow& row : waveRows) {
        SCOPED_TRACE(testing::Message()
                     << row.bits << " bits, " << row.channels << " channels, " << row.block);
        const Source source(WaveBytes(row));
        ASSERT_TRUE(Open(source.Path())) << testing::PrintToString(LastError());
        EXPECT_EQ(open.format.sampleKind, row.isFloat ? ztSampleFloat : ztSampleInteger);
        EXPECT_EQ(open.format.bitsPerSample, row.bits);
        EXPECT_EQ(open.format.channels, row.channels);
        EXPECT_EQ(open.format.frequency, 44100u);
        EXPECT_EQ(open.format.frameCount, static_cast<std::uint64_t>(row.frames));
        EXPECT_TRUE(open.format.flags & ztFormatExactLength);
        std::vector<std::int32_t> expected;
        for (int i = 0; i < row.frames * row.channels; ++i)
            expected.push_back(SampleAt(row, i));
        EXPECT_TRUE(DecodeAll(row.block) == expected);
    }
}

// Packed blocks need the zlib that FFmpeg was built with.
TEST_F(DecoderLibrary, UnpacksMatroska) {
    const WaveRow row{16, false, 2, 5000, 4096};
    const std::string pcm = WaveBytes(row).substr(44);
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
    const Source source(Element(0x1A45DFA3, Element(0x4282, "matroska")) +
                        Element(0x18538067, Element(0x1654AE6B, track) + Element(0x1F43B675, cluster)));
    ASSERT_TRUE(Open(source.Path())) << testing::PrintToString(LastError());
    std::vector<std::int32_t> expected;
    for (int i = 0; i < row.frames * row.channels; ++i)
        expected.push_back(SampleAt(row, i));
    EXPECT_TRUE(DecodeAll(row.block) == expected);
}

TEST_F(DecoderLibrary, SetPositionGoesToTheFrame) {
    const WaveRow row{16, false, 2, 30000, 1};
    const Source source(WaveBytes(row));
    ASSERT_TRUE(Open(source.Path()));
    for (const std::uint64_t frame : {29999u, 12345u, 0u}) { // forward, and twice back
        ASSERT_TRUE(decoder.SetPosition(decoder.instance, frame));
        std::int32_t samples[2] = {};
        ASSERT_EQ(decoder.DecodeBlock(decoder.instance, samples, 1), 1);
        EXPECT_EQ(samples[1], SampleAt(row, static_cast<int>(frame) * 2 + 1)) << frame;
    }
    EXPECT_FALSE(decoder.SetPosition(decoder.instance, 30001));
}

TEST_F(DecoderLibrary, TellsWhatIsDamaged) {
    const std::string whole = WaveBytes({16, false, 2, 176400, 1});
    const Source truncated(whole.substr(0, 300000)); // FFmpeg alone believes the file's size here
    bool failed = false;
    ASSERT_TRUE(Open(truncated.Path())); // the header promises more than the file holds
    DecodeAll(1000, &failed);
    EXPECT_TRUE(failed);
    EXPECT_FALSE(LastError().IsEmpty());
    for (const std::string& bytes :
         {std::string(), std::string("words"), std::string(5000, '\x55'), whole.substr(0, 30)}) {
        const Source source(bytes);
        EXPECT_FALSE(Open(source.Path())) << bytes.size();
        EXPECT_FALSE(LastError().IsEmpty());
    }
    EXPECT_FALSE(Open(L"C:\\no\\such\\file.wav"));
    EXPECT_TRUE(LastError().Find(L"does not exist"));
}

// Two kinds of tags side by side, a cover of an unusual kind, and what has no place in the list.
TEST_F(DecoderLibrary, JoinsTagsAndNamesWhatStaysBehind) {
    using namespace std::string_literals;
    const auto chunk = [](const std::string& id, const std::string& content) {
        std::string bytes = id;
        Put(bytes, static_cast<std::uint32_t>(content.size()), 4);
        return bytes + content + std::string(content.size() % 2, '\0');
    };
    const auto frame = [](const std::string& id, const std::string& content) { // below 128 bytes
        return id + "\0\0\0"s + static_cast<char>(content.size()) + "\0\0"s + content;
    };
    const std::string frames = frame("TIT2", "\0Song"s) + frame("POPM", "me\0\xC4"s) +
                               frame("APIC", "\0image/pjpeg\0\3\0\xFF\xD8\xFF\xE0"s);
    std::string bytes = WaveBytes({16, false, 2, 100, 1}) +
                        chunk("LIST", "INFO" + chunk("IART", "Band\0"s) + chunk("INAM", "Other\0"s) +
                                          chunk("ICOP", "Us\0"s)) +
                        chunk("id3 ", "ID3\3\0\0\0\0\0"s + static_cast<char>(frames.size()) + frames);
    const auto size = static_cast<std::uint32_t>(bytes.size() - 8);
    std::memcpy(&bytes[4], &size, sizeof size);
    const Source source(bytes);
    ASSERT_TRUE(Open(source.Path(), ztOpenAll));
    XTagList tags;
    tags.Deserialize(open.tagData, open.tagDataSize);
    EXPECT_EQ(tags.Get(L"title"), XString(L"Song"));
    EXPECT_EQ(tags.Get(L"artist"), XString(L"Band"));
    EXPECT_EQ(tags.Get(L"copyright"), XString(L"Us"));
    EXPECT_EQ(tags.Get(L"picture"), XString(L"3;image/jpeg;"));
    DecodeAll(1000);
    PluginParams parameters{};
    ASSERT_TRUE(decoder.Get(decoder.instance, ZtKey::information, &parameters));
    EXPECT_EQ(XString(parameters.text1), XString(L"Not carried over from the source: rating"));
}

TEST_F(DecoderLibrary, ClaimsEachExtensionOnce) {
    XStringArray seen;
    PluginParams parameters{};
    for (; decoder.Get(decoder.instance, ZtKey::decodes, &parameters); ++parameters.index) {
        ASSERT_LT(parameters.index, 1000u);
        EXPECT_EQ(parameters.text1[0], L'.');
        EXPECT_FALSE(seen.Contains(parameters.text1, true))
            << testing::PrintToString(XString(parameters.text1));
        EXPECT_FALSE(XString(parameters.text2).IsEmpty());
        seen.AddString(parameters.text1);
    }
    for (const wchar_t* common :
         {L".mp3", L".flac", L".ogg", L".opus", L".m4a", L".wma", L".wv", L".ape", L".wav"})
        EXPECT_TRUE(seen.Contains(common, true));
}

} // namespace
