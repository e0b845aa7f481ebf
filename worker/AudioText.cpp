#include "worker/AudioText.h"

#include "foundation/XPath.h"

namespace {

constexpr std::uint32_t highestFrequency = 100000000;
constexpr std::uint16_t highestChannels = 1024;

bool IsWithinTolerance(std::uint64_t oneMs, std::uint64_t otherMs) {
    return (oneMs > otherMs ? oneMs - otherMs : otherMs - oneMs) <= lengthToleranceMs;
}

} // namespace

XString DescribeAudio(const AudioFormatRecord& format) {
    XString text;
    text.FromReal(format.frequency / 1000.0, 3, false);
    text += L" kHz ";
    if (format.channels == 1)
        text += L"mono";
    else if (format.channels == 2)
        text += L"stereo";
    else
        text += DecimalText(format.channels) + L" channels";
    return text;
}

XString InputText(const XString& path, const AudioFormatRecord& format) {
    const XString kind = ExtensionOf(path).From(2).Upper();
    return XString(L"Input: ") + (kind.IsEmpty() ? kind : kind + L" ") + DescribeAudio(format);
}

XString OutputText(const XString& encoder, const AudioFormatRecord& format) {
    return XString(L"Output: ") + encoder + L" " + DescribeAudio(format);
}

XString PlayTimeText(std::uint64_t milliseconds) {
    XString text;
    text.Format(L"%d:%02d.%03d", static_cast<int>(milliseconds / 60000),
                static_cast<int>(milliseconds / 1000 % 60), static_cast<int>(milliseconds % 1000));
    return text;
}

std::uint64_t FramesToMs(std::uint64_t frames, std::uint32_t frequency) {
    if (frequency == 0)
        return 0;
    return frames / frequency * 1000 + (frames % frequency * 1000 + frequency / 2) / frequency;
}

std::uint64_t AnnouncedFrames(const AudioFormatRecord& format) {
    if (format.frameCount != 0)
        return format.frameCount;
    // A length beyond some thousand years is nonsense and must not overflow.
    const std::uint64_t ms = format.lengthMs < (std::uint64_t{1} << 36) ? format.lengthMs : 0;
    return ms / 1000 * format.frequency + ms % 1000 * format.frequency / 1000;
}

bool IsUsableFormat(const AudioFormatRecord& format) {
    const bool isKindGood =
        format.sampleKind == ztSampleFloat ||
        (format.sampleKind == ztSampleInteger && format.bitsPerSample >= 1 && format.bitsPerSample <= 32);
    return isKindGood && format.sampleBytes == 4 && format.channels >= 1 &&
           format.channels <= highestChannels && format.frequency >= 1 &&
           format.frequency <= highestFrequency;
}

clLengthVerdict JudgeLength(const AudioFormatRecord& output, std::uint64_t framesIn,
                            std::uint32_t frequencyIn) {
    const bool isToTheFrame = (output.flags & ztFormatExactLength) != 0;
    if (isToTheFrame)
        return IsCountedLengthGood(output, output.frameCount, framesIn, frequencyIn) ? lengthGood
                                                                                     : lengthWrong;
    // An announcement that fits the lossy tolerance says enough of a lossy file only.
    const bool isLossless = (output.flags & ztFormatLossless) != 0 && output.frequency == frequencyIn;
    const std::uint64_t announcedMs = FramesToMs(AnnouncedFrames(output), output.frequency);
    if (!isLossless && announcedMs != 0 && IsWithinTolerance(announcedMs, FramesToMs(framesIn, frequencyIn)))
        return lengthGood;
    return lengthUnproven;
}

bool IsCountedLengthGood(const AudioFormatRecord& output, std::uint64_t counted, std::uint64_t framesIn,
                         std::uint32_t frequencyIn) {
    if ((output.flags & ztFormatLossless) != 0 && output.frequency == frequencyIn)
        return counted == framesIn;
    return IsWithinTolerance(FramesToMs(counted, output.frequency), FramesToMs(framesIn, frequencyIn));
}
