#include "host/EffectChain.h"

#include <gtest/gtest.h>

namespace {

// "name|settings" of all entries, each with a ';'.
XString Shown(const XArray<clChainEntry>& chain) {
    XString all;
    for (const clChainEntry& entry : chain)
        all += entry.name + L"|" + entry.settings + L";";
    return all;
}

} // namespace

TEST(EffectChain, ReadsTextByNumber) {
    struct Row {
        const wchar_t* text;
        const wchar_t* entries;
    };
    static constexpr Row rows[] = {
        {L"", L""},
        {L"-dspeffect1=\"Gain=-level 3\"", L"Gain|-level 3;"},
        {L"-dspeffect2=\"B=2\" -dspeffect1=\"A=1\"", L"A|1;B|2;"}, // numbers, not places, give the order
        {L"-dspeffect1=\"A=1\" -dspeffect3=\"C=3\"", L"A|1;"},     // nothing behind a gap
        {L"-dspeffect2=\"B=2\"", L""},                             //
        {L"-DSPEffect1=\"A=1\"", L"A|1;"},                         // option names fold
        {L"-dspeffect1=\"A=\"", L"A|;"},                           // empty settings
        {L"-dspeffect1=\"A=-x=1 -y=2\"", L"A|-x=1 -y=2;"},         // first '=' splits
        {L"-dspeffect1=\"A=say {qt}hi{qt}\"", L"A|say \"hi\";"},   //
        {L"-dspeffect1=\"bare\" -dspeffect2=\"B=2\"", L"B|2;"},    // no '=': passed over
        {L"-dspeffect1=\"=x\" -dspeffect2=\"B=2\"", L"B|2;"},      // no name: passed over
        {L"-dspeffect1=\"A=1\" -dspeffect1=\"Z=9\"", L"A|1;"},     // the first of a number wins
        {L"-dspeffect1=\"A=1", L""},                               // a quote that nothing closes
        {L"no chain at all", L""},
    };
    for (const Row& row : rows) {
        XArray<clChainEntry> chain;
        chain.AddNew()->name = L"old";
        EffectChainFromText(chain, row.text);
        EXPECT_EQ(Shown(chain), XString(row.entries)) << row.text;
    }
}

TEST(EffectChain, WritesWhatItReads) {
    struct Row {
        const wchar_t* settings;
        const wchar_t* text;
        const wchar_t* back; // null: as it was
    };
    static constexpr Row rows[] = {
        {L"", L"-dspeffect1=\"E=\" -dspeffect2=\"E=\"", nullptr},
        {L"-a=\"b c\"", L"-dspeffect1=\"E=-a={qt}b c{qt}\" -dspeffect2=\"E=-a={qt}b c{qt}\"", nullptr},
        {L"\"\"", L"-dspeffect1=\"E={qt}{qt}\" -dspeffect2=\"E={qt}{qt}\"", nullptr},
        // The brace text itself is not protected.
        {L"{qt}", L"-dspeffect1=\"E={qt}\" -dspeffect2=\"E={qt}\"", L"\""},
    };
    for (const Row& row : rows) {
        XArray<clChainEntry> chain;
        for (int i = 0; i < 2; ++i) {
            clChainEntry* entry = chain.AddNew();
            entry->name = L"E";
            entry->settings = row.settings;
        }
        const XString text = EffectChainToText(chain);
        EXPECT_EQ(text, XString(row.text));
        EffectChainFromText(chain, text);
        ASSERT_EQ(chain.Count(), 2);
        EXPECT_EQ(chain[1].settings, XString(row.back ? row.back : row.settings));
    }
    EXPECT_TRUE(EffectChainToText({}).IsEmpty());
}

TEST(EffectChain, RequiredEffectTakesTheFirstFreeNumber) {
    struct Row {
        const wchar_t* chain;
        const wchar_t* result;
    };
    static constexpr Row rows[] = {
        {L"", L"-dspeffect1=\"R=s\""},
        {L"-dspeffect1=\"A=\" -dspeffect2=\"B=\"",
         L"-dspeffect1=\"A=\" -dspeffect2=\"B=\" -dspeffect3=\"R=s\""},
        {L"-dspeffect1=\"A=\" -dspeffect3=\"C=\"",
         L"-dspeffect1=\"A=\" -dspeffect3=\"C=\" -dspeffect2=\"R=s\""},
    };
    for (const Row& row : rows)
        EXPECT_EQ(AppendRequiredEffect(row.chain, L"R=s"), XString(row.result));
}

TEST(EffectChain, FileNameGetsItsExtension) {
    struct Row {
        const wchar_t* chosen;
        const wchar_t* name;
    };
    static constexpr Row rows[] = {
        {L"C:\\a\\chain", L"C:\\a\\chain.dspeffect"},
        {L"C:\\a\\chain.", L"C:\\a\\chain.dspeffect"},
        {L"C:\\a\\chain.x", L"C:\\a\\chain.x"},
        {L"C:\\a.b\\chain", L"C:\\a.b\\chain.dspeffect"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(EffectFileName(row.chosen), XString(row.name));
}
