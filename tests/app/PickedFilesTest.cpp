// The dialog's buffer and filter, unit by unit.
#include "app/PickedFiles.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string_view>

namespace {

using namespace std::literals;

TEST(PickedFiles, FromTheBuffer) {
    struct Row {
        std::u16string_view buffer; // behind it stand the final zeros
        const wchar_t* paths;
    };
    constexpr Row rows[] = {
        {u""sv, L""},
        {u"C:\\Music\\one song.wav\0"sv, L"C:\\Music\\one song.wav|"},
        {u"C:\\Music\0b.wav\0a b.wav\0"sv, L"C:\\Music\\b.wav|C:\\Music\\a b.wav|"},
        {u"C:\\\0b.wav\0b.wav\0"sv, L"C:\\b.wav|C:\\b.wav|"},
        {u"\\\\server\\share\0a.wav\0b.wav\0"sv, L"\\\\server\\share\\a.wav|\\\\server\\share\\b.wav|"},
        {u"C:\\x\0D:\\y\\a.wav\0\\\\s\\t\\b.wav\0"sv, L"D:\\y\\a.wav|\\\\s\\t\\b.wav|"},
    };
    for (const Row& row : rows) {
        std::vector<wchar_t> buffer(row.buffer.begin(), row.buffer.end());
        buffer.push_back(0);
        XStringArray paths;
        ReadPickedFiles(buffer.data(), paths);
        XString joined;
        for (const XString& path : paths)
            joined += path + L"|";
        EXPECT_EQ(joined, XString(row.paths));
    }
}

TEST(PickedFiles, FilterText) {
    struct Row {
        const wchar_t* filters; // separated by '|'
        std::u16string_view text;
    };
    constexpr Row rows[] = {
        {L"All\r*.a;*.b|Alpha  (*.a)\r*.a", u"All\0*.a;*.b\0Alpha  (*.a)\0*.a\0\0"sv},
        {L"All\r", u"All\0\0\0"sv},
    };
    for (const Row& row : rows) {
        DecoderFilterList filters;
        Split(filters, row.filters, L"|");
        const std::vector<wchar_t> text = DialogFilterText(filters);
        EXPECT_TRUE(std::equal(text.begin(), text.end(), row.text.begin(), row.text.end()))
            << testing::PrintToString(XString(row.filters));
    }
    EXPECT_EQ(DialogFilterText(DecoderFilterList()), std::vector<wchar_t>(2));
}

} // namespace
