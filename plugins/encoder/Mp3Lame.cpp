// The encoder library "mp3 (Lame)": MPEG layer III through LAME, with the exact length in its header
// frame and an ID3 tag in front.
#include "foundation/XTagList.h"
#include "plugins/common/EncoderExports.h"
#include "plugins/common/Id3Tag.h"
#include "plugins/common/OutputFile.h"
#include "plugins/common/PcmConvert.h"
#include "plugins/common/Resampler.h"
#include "plugins/encoder/Mp3Options.h"
#include "plugins/encoder/Mp3Panel.h"
#include "plugins/encoder/MpegRates.h"

#include <lame/lame.h>

#include <memory>

namespace {

constexpr int mostChannels = 2;
constexpr std::size_t tagPadding = 1024;   // tag editors then need not rewrite the file
constexpr std::uint32_t runFrames = 16384; // frames per call of LAME
// LAME's own bound for one call, and for the flush.
constexpr std::size_t mp3Room = runFrames * 5 / 4 + 7200;

constexpr int headerBytes = 36 + 156; // LAME's, with the frame's own data before it at its largest

struct DeleteLame {
    void operator()(lame_global_flags* lame) const noexcept { lame_close(lame); }
};
using LamePointer = std::unique_ptr<lame_global_flags, DeleteLame>;

int FrameBytes(const lame_global_flags* lame) noexcept {
    return lame_get_framesize(lame) / 8 * lame_get_brate(lame) * 1000 / lame_get_out_samplerate(lame);
}

class clLameEncoder : public EncoderBase {
public:
    static constexpr const wchar_t* extension = L".mp3";
    static bool Check(const wchar_t* text, XString& error) {
        Mp3Choice choice;
        return ReadMp3Choice(text, choice, error);
    }
    static std::uint64_t EstimateBytes(const PcmFormat& source, std::uint64_t lengthMs, const wchar_t* text) {
        Mp3Choice choice;
        XString error;
        (void)ReadMp3Choice(text, choice, error);
        const int rate = UsualBitRate(choice, source.channels == 1);
        return lengthMs * static_cast<std::uint64_t>(rate) / 8; // kbit/s times ms are bits
    }
    bool Begin(const EncoderBeginBlock& block);
    bool Encode(const void* samples, std::uint32_t frames);
    bool End(bool completed);

    Mp3Panel panel;

private:
    bool StartLame(const Mp3Choice& choice);
    LamePointer NewLame(const Mp3Choice& choice, std::uint32_t rate, bool isSmall = false);
    bool EncodeRun(const void* samples, std::uint32_t frames, bool isFloat);
    bool EncodeAll(const void* samples, std::uint32_t frames, bool isFloat);
    bool Put(int bytes);
    bool FinishFile();
    bool FileFailed() { return Fail(file.Error()); }

    LamePointer lame;
    OutputFile file;
    Resampler resampler;
    int channels = 2;
    std::uint32_t frequency = 44100;
    bool resamples = false;
    bool hasFrames = false;
    std::uint64_t firstFrameAt = 0; // behind the ID3 tag
    std::vector<std::int32_t> aligned;
    std::vector<unsigned char> mp3;
};

LamePointer clLameEncoder::NewLame(const Mp3Choice& choice, std::uint32_t rate, bool isSmall) {
    LamePointer made(lame_init());
    if (!made)
        return made;
    lame_set_num_channels(made.get(), channels);
    lame_set_in_samplerate(made.get(), static_cast<int>(rate));
    if (channels == 1)
        lame_set_mode(made.get(), MONO);
    else if (choice.mode == Mp3Mode::stereo)
        lame_set_mode(made.get(), STEREO); // joint stereo is LAME's own choice
    lame_set_write_id3tag_automatic(made.get(), 0);
    lame_set_bWriteVbrTag(made.get(), 1);
    if (choice.vbr >= 0) {
        lame_set_VBR(made.get(), vbr_default);
        lame_set_VBR_q(made.get(), choice.vbr);
    } else if (choice.abr) {
        lame_set_VBR(made.get(), vbr_abr);
        lame_set_VBR_mean_bitrate_kbps(made.get(), choice.abr);
    } else if (isSmall) {
        lame_set_VBR(made.get(), vbr_abr);
        lame_set_VBR_mean_bitrate_kbps(made.get(), choice.cbr);
        lame_set_VBR_min_bitrate_kbps(made.get(), choice.cbr);
        lame_set_VBR_max_bitrate_kbps(made.get(), choice.cbr);
    } else {
        lame_set_VBR(made.get(), vbr_off);
        lame_set_brate(made.get(), choice.cbr);
    }
    if (lame_init_params(made.get()) < 0)
        made.reset();
    return made;
}

// At low bit rates LAME wants a lower sample rate. It then gets its input at that rate, since
// libswresample makes it cleaner than LAME would.
bool clLameEncoder::StartLame(const Mp3Choice& choice) {
    channels = choice.mode == Mp3Mode::mono || format.channels == 1 ? 1 : 2;
    frequency = MpegRateFor(format.frequency);
    lame = NewLame(choice, frequency);
    if (lame && static_cast<std::uint32_t>(lame_get_out_samplerate(lame.get())) != frequency) {
        frequency = static_cast<std::uint32_t>(lame_get_out_samplerate(lame.get()));
        lame = NewLame(choice, frequency);
    }
    // Without the header nobody could cut off delay and padding. A variable rate that may not vary
    // has the same frames, and a larger one for the header.
    if (lame && choice.cbr && FrameBytes(lame.get()) < headerBytes)
        lame = NewLame(choice, frequency, true);
    resamples = channels != format.channels || frequency != format.frequency;
    if (format.channels > mostChannels)
        Inform(L"mp3 can't hold " + DecimalText(format.channels) + L" channels: they were mixed down to " +
               DecimalText(channels));
    if (MpegRateFor(format.frequency) != format.frequency)
        Inform(RateText(L"mp3", format.frequency, frequency));
    return lame || Fail(L"LAME refuses these settings for this source");
}

bool clLameEncoder::Begin(const EncoderBeginBlock& block) {
    Mp3Choice choice;
    if (!ReadMp3Choice(block.settings, choice, lastError) || !StartLame(choice))
        return false;
    if (resamples && !resampler.Open(format, channels, frequency, lastError))
        return false;
    XTagList tags;
    if (block.tagData)
        tags.Deserialize(block.tagData, block.tagDataSize);
    LeftOutTags leftOut;
    const ByteVector tag = BuildId3Tag(tags, tagPadding, leftOut);
    WritesFormat(channels, frequency);
    WritesTags(L"mp3", tags, leftOut, TagValues::id3);
    mp3.resize(mp3Room);
    hasFrames = false;
    if (!file.Create(block.outputPath) || !file.Write(tag.data(), tag.size()))
        return FileFailed();
    firstFrameAt = file.Position();
    return true;
}

bool clLameEncoder::Put(int bytes) {
    if (bytes < 0)
        return Fail(L"LAME failed with code " + DecimalText(bytes));
    return file.Write(mp3.data(), static_cast<std::uint64_t>(bytes)) || FileFailed();
}

bool clLameEncoder::EncodeRun(const void* samples, std::uint32_t frames, bool isFloat) {
    const int count = static_cast<int>(frames);
    const int room = static_cast<int>(mp3.size());
    lame_global_flags* l = lame.get();
    if (isFloat) {
        const float* in = static_cast<const float*>(samples);
        return Put(channels == 1 ? lame_encode_buffer_ieee_float(l, in, in, count, mp3.data(), room)
                                 : lame_encode_buffer_interleaved_ieee_float(l, in, count, mp3.data(), room));
    }
    // LAME takes integers at the top of 32 bits and makes its own floats of them, without loss.
    const std::size_t values = std::size_t(frames) * static_cast<std::size_t>(channels);
    aligned.resize(std::max(aligned.size(), values));
    AlignLeft(static_cast<const std::int32_t*>(samples), aligned.data(), values, format.bits);
    const int* in = aligned.data();
    return Put(channels == 1 ? lame_encode_buffer_int(l, in, in, count, mp3.data(), room)
                             : lame_encode_buffer_interleaved_int(l, in, count, mp3.data(), room));
}

bool clLameEncoder::EncodeAll(const void* samples, std::uint32_t frames, bool isFloat) {
    const unsigned char* at = static_cast<const unsigned char*>(samples);
    hasFrames = hasFrames || frames > 0;
    while (frames > 0) {
        const std::uint32_t run = std::min(frames, runFrames);
        if (!EncodeRun(at, run, isFloat))
            return false;
        at += std::size_t(run) * static_cast<std::size_t>(channels) * 4;
        frames -= run;
    }
    return true;
}

bool clLameEncoder::Encode(const void* samples, std::uint32_t frames) {
    if (!lame)
        return Fail(L"LAME was not started");
    if (!resamples)
        return EncodeAll(samples, frames, format.isFloat);
    return resampler.Convert(samples, frames, lastError) &&
           EncodeAll(resampler.Output(), resampler.OutputFrames(), true);
}

// The first frame was a place holder: now the length, delay and padding that it tells are known.
bool clLameEncoder::FinishFile() {
    const std::size_t size = lame_get_lametag_frame(lame.get(), mp3.data(), mp3.size());
    if (size > 0 && size <= mp3.size() && (!file.Seek(firstFrameAt) || !file.Write(mp3.data(), size)))
        return false;
    return file.Close();
}

bool clLameEncoder::End(bool completed) {
    if (!completed) {
        file.Abandon();
        lame.reset();
        return true;
    }
    if (!lame)
        return Fail(L"LAME was not started");
    if (resamples && !(resampler.Convert(nullptr, 0, lastError) &&
                       EncodeAll(resampler.Output(), resampler.OutputFrames(), true)))
        return false;
    // Players refuse a file without audio: a source without frames becomes one of silence.
    static constexpr float silence[2] = {};
    if (!hasFrames && !EncodeAll(silence, 1, true))
        return false;
    if (!Put(lame_encode_flush(lame.get(), mp3.data(), static_cast<int>(mp3.size()))))
        return false;
    const bool finished = FinishFile() || FileFailed();
    lame.reset();
    return finished;
}

} // namespace

ZT_ENCODER_EXPORTS(clLameEncoder)
