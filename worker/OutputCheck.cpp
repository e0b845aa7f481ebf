#include "worker/OutputCheck.h"

#include "foundation/XBuffer.h"
#include "host/DecoderCatalogue.h"
#include "worker/AudioText.h"
#include "worker/SourceReader.h"

#include <cstring>

namespace {

clStep CountFrames(clZtDecoder& decoder, const AudioFormatRecord& format, Lifeline& lifeline,
                   std::uint64_t& counted) {
    XBuffer frames;
    if (!frames.SetSize(std::uint64_t{blockFrames} * format.channels * format.sampleBytes, false, false))
        return stepFailed;
    for (;;) {
        if (!lifeline.Pulse())
            return stepCancelled;
        const std::int32_t count = decoder.DecodeBlock(decoder.instance, frames.data, blockFrames);
        if (count == 0)
            return stepGood;
        if (count < 0)
            return stepFailed;
        counted += static_cast<std::uint32_t>(count);
    }
}

clStep CheckLength(clZtDecoder& decoder, const AudioFormatRecord& format, std::uint64_t frames,
                   std::uint32_t frequency, Lifeline& lifeline, XString& fault) {
    const clLengthVerdict verdict = JudgeLength(format, frames, frequency);
    if (verdict == lengthGood)
        return stepGood;
    std::uint64_t counted = format.frameCount;
    if (verdict == lengthUnproven) {
        counted = 0;
        const clStep step = CountFrames(decoder, format, lifeline, counted);
        if (step == stepFailed)
            fault = L"the finished file can't be read back to its end";
        if (step != stepGood)
            return step;
        if (IsCountedLengthGood(format, counted, frames, frequency))
            return stepGood;
    }
    fault = XString(L"the finished file is ") + PlayTimeText(FramesToMs(counted, format.frequency)) +
            L" long instead of " + PlayTimeText(FramesToMs(frames, frequency));
    return stepFailed;
}

} // namespace

clStep CheckOutput(const XString& path, const clWritten& written, std::uint64_t frames,
                   std::uint32_t frequency, Lifeline& lifeline, XString& fault) {
    clZtDecoder decoder;
    PluginCreateBlock create{};
    if (!OpenDecoderFor(path, decoder, &create))
        return stepGood;
    DecoderOpenBlock block{};
    block.path = path.Text();
    block.wanted = written.tags.Count() > 0 ? ztOpenAll : ztOpenFormat;
    AudioFormatRecord format{};
    const bool isOpen = decoder.AskOpen(block) != 0;
    std::memcpy(&format, &block.format, sizeof(format));
    if (!isOpen || !IsUsableFormat(format)) {
        fault = L"the finished file can't be read back";
        return stepFailed;
    }
    fault = FormatFault(written.format, format);
    if (fault.IsEmpty() && written.tags.Count() > 0) {
        XTagList tags;
        tags.Deserialize(block.tagData, block.tagDataSize);
        fault = TagFault(written.tags, tags);
    }
    return fault.IsEmpty() ? CheckLength(decoder, format, frames, frequency, lifeline, fault) : stepFailed;
}
