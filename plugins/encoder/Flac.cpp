// The encoder library "FLAC": integers bit by bit, float rounded to 24 bits, through libFLAC.
#include "plugins/common/EncoderExports.h"
#include "plugins/common/OutputFile.h"
#include "plugins/common/PcmConvert.h"
#include "plugins/encoder/FlacMetadata.h"
#include "plugins/encoder/FlacOptions.h"
#include "plugins/encoder/FlacPanel.h"

#include <FLAC/stream_encoder.h>

#include <memory>

namespace {

constexpr int fewestBits = 4; // below this the format has no depth: samples move up to 8 bits
constexpr int bitsForFloat = 24;
constexpr int bitsForLossy = 16; // more would only store noise
constexpr int mostChannels = 8;
constexpr std::uint32_t mostFrequency = FLAC__MAX_SAMPLE_RATE;

struct DeleteEncoder {
    void operator()(FLAC__StreamEncoder* encoder) const noexcept { FLAC__stream_encoder_delete(encoder); }
};

int BitsFor(const PcmFormat& source) noexcept {
    if (source.isLossy)
        return bitsForLossy;
    return source.isFloat ? bitsForFloat : source.bits < fewestBits ? 8 : source.bits;
}

class clFlacEncoder : public EncoderBase {
public:
    static constexpr const wchar_t* extension = L".flac";
    static bool Check(const wchar_t* text, XString& error) {
        Settings settings;
        return settings.Parse(text, FlacOption::all, error);
    }
    static std::uint64_t EstimateBytes(const PcmFormat& source, std::uint64_t lengthMs, const wchar_t*) {
        // Music comes to about three fifths of its PCM size.
        const double seconds = static_cast<double>(lengthMs) / 1000;
        return static_cast<std::uint64_t>(seconds * source.frequency * source.channels * BitsFor(source) / 8 *
                                          0.6);
    }
    bool Begin(const EncoderBeginBlock& block);
    bool Encode(const void* samples, std::uint32_t frames);
    bool End(bool completed);

    FlacPanel panel;

private:
    bool CheckFormat();
    bool Configure(const wchar_t* text);
    bool Start();
    bool EncoderFailed(const wchar_t* doing);
    static FLAC__StreamEncoderWriteStatus OnWrite(const FLAC__StreamEncoder*, const FLAC__byte bytes[],
                                                  size_t count, uint32_t, uint32_t, void* self);
    static FLAC__StreamEncoderSeekStatus OnSeek(const FLAC__StreamEncoder*, FLAC__uint64 offset, void* self);
    static FLAC__StreamEncoderTellStatus OnTell(const FLAC__StreamEncoder*, FLAC__uint64* offset, void* self);

    OutputFile file;
    DepthChanger depth;
    FlacMetadata metadata;
    std::unique_ptr<FLAC__StreamEncoder, DeleteEncoder> encoder; // last: its end may still call back
};

FLAC__StreamEncoderWriteStatus clFlacEncoder::OnWrite(const FLAC__StreamEncoder*, const FLAC__byte bytes[],
                                                      size_t count, uint32_t, uint32_t, void* self) {
    return static_cast<clFlacEncoder*>(self)->file.Write(bytes, count)
               ? FLAC__STREAM_ENCODER_WRITE_STATUS_OK
               : FLAC__STREAM_ENCODER_WRITE_STATUS_FATAL_ERROR;
}

FLAC__StreamEncoderSeekStatus clFlacEncoder::OnSeek(const FLAC__StreamEncoder*, FLAC__uint64 offset,
                                                    void* self) {
    return static_cast<clFlacEncoder*>(self)->file.Seek(offset) ? FLAC__STREAM_ENCODER_SEEK_STATUS_OK
                                                                : FLAC__STREAM_ENCODER_SEEK_STATUS_ERROR;
}

FLAC__StreamEncoderTellStatus clFlacEncoder::OnTell(const FLAC__StreamEncoder*, FLAC__uint64* offset,
                                                    void* self) {
    *offset = static_cast<clFlacEncoder*>(self)->file.Position();
    return FLAC__STREAM_ENCODER_TELL_STATUS_OK;
}

bool clFlacEncoder::EncoderFailed(const wchar_t* doing) {
    if (file.HasFailed())
        return Fail(file.Error());
    XString state;
    state.Assign(FLAC__stream_encoder_get_resolved_state_string(encoder.get()));
    return Fail(XString(L"FLAC failed at ") + doing + L": " + state);
}

bool clFlacEncoder::CheckFormat() {
    if (format.channels > mostChannels)
        return Fail(L"FLAC holds up to 8 channels, and the source has " + DecimalText(format.channels));
    if (format.frequency > mostFrequency)
        return Fail(L"FLAC holds up to " + DecimalText(mostFrequency) + L" Hz, and the source has " +
                    DecimalText(format.frequency));
    return true;
}

bool clFlacEncoder::Configure(const wchar_t* text) {
    Settings settings;
    if (!settings.Parse(text, FlacOption::all, lastError))
        return false;
    FLAC__StreamEncoder* e = encoder.get();
    const std::uint32_t level = static_cast<std::uint32_t>(settings.Number(L"level", FlacOption::usualLevel));
    const bool set =
        FLAC__stream_encoder_set_channels(e, static_cast<std::uint32_t>(format.channels)) &&
        FLAC__stream_encoder_set_bits_per_sample(e, static_cast<std::uint32_t>(BitsFor(format))) &&
        FLAC__stream_encoder_set_sample_rate(e, format.frequency) &&
        FLAC__stream_encoder_set_compression_level(e, level) &&
        FLAC__stream_encoder_set_verify(e, settings.Flag(L"verify")) &&
        FLAC__stream_encoder_set_total_samples_estimate(e, format.ExpectedFrames()) &&
        FLAC__stream_encoder_set_metadata(e, metadata.Blocks(), metadata.Count());
    return set || EncoderFailed(L"its settings");
}

// Depths and rates that a stream can't announce in each frame need the header, as files have it.
bool clFlacEncoder::Start() {
    FLAC__StreamEncoder* e = encoder.get();
    FLAC__StreamEncoderInitStatus status =
        FLAC__stream_encoder_init_stream(e, OnWrite, OnSeek, OnTell, nullptr, this);
    if (status == FLAC__STREAM_ENCODER_INIT_STATUS_NOT_STREAMABLE) {
        FLAC__stream_encoder_set_streamable_subset(e, false);
        status = FLAC__stream_encoder_init_stream(e, OnWrite, OnSeek, OnTell, nullptr, this);
    }
    if (status == FLAC__STREAM_ENCODER_INIT_STATUS_OK)
        return true;
    if (status == FLAC__STREAM_ENCODER_INIT_STATUS_ENCODER_ERROR || file.HasFailed())
        return EncoderFailed(L"the start");
    XString reason;
    reason.Assign(FLAC__StreamEncoderInitStatusString[status]);
    return Fail(L"FLAC can't encode this: " + reason);
}

bool clFlacEncoder::Begin(const EncoderBeginBlock& block) {
    encoder.reset();
    if (!CheckFormat())
        return false;
    depth.Open(format.isFloat, format.bits, BitsFor(format));
    XTagList tags;
    if (block.tagData)
        tags.Deserialize(block.tagData, block.tagDataSize);
    encoder.reset(FLAC__stream_encoder_new());
    LeftOutTags leftOut;
    if (!encoder || !metadata.Build(tags, format, leftOut))
        return Fail(L"Out of memory");
    WritesFormat(format.channels, format.frequency, BitsFor(format));
    WritesTags(L"FLAC", tags, leftOut);
    if (format.isFloat && !format.isLossy)
        Inform(L"FLAC can't hold floating point samples: they were rounded to 24 bit");
    if (!file.Create(block.outputPath))
        return Fail(file.Error());
    return Configure(block.settings) && Start();
}

bool clFlacEncoder::Encode(const void* samples, std::uint32_t frames) {
    if (!encoder)
        return Fail(L"FLAC was not started");
    const std::int32_t* values =
        depth.Convert(samples, std::size_t(frames) * static_cast<std::size_t>(format.channels));
    if (!FLAC__stream_encoder_process_interleaved(encoder.get(), values, frames))
        return EncoderFailed(L"encoding");
    return true;
}

bool clFlacEncoder::End(bool completed) {
    if (!completed) {
        file.Abandon(); // before the encoder, which would still write what it holds
        encoder.reset();
        return true;
    }
    if (!encoder)
        return Fail(L"FLAC was not started");
    if (!FLAC__stream_encoder_finish(encoder.get()))
        return EncoderFailed(L"the end");
    if (!format.isLossy)
        Inform(ClippedText(depth.Clipped()));
    encoder.reset();
    return (metadata.MendSeekTable(file) && file.Close()) || Fail(file.Error());
}

} // namespace

ZT_ENCODER_EXPORTS(clFlacEncoder)
