// What sources' own bytes tell, whole and cut off anywhere.
#include "plugins/decoder/EncoderFacts.h"
#include "plugins/decoder/FileMarks.h"
#include "plugins/decoder/Id3Frames.h"
#include "plugins/decoder/OggEnd.h"
#include "plugins/decoder/UnreadTags.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

namespace {

// In a block of its own of exactly the size, so that a sanitizer sees each byte read beyond it.
std::vector<unsigned char> Exact(const std::string& bytes) {
    return {bytes.begin(), bytes.end()};
}

std::string Big(std::size_t value, int count) {
    std::string bytes;
    for (int i = count; i-- > 0;)
        bytes.push_back(static_cast<char>(value >> (8 * i)));
    return bytes;
}

// A header frame as LAME writes it: MPEG 1, 128 kbit/s, stereo.
std::string LameFrame(const std::string& name, int quality, int method, int bitRate, int preset) {
    return std::string("\xFF\xFB\x90\x44", 4) + std::string(32, '\0') + "Xing" + Big(15, 4) + Big(100, 4) +
           Big(5000, 4) + std::string(100, 'T') + Big(static_cast<std::size_t>(quality), 4) + name +
           std::string(9 - name.size(), '\0') + Big(static_cast<std::size_t>(method), 1) +
           std::string(10, '\0') + Big(static_cast<std::size_t>(bitRate), 1) + "\x24\x05\x02" +
           std::string(2, '\0') + Big(static_cast<std::size_t>(preset), 2) + std::string(8, '\0');
}

struct LameRow {
    const char* name;
    int quality, method, bitRate, preset;
    const wchar_t *encoder, *settings;
};
constexpr LameRow lameRows[] = {
    {"LAME3.100", 78, 4, 32, 480, L"LAME 3.100", L"-V2"},
    {"LAME3.99r", 57, 1, 192, 0, L"LAME 3.99r", L"-b192"},
    {"LAME3.99r", 57, 1, 255, 320, L"LAME 3.99r", L"-b128"}, // the frame's own, as it can't be told
    {"LAME3.96r", 57, 2, 24, 24, L"LAME 3.96r", L"--abr 24"},
    {"Lavf58.45", 0, 0, 0, 0, L"Lavf58.45", L""},
    {"\x01\x02", 78, 4, 32, 480, L"", L""},
};

TEST(SourceMarks, Mp3Encoders) {
    for (const LameRow& row : lameRows) {
        const std::string frame =
            "noise\xFF" + LameFrame(row.name, row.quality, row.method, row.bitRate, row.preset);
        for (std::size_t size = 0; size <= frame.size(); ++size) {
            const auto bytes = Exact(frame.substr(0, size));
            const EncoderFacts facts = ReadMp3Facts(bytes.data(), bytes.size());
            const bool isWhole = size == frame.size();
            ASSERT_EQ(facts.encoder, isWhole ? XString(row.encoder) : XString()) << size;
            ASSERT_EQ(facts.settings, isWhole ? XString(row.settings) : XString()) << size;
        }
    }
}

TEST(SourceMarks, WavPackModes) {
    struct Row {
        std::uint32_t flags;
        char blockFlags;
        const wchar_t* settings;
    };
    for (const Row& row : {Row{0x200, 0, L"Fast"}, Row{0x1800, 0, L"Very high"},
                           Row{0x2000800, 8, L"High, extra, hybrid"}, Row{0, 0, L"Normal"}}) {
        std::string block = "wvpk" + std::string(20, '\0') + row.blockFlags + std::string(7, '\0');
        block += std::string("\x02\x01xx", 4) + "\x65\x02" + static_cast<char>(row.flags >> 8) +
                 static_cast<char>(row.flags >> 16) + static_cast<char>(row.flags >> 24) + '\0';
        for (std::size_t size = 0; size <= block.size(); ++size) {
            const auto bytes = Exact(block.substr(0, size));
            const EncoderFacts facts = ReadWavPackFacts(bytes.data(), bytes.size());
            if (size == block.size()) {
                EXPECT_EQ(facts.settings, XString(row.settings));
            }
        }
    }
    EXPECT_EQ(MonkeysAudioFacts(3990, 4000).encoder, XString(L"Monkey's Audio 3.99"));
    EXPECT_EQ(MonkeysAudioFacts(3990, 4000).settings, XString(L"Extra high"));
    EXPECT_EQ(MonkeysAudioFacts(0, 65535).settings, XString());
}

TEST(SourceMarks, KindsOfTags) {
    const std::string id3v2 = std::string("ID3\x03\0\0\0\0\x01\x02", 10) + std::string(150, '\0');
    const std::string ape = "APETAGEX" + std::string("\xD0\x07\0\0", 4) + std::string(20, '\0');
    const std::string plain = "TAG" + std::string(125, ' ');
    const std::string numbered = "TAG" + std::string(122, ' ') + std::string("\0\x05 ", 3);
    struct Row {
        std::string start, end;
        const wchar_t* kinds;
    };
    for (const Row& row : {Row{id3v2, plain, L"ID3v2.3 & ID3v1"}, Row{"", ape + numbered, L"APEv2 & ID3v1.1"},
                           Row{ape, std::string(128, 'x') + ape, L"APEv2"},
                           Row{id3v2.substr(0, 9), "TAG", L""}, Row{"", "", L""}}) {
        const auto start = Exact(row.start), end = Exact(row.end);
        EXPECT_EQ(TagKindsAround(start.data(), start.size(), end.data(), end.size()), XString(row.kinds));
    }
    EXPECT_EQ(Id3v2Bytes(Exact(id3v2).data(), id3v2.size()), 10u + 130u);
}

std::string Frame(const std::string& name, const std::string& text, int bitsPerByte) {
    std::string size(4, '\0');
    for (int i = 0; i < 4; ++i)
        size[static_cast<std::size_t>(3 - i)] =
            static_cast<char>((text.size() >> (bitsPerByte * i)) & ((1u << bitsPerByte) - 1));
    return name + size + std::string(2, '\0') + text;
}

TEST(SourceMarks, MendsFramesThatEndATagTooEarly) {
    const std::string big(300, 'x');
    struct Row {
        int version, bitsPerByte;
    };
    for (const Row& row : {Row{3, 8}, Row{4, 7}, Row{4, 8}}) {
        const auto frame = [&](const char* name, const std::string& text) {
            return Frame(name, text, row.bitsPerByte);
        };
        const std::string wrong = frame("TENC", big) + frame("TSA ", "Sort") + frame("TBPM", "") +
                                  frame("QQQ ", big) + frame("TXXX", "") + frame("TIT2", "Title");
        const std::string right = frame("TENC", big) + frame("TSOA", "Sort") + frame("ZZZZ", big) +
                                  frame("TIT2", "Title") + std::string(20, '\0');
        for (std::size_t size = 0; size <= wrong.size(); ++size) {
            auto bytes = Exact(wrong.substr(0, size));
            MendId3v2Frames(bytes.data(), bytes.size(), row.version);
            if (size == wrong.size()) {
                EXPECT_EQ(bytes, Exact(right)) << row.version << ' ' << row.bitsPerByte;
            }
        }
    }
}

TEST(SourceMarks, TextsWithoutAByteOrderGetOne) {
    using std::string_literals::operator""s;
    struct Row {
        const char* name;
        std::string text, mended; // no mended one: it stays
    };
    for (const Row& row :
         {Row{"TIT2", "\1a\0b\0\0\0"s, "\2\0a\0b\0\0"s}, Row{"TIT2", "\1\0a\0b"s, "\2\0a\0b"s},
          Row{"TIT2", "\1\xE5\x65\x2C\x67"s, "\2\x65\xE5\x67\x2C"s}, Row{"TPE1", "\1\xFF\xFEz\0"s, ""},
          Row{"TPE1", "\3a\0b\0"s, ""}, Row{"COMM", "\1engd\0\0\0t\0"s, "\2eng\0d\0\0\0t"s},
          Row{"COMM", "\1eng\0\0\xFE\xFF\0t"s, ""}, Row{"PRIV", "\1a\0b\0"s, ""}, Row{"TALB", "\1"s, ""}}) {
        auto bytes = Exact(Frame(row.name, row.text, 8));
        MendId3v2Frames(bytes.data(), bytes.size(), 3);
        EXPECT_EQ(bytes, Exact(Frame(row.name, row.mended.empty() ? row.text : row.mended, 8)))
            << row.name << row.text;
    }
    auto packed = Exact(Frame("TIT2", "\1a\0b\0"s, 8));
    packed[9] = 0x80;
    const auto same = packed;
    MendId3v2Frames(packed.data(), packed.size(), 3);
    EXPECT_EQ(packed, same);
}

bool EndsWith(const XString& text, const XString& end) {
    return text.Count() > end.Count() && text.From(text.Count() - end.Count() + 1) == end;
}

TEST(SourceMarks, UnreadTagsAreToldInOneLine) {
    UnreadTags unread;
    EXPECT_TRUE(unread.Text().IsEmpty());
    unread.AddUnnamed();
    EXPECT_TRUE(EndsWith(unread.Text(), L" are several"));
    for (const wchar_t* name : {L"b", L"a", L"b"})
        unread.Add(name);
    EXPECT_TRUE(EndsWith(unread.Text(), L" are b, a and others"));
    UnreadTags many;
    for (int i = 0; i < 100000; ++i)
        many.Add(L"c" + DecimalText(i));
    EXPECT_TRUE(EndsWith(many.Text(), L" are c0, c1, c2, c3, c4, c5, c6, c7 and others"));
}

TEST(SourceMarks, EndsOfOggFiles) {
    const auto page = [](char flags, std::size_t bytes) {
        return std::string("OggS\0", 5) + flags + std::string(20, '\1') + '\1' + static_cast<char>(bytes) +
               std::string(bytes, 'O');
    };
    const std::string last = page('\5', 90), other = page('\1', 200);
    EXPECT_TRUE(HasOggEnd(Exact(other + last).data(), other.size() + last.size()));
    EXPECT_TRUE(HasOggEnd(Exact(last + "TAG").data(), last.size() + 3));
    EXPECT_FALSE(HasOggEnd(Exact(last + other).data(), last.size() + other.size()));
    for (std::size_t size = 0; size < last.size(); ++size)
        EXPECT_FALSE(HasOggEnd(Exact(last.substr(0, size)).data(), size)) << size;
}

std::string Box(const char* id, const std::string& content) {
    return Big(content.size() + 8, 4) + id + content;
}

TEST(SourceMarks, ProtectedAudio) {
    for (const char* entry : {"drms", "enca", "mp4a"}) {
        const std::string entries = Big(0, 4) + Big(1, 4) + Box(entry, std::string(28, '\0'));
        const std::string table = Box("stbl", Box("stsd", entries));
        const std::string moov =
            Box("moov", Box("mvhd", "drmsenca") + Box("trak", Box("mdia", Box("minf", table))));
        for (std::size_t size = 0; size <= moov.size(); ++size) {
            const auto bytes = Exact(moov.substr(0, size));
            const bool isProtected = HasProtectedAudio(bytes.data(), bytes.size());
            EXPECT_FALSE(isProtected && entry[0] == 'm');
            EXPECT_TRUE(isProtected || entry[0] == 'm' || size < moov.size());
        }
    }
    const auto endless = Exact(std::string("\0\0\0\0trak", 8) + std::string(90, '\0'));
    EXPECT_FALSE(HasProtectedAudio(endless.data(), endless.size()));
}

} // namespace
