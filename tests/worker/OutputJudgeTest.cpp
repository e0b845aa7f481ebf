#include "worker/OutputJudge.h"

#include <gtest/gtest.h>

namespace {

AudioFormatRecord Format(std::uint16_t channels, std::uint32_t frequency, std::uint16_t bits,
                         bool isFloat = false) {
    AudioFormatRecord format{};
    format.sampleKind = isFloat ? ztSampleFloat : ztSampleInteger;
    format.channels = channels;
    format.frequency = frequency;
    format.bitsPerSample = bits;
    return format;
}

struct FormatRow {
    AudioFormatRecord written, found;
    bool isLossless;
    const wchar_t* fault; // part of it; empty: none
};

TEST(OutputJudge, Formats) {
    const FormatRow rows[] = {
        {Format(2, 44100, 16), Format(2, 44100, 16), true, L""},
        {Format(2, 44100, 24), Format(2, 44100, 16), true, L"16 bit instead of 24 bit"},
        {Format(2, 44100, 32, true), Format(2, 44100, 32), true, L"32 bit instead of 32 bit float"},
        {Format(2, 44100, 16), Format(2, 44100, 32, true), false, L""}, // lossy: of no depth
        {Format(2, 44100, 0), Format(2, 44100, 24), true, L""},
        {Format(2, 44100, 0), Format(1, 44100, 24), false, L"44.1 kHz mono instead of 44.1 kHz stereo"},
        {Format(2, 44100, 0), Format(2, 22050, 24), false, L"22.05 kHz stereo instead"},
        {Format(0, 0, 0), Format(2, 22050, 24), true, L""},
    };
    for (const FormatRow& row : rows) {
        AudioFormatRecord found = row.found;
        found.flags = row.isLossless ? ztFormatLossless : 0u;
        const XString fault = FormatFault(row.written, found);
        EXPECT_EQ(fault.IsEmpty(), row.fault[0] == 0) << fault.Text();
        EXPECT_TRUE(row.fault[0] == 0 || fault.Find(row.fault)) << fault.Text();
    }
}

struct TagRow {
    const wchar_t* key;
    const wchar_t* value;
    const wchar_t* fault;
};

TEST(OutputJudge, Tags) {
    XTagList found;
    found.Add(L"Artist", L"a\rb");
    found.Add(L"title", L"t");
    found.Add(L"picture", L"3;image/png;");
    const TagRow rows[] = {
        {L"artist", L"x\ry", L""},
        {L"artist", L"x", L"2 instead of 1 values of the tag 'artist'"},
        {L"album", L"x", L"0 instead of 1 values of the tag 'album'"},
        {L"picture", L"", L""},
    };
    for (const TagRow& row : rows) {
        XTagList written;
        written.Add(row.key, row.value);
        const XString fault = TagFault(written, found);
        EXPECT_EQ(fault.IsEmpty(), row.fault[0] == 0) << fault.Text();
        EXPECT_TRUE(row.fault[0] == 0 || fault.Find(row.fault)) << fault.Text();
    }
    XTagList two;
    two.Add(L"picture", L"");
    two.Add(L"picture", L"");
    EXPECT_NE(TagFault(two, found).Find(L"1 instead of 2 pictures"), 0);
}

} // namespace
