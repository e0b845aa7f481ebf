// The naming language: results of each construct, and what stays as written.
#include "naming/NamingEvaluator.h"

#include "SampleTags.h"

#include <gtest/gtest.h>

namespace {

struct NamingRow {
    const wchar_t* naming;
    const wchar_t* expected;
};

XString Evaluated(const wchar_t* naming) {
    XTagList tags;
    FillSample(tags);
    return EvaluateNaming(naming, tags, nullptr);
}

template <int count>
void ExpectRows(const NamingRow (&rows)[count]) {
    for (const NamingRow& row : rows)
        EXPECT_EQ(Evaluated(row.naming), XString(row.expected)) << row.naming;
}

XString WithTag(const wchar_t* key, const wchar_t* value, const wchar_t* naming) {
    XTagList tags;
    tags.Add(key, value);
    return EvaluateNaming(naming, tags, nullptr);
}

TEST(EvaluateNaming, Elements) {
    constexpr NamingRow rows[] = {
        {L"", L""},
        {L"plain \\ text", L"plain \\ text"},
        {L"[track]|[track_total]|[disc]|[disc_total]", L"05|15|1|3"},
        {L"[artist]", L"Ox,Ew"},
        {L"[TITLE][Title]", L"Back [Live]Back [Live]"},
        {L"a[album]b[mood]c", L"abc"},
        {L"[unknown] [title]", L"[unknown] Back [Live]"},
        {L"[genre]", L"Pop-Rock"},
        {L"[origdrive][origpath]\\[origfilename]", L"D:\\Music\\Old, new\\CD1\\song"},
        {L"[composer]", L"A"},
        {L"[year]", L"1987"}, // of two records the first
        {L"[[year]]", L"[1987]"},
        {L"[ti[album]tle]", L"Back [Live]"}, // what an empty value joins is an element
        {L"[alb[title]um]", L"[albBack [Live]um]"},
        {L"[ye[album]ar[album]]", L"1987"},
        {L"[al[album]bum]", L""}, // the same element, begun before
        {L"[year", L"[year"},
        {L"[ year ]", L"[ year ]"},
        {L"<comma_><BRACKETS_>", L",["},
    };
    ExpectRows(rows);
}

TEST(EvaluateNaming, OneTagByItself) {
    struct TrackRow {
        const wchar_t *key, *value, *naming, *expected;
    };
    constexpr TrackRow rows[] = {
        {L"track", L"12", L"[track]|[track_total]", L"12|"},
        {L"track", L"7", L"[track]", L"07"},
        {L"track", L" 7 / 9 ", L"[track]|[track_total]", L"07|09"},
        {L"track", L"/", L"[track]|[track_total]", L"|"},
        {L"track", L"1/2/3", L"[track]|[track_total]", L"01|2/3"},
        {L"track", L"A", L"[track]", L"0A"},
        {L"track", L",", L"[track]", L","}, // eight characters while it is worked on
        {L"TRACK", L"3\r4/5", L"[track]|[track_total]", L"03|"},
        {L"disc", L"2", L"[disc]|[disc_total]", L"2|"},
        {L"disc", L"1/2", L"[IFMULTI]x[][IF!MULTI]y[]", L"x"},
        {L"disc", L"1/1", L"[IFMULTI]x[][IF!MULTI]y[]", L"y"},
        {L"origpath", L"[UPPER]", L"[FRONTFOLDER]1[]x[]", L"X"}, // a folder's name is read as language
    };
    for (const TrackRow& row : rows)
        EXPECT_EQ(WithTag(row.key, row.value, row.naming), XString(row.expected))
            << row.value << " in " << row.naming;
}

TEST(EvaluateNaming, Wrappers) {
    constexpr NamingRow rows[] = {
        {L"[tag]custom key[]!", L"own!"},
        {L"[TAG]Composer[]", L"A"},
        {L"[tag]nothing[]", L""},
        {L"[tag][]", L""},
        {L"[tag]artist", L"[tag]artist"},
        {L"[tag]year[][tag]year", L"1987[tag]year"},
        {L"[tag]custom [tag]key[]", L""}, // the key runs from the first wrapper on
        {L"[tag]custom [album]key[]", L"own"},
        {L"[ta[album]g]year[]", L"1987"},
        {L"[ta[tag]nothing[]g]year[]", L"1987"},
        {L"[ta[tags]nothing,x[]gs]year,-[]", L"1987"},
        {L"[tags]composer, & []", L"A & B"},
        {L"[tags]composer,_COMMA_[]", L"A,B"},
        {L"[tags]composer,_comma_[]", L"A_comma_B"},
        {L"[tags]composer,[]", L"AB"},
        {L"[tags]composer[]", L""},
        {L"[tags]composer,b,c[]", L""},
        {L"[tags]composer,+", L"[tags]composer,+"},
        {L"[tags]year,-[]", L"1987"},
        {L"[tags]composer,[year][]", L"A1987B"},
        {L"[tags]composer,[artist][]", L"AOx,EwB"},
        {L"[tags]composer,[tags][]year,-[]", L"A"},
        {L"[tags]composer,[tag]year[][]", L"A1987B"},
        {L"[tag]tags[]composer,+[]", L"composer,+[]"},
    };
    ExpectRows(rows);
}

TEST(EvaluateNaming, UnwrapsKeysOfConditions) {
    constexpr NamingRow rows[] = {
        {L"[IFVALUE]album,yes,no[]", L"no"},
        {L"[IFVALUE][album],yes,no[]", L"no"},
        {L"[IFVALUE][tag]album[],yes,no[]", L"no"},
        {L"[IFVALUE][tag]year[],yes,no[]", L"yes"},
        {L"[IFVALUE][tag][],a,b[]", L"b"},
        {L"[IFVALUE][tag]a[][IFVALUE][tag]year[],yes,no[]", L"[IFVALUE]ayes"},
        {L"[ifValue][Year],yes,no[]", L"yes"},
        {L"[IFEQUALS][year],1987,[artist][]", L"Ox,Ew"},
        {L"[IF!EQUALS][tag]year[],1987,x[]", L""},
        {L"[IFVALUE][ [year],yes,no[]", L"no"}, // the bracket that closes year goes
        {L"[IFVALUE][year", L"[IFVALUE]year"},
        {L"[IFVALUE][tag]year", L"[IFVALUE]year"},
        {L"[IFVALUE][year],a,b[][IFVALUE][mood],a,b[]", L"ab"},
    };
    ExpectRows(rows);
}

TEST(EvaluateNaming, TextFunctions) {
    constexpr NamingRow rows[] = {
        {L"[UPPER][artist][]", L"OX,EW"},
        {L"[upper]x[]", L"X"},
        {L"[UPPER]a,b\u00E4[]", L"A,B\u00E4"},
        {L"[LOWER]A,B\u00C4[]", L"a,b\u00C4"},
        {L"[RIGHT]2,[year][]", L"87"},
        {L"[RIGHT]2,[artist][]", L"Ew"},
        {L"[RIGHT]9,abc[]", L"abc"},
        {L"[RIGHT]0,abc[]", L""},
        {L"[RIGHT]-1,abc[]", L""},
        {L"[RIGHT]99999999999,abc[]", L"abc"},
        {L"[RIGHT]2,a,b[]", L",b"},
        {L"[RIGHT]abc[]", L""},
        {L"[GRAB]2,3,abcd[]", L"bc"},
        {L"[GRAB]2,0,abcd[]", L"bcd"},
        {L"[GRAB]2,-7,abcd[]", L"bcd"},
        {L"[GRAB]0,2,abcd[]", L""},
        {L"[GRAB]3,2,abcd[]", L""},
        {L"[GRAB]2,99,a,b,c[]", L",b,c"},
        {L"[TRIM]  a b  []", L"a b"},
        {L"[TRIM][][TRIM]x[]", L"x"},
        {L"[DEL]2,3,abcd[]", L"ad"},
        {L"[DEL]2,0,abcd[]", L"a"},
        {L"[DEL]3,100,abcdef[]", L""},
        {L"[DEL]3,7,abcdef[]", L"a"},
        {L"[DEL]0,2,abc[]", L"abc"},
        {L"[SETLEN]3,48,0,7[]", L"007"},
        {L"[SETLEN]3,0,46,7[]", L"7.."},
        {L"[SETLEN]3,48,46,7[]", L"007"},
        {L"[SETLEN]3,0,0,7[]|", L"7  |"},
        {L"[SETLEN]3,x,y,7[]|", L"7  |"},
        {L"[SETLEN]2,48,0,abc[]", L"ab"},
        {L"[SETLEN]0,48,0,abc[]", L""},
        {L"[SETLEN]-1,48,0,abc[]", L"abc"},
        {L"[SETLEN][]", L""},
        {L"[RIGHT]3,[SETLEN]2000000000,48,0,7[][]", L"007"},
        {L"[MAXLENGTH]4,[artist][]", L"Ox<c"},
        {L"[MAXLENGTH]0,abc[]", L""},
        {L"[MAXLENGTH]-1,abc[]", L"abc"},
        {L"[MAXLENGTH]9,abc[]", L"abc"},
        {L"[MAXLENGTH]9[]", L""},
    };
    ExpectRows(rows);
}

TEST(EvaluateNaming, Conditions) {
    constexpr NamingRow rows[] = {
        {L"[IFCOMP]a,b[]", L"a,b"},
        {L"[IF!COMP]a[]", L""},
        {L"[IFMULTI]CD[disc],[]", L"CD1,"},
        {L"[IF!MULTI]single[]", L""},
        {L"[IFEQUALS]year,1987,a_COMMA_b,c[]", L"a,b,c"},
        {L"[IFEQUALS]YEAR,1988,x[]", L""},
        {L"[IFEQUALS]year,Year,x[]", L"x"},
        {L"[IF!EQUALS]year,Year,x[]", L""},
        {L"[IF!EQUALS]year,1988,x[]", L"x"},
        {L"[IFEQUALS]mood,,x[]", L"x"},
        {L"[IFEQUALS]artist,Ox<comma_>Ew,x[]", L"x"},
        {L"[IFEQUALS]composer,A,x[]", L""},
        {L"[IF]abc,len>,2,long,short[]", L"long"},
        {L"[IF]abc,LEN>,2,long,short[]", L"short"},
        {L"[IF]abc,len<,3,a,b[]", L"b"},
        {L"[IF]abc,len=,3,a,b[]", L"a"},
        {L"[IF]abc,len=,,a,b[]", L"b"},
        {L"[IF],len=,,a,b[]", L"a"},
        {L"[IF]a,=,A,x_COMMA_y,z[]", L"x,y"},
        {L"[IF]a,=,B,x,y_COMMA_z,w[]", L"y,z,w"},
        {L"[IF]a,==,a,x,y[]", L"y"},
        {L"[IF]a,=,a[]", L""},
        {L"[IF][year],=,1987,[title],no[]", L"Back [Live]"},
        {L"[IFVALUE]year,a_COMMA_b,c[]", L"a_COMMA_b"},
        {L"[IFVALUE]mood,a,b,c[]", L"b,c"},
        {L"[IFVALUE]year[]", L""},
    };
    ExpectRows(rows);
}

TEST(EvaluateNaming, Compilations) {
    constexpr NamingRow rows[] = {
        {L"1", L"yes"}, {L"true", L"yes"}, {L"00", L"yes"},   {L" no", L"yes"}, {L"[", L"yes"},
        {L"", L"no"},   {L"No", L"no"},    {L"FALSE", L"no"}, {L"0", L"no"},
    };
    for (const NamingRow& row : rows)
        EXPECT_EQ(WithTag(L"Compilation", row.naming, L"[IFCOMP]yes[][IF!COMP]no[]"), XString(row.expected))
            << row.naming;
}

TEST(EvaluateNaming, Folders) {
    constexpr NamingRow rows[] = {
        {L"[TRIMFIRSTFOLDER]Folder1\\Folder2\\Folder3[]", L"Folder2\\Folder3"},
        {L"[TRIMFIRSTFOLDER]C:\\a\\b[]", L"a\\b"},
        {L"[TRIMFIRSTFOLDER]\\\\server\\a\\b[]", L"a\\b"},
        {L"[TRIMFIRSTFOLDER]\\\\?\\C:\\a\\b[]", L"a\\b"},
        {L"[TRIMFIRSTFOLDER]abc\\\\d\\\\\\e\\[]", L"d\\e"},
        {L"[TRIMFIRSTFOLDER]\\\\x\\\\\\[]", L"x"},
        {L"[TRIMFIRSTFOLDER]\\\\\\\\\\\\[]", L""},
        {L"[TRIMFIRSTFOLDER]song[]", L""},
        {L"[TRIMFIRSTFOLDER]a\\b[]", L""},
        {L"[TRIMFIRSTFOLDER][]", L""},
        {L"[TRIMFIRSTFOLDER][origpath][]", L"Old, new\\CD1"},
        {L"[TRIMLASTFOLDER]C:\\a\\b[]", L"C:\\a\\"},
        {L"[TRIMLASTFOLDER]C:\\a\\b\\\\[]", L"C:\\a\\"},
        {L"[TRIMLASTFOLDER]a\\b[]", L"a\\b"},
        {L"[TRIMLASTFOLDER]C:\\[]", L"C:\\"},
        {L"[FRONTFOLDER]1[]|[FRONTFOLDER]2[]", L"Music|Old, new"},
        {L"[BACKFOLDER]1[]|[BACKFOLDER]3[]", L"CD1|Music"},
        {L"[FRONTFOLDER]0[][BACKFOLDER]0[][FRONTFOLDER]4[][BACKFOLDER]4[][BACKFOLDER]-1[]", L""},
        {L"[FRONTFOLDER][]", L""},
        {L"[IF]a,=,a,[FRONTFOLDER]2[],x[]", L"Old"}, // a folder's comma parts arguments
    };
    ExpectRows(rows);
}

TEST(EvaluateNaming, NestingAndWhatStaysAsWritten) {
    constexpr NamingRow rows[] = {
        {L"[UPPER][LOWER]Ab[]c[]", L"ABC"},
        {L"[LOWER]X[] [UPPER]abc", L"[LOWER]X[] [UPPER]abc"},
        {L"[LOWER]X[] <comma_>[UPPER]abc", L"[LOWER]X[] ,[UPPER]abc"},
        {L"[UPPER]abc [LOWER]X[]", L"[UPPER]abc x"},
        {L"[UPPER]a[]b[]", L"Ab[]"},
        {L"[]", L"[]"},
        {L"[] [UPPER]a[]", L"[] A"},
        {L"[NOSUCH]a[]", L"[NOSUCH]a[]"},
        {L"[UPPER]a[NOSUCH]b[]c[]", L"A[NOSUCH]Bc[]"},
        {L"[UPPER[UPPER]]x[][]", L"X"},
        {L"[LO[UPPER]wer]X[][]", L"x"},
        {L"[LO[TRIM]WER]X[][]", L"x"}, // a result completes what stands left of it
        {L"[IF]a,=,b,x[UPPER],y[],z[]", L"Y,z"},
        {L"[IFVALUE]mood,[IFVALUE]year,a,b[],[IFVALUE]year,c,d[][]", L"c"},
        {L"[RIGHT][RIGHT]1,12[],abc[]", L"bc"},
        {L"[artist]\\[IFMULTI]Disc [disc]\\[][track] - [title]", L"Ox,Ew\\Disc 1\\05 - Back [Live]"},
        {L"[UPPER][tag]year", L"[UPPER][tag]year"},
        {L"[UPPER][tag]Custom Key[]", L"[UPPER]own"},
        {L"[[label]", L"[x]"},
    };
    ExpectRows(rows);
}

TEST(EvaluateNaming, ExtrasAreFoundByTheirWholeWord) {
    XTagList tags;
    tags.Add(L"[station]", L"Radio\\One");
    tags.Add(L"[Capital]", L"never");
    tags.Add(L"loop", L"a loop in a loop");
    tags.Add(L"[title]", L"a\\b, [c]");
    tags.Add(L"title", L"own\\title");
    tags.Add(L"[pa[rt]", L"!");
    XStringArray extras;
    for (const wchar_t* word :
         {L"[station]", L"[Capital]", L"loop", L"", L"[title]", L"[absent]", L"[pa[rt]"})
        extras.AddString(word);
    constexpr NamingRow rows[] = {
        {L"[Station]", L"Radio\\One"},  {L"[Capital][capital]", L"[Capital][capital]"},
        {L"Loop", L"a loop in a loop"}, {L"[title]", L"own-title"},
        {L"[tag][title][]", L""},       {L"-[absent]-[pa[RT]", L"--!"},
        {L"[tags][station],x[]", L""},
    };
    for (const NamingRow& row : rows)
        EXPECT_EQ(EvaluateNaming(row.naming, tags, &extras), XString(row.expected)) << row.naming;
}

TEST(EvaluateNaming, LeavesTheTagsAsTheyAre) {
    XTagList tags;
    tags.Add(L"title", L"a,b [c] \\");
    EXPECT_EQ(EvaluateNaming(L"[title]", tags, nullptr), XString(L"a,b [c] -"));
    EXPECT_EQ(tags.Count(), 1);
    EXPECT_EQ(tags[0].value, XString(L"a,b [c] \\"));
}

// Whatever a value holds, the result is that of a harmless word with the value put in its place.
TEST(EvaluateNaming, NoValueIsReadAsLanguage) {
    constexpr const wchar_t* values[] = {
        L"[title]",
        L"[",
        L"[]",
        L"]",
        L",",
        L"a,b,c",
        L"[UPPER]x[]",
        L"[IFVALUE]year,a,b[]",
        L"[tag]year[]",
        L"[tags]year,-[]",
        L"x[] [UPPER]",
        L"\"q\"",
        L"\x01\x02\x1F",
        L"[FRONTFOLDER]1[]",
        L"[artist",
        L"'`%&{}",
    };
    constexpr const wchar_t* templates[] = {
        L"[title]",
        L"<[title]>",
        L"a\\[title] - [title]",
        L"[TRIM]([title])[]",
        L"[tag]title[]",
        L"[tags]title,+[]",
        L"[IFVALUE]title,([title]),none[]",
        L"[IF]a,=,a,[title],[title][]",
        L"[IF!EQUALS]title,zz,[title][]",
        L"[UPPER][year][] [title] [LOWER]A[]",
        L"[GRAB]1,0,[title][]",
        L"[tags]two,[title][]",
        L"[title] [UPPER]open",
        L"[unknown] [title]",
    };
    for (const wchar_t* value : values)
        for (const wchar_t* naming : templates) {
            XTagList tags;
            tags.Add(L"title", value);
            tags.Add(L"two", L"1\r2");
            tags.Add(L"year", L"y");
            XTagList plain;
            plain.Add(L"title", L"\uE000");
            plain.Add(L"two", L"1\r2");
            plain.Add(L"year", L"y");
            XString expected = EvaluateNaming(naming, plain, nullptr);
            expected.Replace(L"\uE000", value);
            EXPECT_EQ(EvaluateNaming(naming, tags, nullptr), expected) << naming << " with " << value;
        }
}

TEST(HasDynamicItem, LooksForElementsOfTagsAlone) {
    for (const wchar_t* naming : {L"[artist]", L"x[ALBUM Artist]", L"[IFCOMP][Year][]", L"[bytes_per_sample]",
                                  L"[k_bitrate]", L"[length]", L"[tag][mood]", L"[id_tag]"})
        EXPECT_TRUE(HasDynamicItem(naming)) << naming;
    for (const wchar_t* naming :
         {L"", L"[tag]genre[]", L"[tags]genre,;[]", L"[origfilename]", L"[encoder]", L"[encoder+]", L"[date]",
          L"[IFCOMP]x[]", L"[IFVALUE]year,a,b[]", L"[unique]", L"[protected]", L"[cddb_id]", L"[artist"})
        EXPECT_FALSE(HasDynamicItem(naming)) << naming;
}

} // namespace
