// Files that are changed as a whole or not at all.
#include "plugins/dsp/EditedFile.h"

#include "tests/foundation/TestFolder.h"

namespace {

class EditedFileTest : public TestFolder {};

struct EditRow {
    std::size_t size, at, removed;
    const char* added;
};
// In place where little moves, longer and shorter; anew where more than a megabyte does.
constexpr EditRow editRows[] = {{100, 10, 4, "1234"},  {100, 90, 5, "123456789"}, {100, 0, 50, "x"},
                                {100, 100, 0, "tail"}, {3000000, 10, 0, "moves"}, {3000000, 10, 5, "stays"},
                                {100, 0, 100, ""}};

TEST_F(EditedFileTest, ChangesAreThereAfterCommitAlone) {
    for (const EditRow& row : editRows) {
        std::string plain(row.size, ' ');
        for (std::size_t i = 0; i < plain.size(); ++i)
            plain[i] = static_cast<char>('a' + i % 23);
        const XString path = Put(L"a \u00fc.bin", plain.data(), static_cast<DWORD>(plain.size()));
        EditedFile file;
        ASSERT_TRUE(file.Open(path));
        const std::string added = row.added;
        file.Content().Replace(row.at, row.removed, reinterpret_cast<const unsigned char*>(added.data()),
                               added.size());
        EXPECT_EQ(Content(L"a \u00fc.bin"), plain);
        ASSERT_TRUE(file.Commit()) << file.Error().Text();
        EXPECT_TRUE(Content(L"a \u00fc.bin") == plain.replace(row.at, row.removed, added)) << &row - editRows;
        EXPECT_FALSE(PathExists(path + L".1.tmp"));
    }
}

TEST_F(EditedFileTest, AFileInUseStaysWhole) {
    const std::string plain(2000000, 'x');
    const XString path = Put(L"a.bin", plain.data(), static_cast<DWORD>(plain.size()));
    EditedFile file;
    {
        XFile writer(path);
        ASSERT_TRUE(writer.Open(GENERIC_WRITE, OPEN_EXISTING));
        EXPECT_FALSE(file.Open(path));
        EXPECT_FALSE(file.Error().IsEmpty());
    }
    ASSERT_TRUE(file.Open(path));
    file.Content().Replace(0, 0, reinterpret_cast<const unsigned char*>("y"), 1);
    XFile reader(path); // keeps the file from being replaced
    ASSERT_TRUE(reader.Open(GENERIC_READ, OPEN_EXISTING));
    EXPECT_FALSE(file.Commit());
    reader.Close();
    EXPECT_TRUE(Content(L"a.bin") == plain);
    EXPECT_FALSE(PathExists(path + L".1.tmp"));
}

} // namespace
