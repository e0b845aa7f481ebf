// The rules for texts, lists and files that the checker goes by.
#include "tools/check/Rules.h"
#include "foundation/XTagList.h"
#include "tools/check/Kinds.h"

#include <gtest/gtest.h>

#include <cstring>
#include <vector>

namespace {

struct TextRow {
    XString (*fault)(const XString&);
    const wchar_t* text;
    const wchar_t* told; // a piece of the fault, empty for none
};
constexpr TextRow texts[] = {
    {ExtensionFault, L".flac", L""},
    {ExtensionFault, L".IGNORE", L""},
    {ExtensionFault, L"", L"empty"},
    {ExtensionFault, L"flac", L"without a dot"},
    {ExtensionFault, L".", L"nothing else"},
    {ExtensionFault, L".a/b", L"can't hold"},
    {EncoderSettingsFault, L"", L""},
    {EncoderSettingsFault, L"-level=\"8\" -verify", L""},
    {EncoderSettingsFault, L"-infile=\"a\"", L""}, // behind all switches it is none
    {EncoderSettingsFault, L"-tmpfolder=\"a\" -b", L"begins like a switch"},
    {EncoderSettingsFault, L"-dspeffect1=\"a=b\"", L"begins like a switch"},
    {EncoderSettingsFault, L"-a=\"1", L"counterpart"},
    {EncoderSettingsFault, L"-a\n", L"line end"},
    {EncoderSettingsFault, L"level 8", L"not made of options"},
    {EffectSettingsFault, L"-file=\"C:\\a b\" x=\"y\"", L""},
    {EffectSettingsFault, L"-a=\"{qt}\"", L"{qt}"},
    {EffectSettingsFault, L"-a=\r", L"line end"},
    {RequiredEffectFault, L"Fade=-in=5", L""},
    {RequiredEffectFault, L"Fade=", L""},
    {RequiredEffectFault, L"=x", L"has to be"},
};

TEST(CheckRules, Texts) {
    for (const TextRow& row : texts) {
        const XString fault = row.fault(row.text);
        EXPECT_EQ(fault.IsEmpty(), row.told[0] == 0) << fault.Text();
        EXPECT_TRUE(row.told[0] == 0 || fault.Find(row.told) > 0) << fault.Text();
    }
}

TEST(CheckRules, ImagesOfLists) {
    XTagList list;
    list.Add(L"title", L"");
    list.Add(L"artist", L"A");
    XBuffer image;
    ASSERT_TRUE(list.Serialize(image));
    const auto size = static_cast<std::uint32_t>(image.size);
    EXPECT_TRUE(TagImageFault(image.data, size).IsEmpty());
    for (std::uint32_t cut = 0; cut < size; ++cut) {
        const std::vector<unsigned char> part(image.Bytes(),
                                              image.Bytes() + cut); // for the address sanitizer
        EXPECT_FALSE(TagImageFault(part.data(), cut).IsEmpty()) << cut;
    }
    image.Bytes()[8] = 0; // the first letter of the key
    EXPECT_GT(TagImageFault(image.data, size).Find(L"no key"), 0);
}

// Whatever a file holds behind a sound beginning, reading it ends and stays inside.
TEST(CheckRules, DamagedLibraries) {
    std::uint32_t random = 1;
    for (int round = 0; round < 500; ++round) {
        std::vector<unsigned char> bytes(400);
        for (unsigned char& byte : bytes) {
            random = random * 1664525 + 1013904223;
            byte = random >> 28 < 12 ? 0 : static_cast<unsigned char>(random >> 20);
        }
        const unsigned char head[] = {'P', 'E', 0, 0, 0x64, 0x86, 2, 0};
        std::memcpy(bytes.data(), "MZ", 2);
        std::memcpy(bytes.data() + 0x3C, "\x40\0\0\0", 4);
        std::memcpy(bytes.data() + 0x40, head, sizeof(head));
        bytes[0x40 + 20] = 240; // size of the optional header
        bytes[0x40 + 21] = 0;
        bytes[0x40 + 24] = 0x0B;
        bytes[0x40 + 25] = 0x02;
        PeImage image;
        ReadPeImage(bytes.data(), bytes.size(), image);
        EXPECT_TRUE(image.is64Bit);
    }
}

TEST(CheckRules, KindsByFolderThenByExports) {
    PeImage image;
    for (const wchar_t* name : {L"Create", L"Get", L"DSP_Create", L"DSP_Get", L"DSP_Set", L"ENC_Get@24"})
        image.exports.AddString(name);
    PluginKind kind{};
    EXPECT_TRUE(DetectKind(L"C:\\a\\Decoder\\x.dll", image, kind) && kind == PluginKind::decoder);
    EXPECT_TRUE(DetectKind(L"C:\\a\\encoder\\x.dll", image, kind) && kind == PluginKind::effect);
    XStringArray faults;
    FindExportFaults(image, RowOf(PluginKind::encoder), faults);
    ASSERT_EQ(faults.Count(), 9);
    EXPECT_GT(faults[2].Find(L"it is there as \"ENC_Get@24\""), 0);
}

} // namespace
