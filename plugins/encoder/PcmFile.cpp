#include "plugins/encoder/PcmFile.h"

#include "foundation/XTagList.h"
#include "plugins/encoder/PcmOptions.h"

namespace {

std::uint64_t PaddingOf(const PcmContainer& container, std::uint64_t dataBytes) noexcept {
    const std::uint64_t over = dataBytes % container.dataMultiple;
    return over == 0 ? 0 : container.dataMultiple - over;
}

} // namespace

bool PcmFileEncoder::Check(const wchar_t* text, XString& error) {
    Settings settings;
    return settings.Parse(text, PcmOption::all, error);
}

std::uint64_t PcmFileEncoder::Estimate(const PcmContainer& container, const PcmFormat& source,
                                       std::uint64_t lengthMs, const wchar_t* text) {
    const PcmLayout layout = PcmLayoutOf(source, text);
    const std::uint64_t frames =
        lengthMs / 1000 * layout.frequency + lengthMs % 1000 * layout.frequency / 1000;
    const std::uint64_t data = frames * layout.FrameBytes();
    return container.header(layout, 0, 0).size() + data + PaddingOf(container, data);
}

ByteVector PcmFileEncoder::Header(std::uint64_t fileBytes) const {
    ByteVector header = container.header(layout, dataBytes, fileBytes);
    if (container.tailBefore != 0)
        header.insert(header.end() - static_cast<std::ptrdiff_t>(container.tailBefore), tail.begin(),
                      tail.end());
    return header;
}

bool PcmFileEncoder::FitsTheFormat(std::uint64_t bytesOfSamples) {
    const std::uint64_t whole = headerBytes + bytesOfSamples + PaddingOf(container, bytesOfSamples) +
                                (container.tailBefore == 0 ? tail.size() : 0);
    return whole <= container.mostBytes ||
           Fail(XString(container.name) + L" holds up to 4 GB, and this audio takes more");
}

bool PcmFileEncoder::Begin(const EncoderBeginBlock& block) {
    layout = PcmLayoutOf(format, block.settings);
    resamples = layout.channels != format.channels || layout.frequency != format.frequency;
    if (resamples && !resampler.Open(format, layout.channels, layout.frequency, lastError))
        return false;
    const bool floatsCome = resamples || format.isFloat;
    widens = layout.isFloat && !floatsCome;
    depth.Open(floatsCome, format.bits, layout.sampleBytes * 8);
    dataBytes = 0;
    XTagList tags;
    if (block.tagData)
        tags.Deserialize(block.tagData, block.tagDataSize);
    LeftOutTags leftOut;
    tail = container.tail(tags, leftOut);
    WritesFormat(layout.channels, layout.frequency, layout.sampleBytes * 8, layout.isFloat);
    WritesTags(container.name, tags, leftOut, container.values);
    const ByteVector header = Header(0);
    headerBytes = header.size();
    // What is too large for certain is refused before it fills the disk.
    const bool isExact = (block.format->flags & ztFormatExactLength) != 0;
    const std::uint64_t frames = format.frameCount / format.frequency * layout.frequency +
                                 format.frameCount % format.frequency * layout.frequency / format.frequency;
    if (isExact && !FitsTheFormat(frames * layout.FrameBytes()))
        return false;
    return (file.Create(block.outputPath) && file.Write(header.data(), headerBytes)) || FileFailed();
}

bool PcmFileEncoder::WriteSamples(const void* samples, std::uint32_t frames) {
    const std::size_t count = std::size_t(frames) * static_cast<std::size_t>(layout.channels);
    const std::size_t bytes = std::size_t(frames) * layout.FrameBytes();
    if (!FitsTheFormat(dataBytes + bytes))
        return false;
    dataBytes += bytes;
    if (widens) {
        floats.resize(std::max(floats.size(), count));
        IntToFloat(static_cast<const std::int32_t*>(samples), floats.data(), count, format.bits);
        samples = floats.data();
    }
    if (!layout.isFloat)
        samples = depth.Convert(samples, count);
    packed.resize(std::max(packed.size(), bytes));
    PackSamples(samples, packed.data(), count, layout.sampleBytes, container.order);
    return file.Write(packed.data(), bytes) || FileFailed();
}

bool PcmFileEncoder::Encode(const void* samples, std::uint32_t frames) {
    if (!resamples)
        return WriteSamples(samples, frames);
    return resampler.Convert(samples, frames, lastError) &&
           WriteSamples(resampler.Output(), resampler.OutputFrames());
}

bool PcmFileEncoder::FinishFile() {
    const std::size_t behind = container.tailBefore == 0 ? tail.size() : 0;
    if (!file.WriteZeros(PaddingOf(container, dataBytes)) || !file.Write(tail.data(), behind))
        return false;
    const ByteVector header = Header(file.Position());
    return file.Seek(0) && file.Write(header.data(), header.size()) && file.Close();
}

bool PcmFileEncoder::End(bool completed) {
    if (!completed) {
        file.Abandon();
        return true;
    }
    if (resamples && !(resampler.Convert(nullptr, 0, lastError) &&
                       WriteSamples(resampler.Output(), resampler.OutputFrames())))
        return false;
    if (!format.isLossy) // what was coded with loss overshoots a little as a rule
        Inform(ClippedText(depth.Clipped()));
    return FinishFile() || FileFailed();
}
