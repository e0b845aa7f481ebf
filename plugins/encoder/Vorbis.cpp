// The encoder library "Ogg Vorbis", through libvorbis; the last page tells the exact length.
#include "foundation/XTagList.h"
#include "plugins/common/EncoderExports.h"
#include "plugins/common/OutputFile.h"
#include "plugins/common/Resampler.h"
#include "plugins/encoder/VorbisChannels.h"
#include "plugins/encoder/VorbisComments.h"
#include "plugins/encoder/VorbisPanel.h"
#include "plugins/encoder/VorbisStream.h"

#include <algorithm>

namespace {

// libvorbis has no settings beyond them.
constexpr std::uint32_t lowestFrequency = 8000, highestFrequency = 192000, highestForAbr = 48000;
constexpr std::uint32_t runFrames = 8192; // frames per call of the library
constexpr std::size_t commentRoom = std::size_t(120) << 20;

std::uint32_t FrequencyFor(std::uint32_t frequency, const VorbisChoice& choice) noexcept {
    while (frequency > (choice.abr ? highestForAbr : highestFrequency))
        frequency = (frequency + 1) / 2;
    return std::max(frequency, lowestFrequency);
}

class clVorbisEncoder : public EncoderBase {
public:
    static constexpr const wchar_t* extension = L".ogg";
    static bool Check(const wchar_t* text, XString& error) {
        VorbisChoice choice;
        return ReadVorbisChoice(text, choice, error);
    }
    static std::uint64_t EstimateBytes(const PcmFormat& source, std::uint64_t lengthMs, const wchar_t* text) {
        VorbisChoice choice;
        XString error;
        (void)ReadVorbisChoice(text, choice, error);
        // kbit/s times ms are bits
        return lengthMs * static_cast<std::uint64_t>(UsualBitRate(choice, source.channels)) / 8;
    }
    bool Begin(const EncoderBeginBlock& block);
    bool Encode(const void* samples, std::uint32_t frames);
    bool End(bool completed);

    VorbisPanel panel;

private:
    bool Choose(const wchar_t* settings);
    bool EncodeAll(const void* samples, std::uint32_t frames, const PcmFormat& kind);
    bool WriteRun(const float* samples, int frames);

    OutputFile file;
    Resampler resampler;
    VorbisChannels channels;
    std::unique_ptr<VorbisStream> stream;
    PcmFormat resampled;
    bool resamples = false;
    std::vector<float> floats;
};

bool clVorbisEncoder::WriteRun(const float* samples, int frames) {
    return stream->Write(file, samples, frames) ||
           Fail(file.HasFailed() ? file.Error() : XString(L"Out of memory"));
}

bool clVorbisEncoder::Choose(const wchar_t* settings) {
    VorbisChoice choice;
    if (!ReadVorbisChoice(settings, choice, lastError))
        return false;
    if (format.channels > VorbisChannels::most)
        return Fail(L"Ogg Vorbis has places for up to 8 channels, and the source has " +
                    DecimalText(format.channels));
    channels.Choose(format);
    Inform(channels.Information(L"Ogg Vorbis", format));
    const std::uint32_t frequency = FrequencyFor(format.frequency, choice);
    resamples = frequency != format.frequency;
    resampled = format;
    resampled.isFloat = true;
    resampled.frequency = frequency;
    if (resamples)
        Inform(RateText(choice.abr ? L"Ogg Vorbis with an average bit rate" : L"Ogg Vorbis", format.frequency,
                        frequency));
    if (resamples && !resampler.Open(format, format.channels, frequency, lastError))
        return false;
    const int wanted = UsualBitRate(choice, channels.count);
    int abr = 0;
    if (!stream->Choose(choice, channels.count, frequency, abr))
        return Fail(L"Vorbis refuses these settings for this source");
    if (choice.abr && abr != wanted)
        Inform(L"Ogg Vorbis can't hold this audio at " + DecimalText(wanted) +
               L" kbit/s: it was written at " + DecimalText(abr) + L" kbit/s");
    return true;
}

bool clVorbisEncoder::Begin(const EncoderBeginBlock& block) {
    stream = std::make_unique<VorbisStream>();
    if (!Choose(block.settings))
        return false;
    XTagList tags;
    if (block.tagData)
        tags.Deserialize(block.tagData, block.tagDataSize);
    LeftOutTags leftOut;
    VorbisComments comments(commentRoom);
    comments.AddTags(tags, leftOut);
    comments.AddPictures(tags, leftOut);
    WritesFormat(channels.count, resampled.frequency);
    WritesTags(L"Ogg Vorbis", tags, leftOut);
    return (file.Create(block.outputPath) && stream->Start(file, comments.fields, comments.SerialNumber())) ||
           Fail(file.HasFailed() ? file.Error() : XString(L"Out of memory"));
}

bool clVorbisEncoder::EncodeAll(const void* samples, std::uint32_t frames, const PcmFormat& kind) {
    const unsigned char* at = static_cast<const unsigned char*>(samples);
    floats.resize(std::size_t(runFrames) * static_cast<std::size_t>(channels.count));
    while (frames > 0) {
        const std::uint32_t run = std::min(frames, runFrames);
        channels.Convert(kind, at, floats.data(), run);
        if (!WriteRun(floats.data(), static_cast<int>(run)))
            return false;
        at += std::size_t(run) * static_cast<std::size_t>(kind.channels) * 4;
        frames -= run;
    }
    return true;
}

bool clVorbisEncoder::Encode(const void* samples, std::uint32_t frames) {
    if (!stream)
        return Fail(L"Ogg Vorbis was not started");
    if (!resamples)
        return EncodeAll(samples, frames, format);
    return resampler.Convert(samples, frames, lastError) &&
           EncodeAll(resampler.Output(), resampler.OutputFrames(), resampled);
}

bool clVorbisEncoder::End(bool completed) {
    if (!completed) {
        file.Abandon();
        stream.reset();
        return true;
    }
    if (!stream)
        return Fail(L"Ogg Vorbis was not started");
    if (resamples && !(resampler.Convert(nullptr, 0, lastError) &&
                       EncodeAll(resampler.Output(), resampler.OutputFrames(), resampled)))
        return false;
    if (!WriteRun(nullptr, 0))
        return false;
    stream.reset();
    return file.Close() || Fail(file.Error());
}

} // namespace

ZT_ENCODER_EXPORTS(clVorbisEncoder)
