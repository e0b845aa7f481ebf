#include "plugins/decoder/Samples.h"

#include <cstring>

extern "C" {
#include <libavutil/frame.h>
#include <libavutil/samplefmt.h>
}

namespace {

// FFmpeg keeps samples of fewer valid bits at the top of their container.
template <class Sample, class Result, class Map>
void Walk(const AVFrame& frame, int offset, int count, Result* out, Map map) noexcept {
    const int channels = frame.ch_layout.nb_channels;
    if (av_sample_fmt_is_planar(static_cast<AVSampleFormat>(frame.format))) {
        for (int channel = 0; channel < channels; ++channel) {
            const auto* from = reinterpret_cast<const Sample*>(frame.extended_data[channel]) + offset;
            Result* to = out + channel;
            for (int i = 0; i < count; ++i, to += channels)
                *to = map(from[i]);
        }
        return;
    }
    const auto* from = reinterpret_cast<const Sample*>(frame.extended_data[0]) +
                       static_cast<std::int64_t>(offset) * channels;
    for (std::int64_t i = 0; i < static_cast<std::int64_t>(count) * channels; ++i)
        out[i] = map(from[i]);
}

int ContainerBits(AVSampleFormat packed) noexcept {
    switch (packed) {
    case AV_SAMPLE_FMT_U8:
        return 8;
    case AV_SAMPLE_FMT_S16:
        return 16;
    default:
        return 32;
    }
}

} // namespace

SampleLayout LayoutOf(int format, int rawBits) noexcept {
    const AVSampleFormat packed = av_get_packed_sample_fmt(static_cast<AVSampleFormat>(format));
    if (packed == AV_SAMPLE_FMT_FLT || packed == AV_SAMPLE_FMT_DBL)
        return {true, 32};
    const int most = ContainerBits(packed);
    return {false, rawBits > 0 && rawBits < most ? rawBits : most};
}

void ConvertSamples(const AVFrame& frame, int offset, int count, const SampleLayout& layout,
                    void* out) noexcept {
    auto* integers = static_cast<std::int32_t*>(out);
    auto* floats = static_cast<float*>(out);
    const int bits = layout.bits;
    switch (av_get_packed_sample_fmt(static_cast<AVSampleFormat>(frame.format))) {
    case AV_SAMPLE_FMT_U8:
        Walk<std::uint8_t>(frame, offset, count, integers, [bits](std::uint8_t s) {
            return (static_cast<std::int32_t>(s) - 128) >> (8 - bits);
        });
        break;
    case AV_SAMPLE_FMT_S16:
        Walk<std::int16_t>(frame, offset, count, integers,
                           [bits](std::int16_t s) { return static_cast<std::int32_t>(s) >> (16 - bits); });
        break;
    case AV_SAMPLE_FMT_S32:
        Walk<std::int32_t>(frame, offset, count, integers,
                           [bits](std::int32_t s) { return s >> (32 - bits); });
        break;
    case AV_SAMPLE_FMT_S64:
        Walk<std::int64_t>(frame, offset, count, integers,
                           [bits](std::int64_t s) { return static_cast<std::int32_t>(s >> (64 - bits)); });
        break;
    case AV_SAMPLE_FMT_FLT:
        Walk<float>(frame, offset, count, floats, [](float s) { return s; });
        break;
    case AV_SAMPLE_FMT_DBL:
        Walk<double>(frame, offset, count, floats, [](double s) { return static_cast<float>(s); });
        break;
    default:
        std::memset(out, 0, static_cast<std::size_t>(count) * frame.ch_layout.nb_channels * 4);
        break;
    }
}
