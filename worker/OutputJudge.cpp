#include "worker/OutputJudge.h"

#include "worker/AudioText.h"

namespace {

constexpr wchar_t pictureKey[] = L"picture";

XString SampleText(const AudioFormatRecord& format) {
    return DecimalText(format.bitsPerSample) + (format.sampleKind == ztSampleFloat ? L" bit float" : L" bit");
}

int CountValues(const XString& value) {
    if (value.IsEmpty())
        return 0;
    int count = 1;
    for (int at = value.FindChar(L'\r'); at > 0; at = value.FindChar(L'\r', at + 1))
        ++count;
    return count;
}

int CountPictures(const XTagList& tags) {
    int count = 0;
    for (std::int64_t i = 0; i < tags.Count(); ++i)
        count += tags[i].key.EqualsNoCase(pictureKey);
    return count;
}

XString Instead(int found, int written, const XString& of) {
    return L"the finished file holds " + DecimalText(found) + L" instead of " + DecimalText(written) + of;
}

} // namespace

XString FormatFault(const AudioFormatRecord& written, const AudioFormatRecord& found) {
    if (written.channels == 0)
        return XString();
    if (written.channels != found.channels || written.frequency != found.frequency)
        return L"the finished file is " + DescribeAudio(found) + L" instead of " + DescribeAudio(written);
    const bool isCompared = written.bitsPerSample != 0 && (found.flags & ztFormatLossless) != 0;
    if (isCompared &&
        (written.bitsPerSample != found.bitsPerSample || written.sampleKind != found.sampleKind))
        return L"the samples of the finished file are " + SampleText(found) + L" instead of " +
               SampleText(written);
    return XString();
}

XString TagFault(const XTagList& written, XTagList& found) {
    const int pictures = CountPictures(written);
    const int foundPictures = CountPictures(found);
    if (pictures != foundPictures && pictures > 0)
        return Instead(foundPictures, pictures, L" pictures");
    for (std::int64_t i = 0; i < written.Count(); ++i) {
        if (written[i].key.EqualsNoCase(pictureKey))
            continue;
        const int values = CountValues(written[i].value);
        const int foundValues = CountValues(found.Get(written[i].key));
        if (values != foundValues)
            return Instead(foundValues, values, L" values of the tag '" + written[i].key + L"'");
    }
    return XString();
}
