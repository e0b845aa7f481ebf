// Reading of format records, which come from another plug-in and are not believed unseen.
#include "plugins/common/PcmFormat.h"

#include <bit>

namespace {
constexpr int mostChannels = 1024;
// Speaker bits of KSAUDIO_SPEAKER_*: mono, stereo, 3.0, quad, 5.0, 5.1, 6.1, 7.1.
constexpr std::uint32_t usualMasks[] = {0, 0x4, 0x3, 0x7, 0x33, 0x37, 0x3F, 0x70F, 0x63F};
} // namespace

std::uint64_t PcmFormat::ExpectedFrames() const noexcept {
    if (frameCount > 0)
        return frameCount;
    return lengthMs / 1000 * frequency + lengthMs % 1000 * frequency / 1000;
}

bool ReadFormat(const AudioFormatRecord* record, PcmFormat& format, XString& error) {
    if (!record || record->channels == 0 || record->channels > mostChannels || record->frequency == 0 ||
        (record->sampleKind != ztSampleInteger && record->sampleKind != ztSampleFloat) ||
        (record->sampleKind == ztSampleInteger &&
         (record->bitsPerSample < 1 || record->bitsPerSample > 32))) {
        error = L"The source's audio format is not usable";
        return false;
    }
    format.isFloat = record->sampleKind == ztSampleFloat;
    format.bits = format.isFloat ? 32 : record->bitsPerSample;
    format.isLossy = format.isFloat && !(record->flags & ztFormatLossless);
    format.channels = record->channels;
    format.frequency = record->frequency;
    // A mask that does not fit the channels says nothing about their places.
    format.channelMask = std::popcount(record->channelMask) == format.channels ? record->channelMask : 0;
    format.frameCount = record->frameCount;
    format.lengthMs = record->lengthMs;
    return true;
}

std::uint32_t UsualChannelMask(int channels) noexcept {
    return channels >= 1 && channels <= 8 ? usualMasks[channels] : 0;
}
