#include "plugins/encoder/TestPanel.h"

#include "plugins/encoder/TestOptions.h"

#include <iterator>

namespace {
constexpr const wchar_t* words[] = {TestOption::both, L"crc32", L"md5", L"none"};
constexpr const wchar_t* texts[] = {L"CRC-32 and MD5", L"CRC-32", L"MD5", L"None"};
static_assert(std::size(words) == std::size(texts));
} // namespace

void TestPanel::Fill(const SettingsText& settings) {
    for (int i = 0; i < static_cast<int>(std::size(texts)); ++i)
        AddItem(ID_TEST_CHECKSUM, texts[i], i);
    ChooseItem(ID_TEST_CHECKSUM, settings.Word(L"checksum", words));
}

void TestPanel::Collect(SettingsText& settings) {
    settings.Put(L"checksum", words[ChosenItem(ID_TEST_CHECKSUM)], TestOption::both);
}
