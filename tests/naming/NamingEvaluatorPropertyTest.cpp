// The naming language under any input: it ends.
#include "naming/NamingEvaluator.h"

#include <gtest/gtest.h>

namespace {

XString Repeat(const wchar_t* piece, int count, const wchar_t* tail = L"") {
    XString text;
    for (int i = 0; i < count; ++i)
        text.Extend(piece);
    return text + tail;
}

// What a plain loop would never finish, or only after hours. The runner's limit of time judges.
TEST(EvaluateNaming, EndsWhateverItIsGiven) {
    XTagList tags;
    tags.Add(L"origpath", L"[FRONTFOLDER]1[][FRONTFOLDER]1[]");
    tags.Add(L"k", Repeat(L"\r]_COMMA_", 500));
    tags.Add(L"title", Repeat(L"x", 4000));
    tags.Add(L"a", L"bb");
    tags.Add(L"b", L"aa");
    XStringArray extras;
    for (int i = 0; i < 40; ++i)
        extras.AddString(i % 2 ? L"b" : L"a");
    const XString templates[] = {
        L"[FRONTFOLDER]1[]",
        L"a",
        Repeat(L"[UPPER]", 1000, L"[title]") + Repeat(L"[]", 1000),
        Repeat(L"[title]", 1000),
        Repeat(L"[ti", 2000) + Repeat(L"tle]", 2000),
        Repeat(L"[SETLEN]30000,1,1,", 300) + Repeat(L"[]", 300),
        L"[tags]k," + Repeat(L"[title]", 600, L"[]"),
        L"[tags]k,[tags]k_COMMA_x[[[]" + Repeat(L"[]", 1000),
        Repeat(L"[IFVALUE][tag]", 500),
        Repeat(L"[tags]k,", 600) + Repeat(L"[[]", 600),
        Repeat(L"[TRIMFIRSTFOLDER]abc\\", 200) + Repeat(L"\\x", 2000) + Repeat(L"[]", 200),
    };
    for (const XString& naming : templates)
        EXPECT_LT(EvaluateNaming(naming, tags, &extras).Count(), 3000000)
            << XString(naming.Left(60)).ToNarrow();
}

TEST(EvaluateNaming, LongHonestTemplatesAreEvaluatedWhole) {
    XTagList tags;
    tags.Add(L"year", L"1987");
    EXPECT_EQ(EvaluateNaming(Repeat(L"[UPPER][year]x[]", 500), tags, nullptr), Repeat(L"1987X", 500));
}

} // namespace
