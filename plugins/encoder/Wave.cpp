// The encoder library "Wave": integer and float PCM, as the source has it unless the settings say else;
// 16 bits for sources that were coded with loss, as users know them.
#include "foundation/XTagList.h"
#include "plugins/common/EncoderExports.h"
#include "plugins/common/Id3Tag.h"
#include "plugins/common/OutputFile.h"
#include "plugins/common/PcmConvert.h"
#include "plugins/common/Resampler.h"
#include "plugins/encoder/WaveHeader.h"
#include "plugins/encoder/WaveOptions.h"
#include "plugins/encoder/WavePanel.h"

namespace {

// What comes out for such a source; the settings have been checked.
WaveLayout LayoutOf(const PcmFormat& source, const wchar_t* text) {
    Settings settings;
    XString error;
    (void)settings.Parse(text, WaveOption::all, error);
    WaveLayout layout;
    const XString kind = settings.Word(L"format", L"source");
    layout.isFloat =
        kind.EqualsNoCase(L"float") || (kind.EqualsNoCase(L"source") && source.isFloat && !source.isLossy);
    // Odd depths move up to whole bytes: few readers accept padded samples.
    const std::int64_t bits =
        layout.isFloat ? 32 : settings.Number(L"format", source.isLossy ? 16 : source.bits);
    layout.sampleBytes = static_cast<int>((bits + 7) / 8);
    layout.channels = static_cast<int>(settings.Number(L"channels", source.channels));
    layout.frequency = static_cast<std::uint32_t>(settings.Number(L"rate", source.frequency));
    if (layout.channels == source.channels)
        layout.channelMask = source.channelMask;
    if (layout.channelMask == 0)
        layout.channelMask = UsualChannelMask(layout.channels);
    return layout;
}

class clWaveEncoder : public EncoderBase {
public:
    static constexpr const wchar_t* extension = L".wav";
    static bool Check(const wchar_t* text, XString& error) {
        Settings settings;
        return settings.Parse(text, WaveOption::all, error);
    }
    static std::uint64_t EstimateBytes(const PcmFormat& source, std::uint64_t lengthMs, const wchar_t* text) {
        const WaveLayout layout = LayoutOf(source, text);
        const std::uint64_t frames =
            lengthMs / 1000 * layout.frequency + lengthMs % 1000 * layout.frequency / 1000;
        const std::uint64_t data = frames * layout.FrameBytes();
        return BuildWaveHeader(layout, 0, 8).size() + data + data % 2;
    }
    bool Begin(const EncoderBeginBlock& block);
    bool Encode(const void* samples, std::uint32_t frames);
    bool End(bool completed);

    WavePanel panel;

private:
    bool WriteSamples(const void* samples, std::uint32_t frames);
    bool FinishFile();
    bool FileFailed() { return Fail(file.Error()); }

    WaveLayout layout;
    OutputFile file;
    Resampler resampler;
    DepthChanger depth;
    bool resamples = false;
    bool widens = false; // integers are to become float
    std::uint64_t dataBytes = 0;
    std::size_t headerBytes = 0;
    XTagList tags;
    ByteVector packed;
    std::vector<float> floats;
};

bool clWaveEncoder::Begin(const EncoderBeginBlock& block) {
    layout = LayoutOf(format, block.settings);
    resamples = layout.channels != format.channels || layout.frequency != format.frequency;
    if (layout.FrameBytes() > 0xFFFF)
        return Fail(L"A wave file can't hold " + DecimalText(layout.channels) + L" channels of this depth");
    if (resamples && !resampler.Open(format, layout.channels, layout.frequency, lastError))
        return false;
    const bool floatsCome = resamples || format.isFloat;
    widens = layout.isFloat && !floatsCome;
    depth.Open(floatsCome, format.bits, layout.sampleBytes * 8);
    dataBytes = 0;
    tags.Clear();
    if (block.tagData)
        tags.Deserialize(block.tagData, block.tagDataSize);
    const ByteVector header = BuildWaveHeader(layout, 0, 8);
    headerBytes = header.size();
    return (file.Create(block.outputPath) && file.Write(header.data(), headerBytes)) || FileFailed();
}

bool clWaveEncoder::WriteSamples(const void* samples, std::uint32_t frames) {
    const std::size_t count = std::size_t(frames) * static_cast<std::size_t>(layout.channels);
    const std::uint64_t bytes = std::uint64_t(frames) * layout.FrameBytes();
    dataBytes += bytes;
    if (widens) {
        floats.resize(std::max(floats.size(), count));
        IntToFloat(static_cast<const std::int32_t*>(samples), floats.data(), count, format.bits);
        samples = floats.data();
    }
    if (layout.isFloat)
        return file.Write(samples, bytes) || FileFailed();
    const std::int32_t* values = depth.Convert(samples, count);
    packed.resize(std::max<std::size_t>(packed.size(), static_cast<std::size_t>(bytes)));
    PackSamples(values, packed.data(), count, layout.sampleBytes);
    return file.Write(packed.data(), bytes) || FileFailed();
}

bool clWaveEncoder::Encode(const void* samples, std::uint32_t frames) {
    if (!resamples)
        return WriteSamples(samples, frames);
    return resampler.Convert(samples, frames, lastError) &&
           WriteSamples(resampler.Output(), resampler.OutputFrames());
}

bool clWaveEncoder::FinishFile() {
    const ByteVector info = BuildInfoChunk(tags);
    const ByteVector id3 = BuildChunk("id3 ", BuildId3Tag(tags, 0));
    if (!file.WriteZeros(dataBytes % 2) || !file.Write(info.data(), info.size()) ||
        !file.Write(id3.data(), id3.size()))
        return false;
    const ByteVector header = BuildWaveHeader(layout, dataBytes, file.Position());
    return file.Seek(0) && file.Write(header.data(), header.size()) && file.Close();
}

bool clWaveEncoder::End(bool completed) {
    if (!completed) {
        file.Abandon();
        return true;
    }
    if (resamples && !(resampler.Convert(nullptr, 0, lastError) &&
                       WriteSamples(resampler.Output(), resampler.OutputFrames())))
        return false;
    return FinishFile() || FileFailed();
}

} // namespace

ZT_ENCODER_EXPORTS(clWaveEncoder)
