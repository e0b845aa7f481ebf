#include "plugins/common/Checksums.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace {

struct Row {
    std::string text;
    const wchar_t* md5;
    std::uint32_t crc;
};

// The values of RFC 1321's test suite, and lengths on both sides of a block.
TEST(Checksums, AreThoseOfTheStandards) {
    const Row rows[] = {
        {"", L"d41d8cd98f00b204e9800998ecf8427e", 0},
        {"abc", L"900150983cd24fb0d6963f7d28e17f72", 0x352441C2},
        {"123456789", L"25f9e794323b453885f5181f1b624d0b", 0xCBF43926},
        {"12345678901234567890123456789012345678901234567890123456789012345678901234567890",
         L"57edf4a22be3c955ac49da2e2107b67a", 0x7CA94A72},
        {std::string(55, 'a'), L"ef1772b6dff9a122358552954ad0df65", 0xAADFE34E},
        {std::string(56, 'a'), L"3b0c8ac703f828b04c6c197006d17218", 0x79790D37},
        {std::string(64, 'a'), L"014842d480b571495a4a0363793f7367", 0x89B46555},
    };
    for (const Row& row : rows) {
        for (const std::size_t step : {std::size_t(1), std::size_t(7), std::size_t(1000)}) {
            Md5 md5;
            Crc32 crc;
            for (std::size_t at = 0; at < row.text.size(); at += step) {
                const std::size_t count = std::min(step, row.text.size() - at);
                md5.Add(row.text.data() + at, count);
                crc.Add(row.text.data() + at, count);
            }
            unsigned char digest[Md5::digestBytes];
            md5.Finish(digest);
            EXPECT_EQ(HexText(digest, sizeof digest), XString(row.md5)) << row.text;
            EXPECT_EQ(crc.Value(), row.crc) << row.text;
        }
    }
}

} // namespace
