// Line ends, marks and rubbish in list files, and their size.
#include "host/ListFile.h"

#include "host/clFileList.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>

namespace {

struct ListRow {
    const char* what;
    std::u16string_view content;
    const wchar_t* expected; // lines joined by '|'
};
using namespace std::literals;

XString Joined(const XStringArray& lines) {
    XString joined;
    for (const XString& line : lines)
        joined += (joined.IsEmpty() ? L"" : L"|") + line;
    return joined;
}

TEST(ListFile, Lines) {
    constexpr ListRow rows[] = {
        {"nothing", u""sv, L""},
        {"no end mark", u"C:\\a"sv, L"C:\\a"},
        {"all ends", u"a\nb\r\nc\rd\r\n"sv, L"a|b|c|d"},
        {"empty lines", u"\r\n\n\ra\r\n\r\n\r\rb\n\n"sv, L"a|b"},
        {"mark at the start", u"\uFEFFa\r\nb"sv, L"a|b"},
        {"marks at any start", u"\uFEFF\uFEFFa\n\uFEFFb\r\uFEFFc"sv, L"a|b|c"},
        {"mark inside", u"a\uFEFFb"sv, L"a\uFEFFb"},
        {"only a mark", u"\uFEFF"sv, L""},
        {"mark, then line end", u"\uFEFF\r\nx"sv, L"x"},
        {"zero units", u"a\0b\0\r\n\0\r\nc"sv, L"ab|c"},
        {"LF CR", u"a\n\rb"sv, L"a|b"},
        {"blanks stay", u" a \n"sv, L" a "},
    };
    for (const ListRow& row : rows) {
        XStringArray lines;
        ParseListFile(row.content.data(), row.content.size() * 2, lines);
        EXPECT_EQ(Joined(lines), XString(row.expected)) << row.what;
    }
}

TEST(ListFile, OddBytesAndAddresses) {
    const std::string bytes("?a\0b\0\n\0c\0d", 10);
    XStringArray lines;
    ParseListFile(bytes.data() + 1, 9, lines); // starts at an odd address, ends in half a unit
    EXPECT_EQ(Joined(lines), XString(L"ab|c"));
    lines.Clear();
    ParseListFile(bytes.data(), 1, lines);
    ParseListFile(nullptr, 0, lines);
    EXPECT_TRUE(lines.IsEmpty());
}

TEST(ListFile, HundredThousandLines) {
    constexpr int count = 100000;
    std::u16string content;
    for (int i = 0; i < count; ++i) {
        content += u"C:\\Music\\Album\\";
        for (const char ch : std::to_string((i * 7919LL) % count))
            content += static_cast<char16_t>(ch);
        content += i % 2 ? u".FLAC\r\n" : u".flac\n";
    }
    content += content.substr(0, 2000); // doubles, the last one cut
    const auto start = std::chrono::steady_clock::now();
    XStringArray lines;
    ParseListFile(content.data(), content.size() * 2, lines);
    lines.Sort([](const XString& a, const XString& b) { return a.CompareNoCase(b) < 0; });
    clFileList files;
    files.AppendAllUnique(lines);
    const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - start;
    EXPECT_GE(files.Count(), count);
    EXPECT_LE(files.Count(), count + 1);
    for (std::int64_t i = 1; i < files.Count(); ++i)
        ASSERT_LT(files[i - 1].sourcePath.CompareNoCase(files[i].sourcePath), 0) << i;
    EXPECT_LT(seconds.count(), 20.0); // sanitised and unlucky; a walk per line would take an hour
}

} // namespace
