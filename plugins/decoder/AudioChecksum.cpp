#include "plugins/decoder/AudioChecksum.h"

#include "plugins/common/PcmConvert.h"

#include <algorithm>
#include <cstring>

void AudioChecksum::Expect(const unsigned char* digest, int bits, int channelCount) {
    std::memcpy(expected, digest, sizeof expected);
    isActive =
        std::any_of(expected, expected + sizeof expected, [](unsigned char byte) { return byte != 0; });
    isWrong = false;
    sampleBytes = (bits + 7) / 8;
    channels = channelCount;
    md5 = Md5();
}

void AudioChecksum::Add(const void* samples, std::size_t frames) {
    if (!isActive)
        return;
    const std::size_t count = frames * static_cast<std::size_t>(channels);
    packed.resize(std::max(packed.size(), count * static_cast<std::size_t>(sampleBytes)));
    PackSamples(samples, packed.data(), count, sampleBytes, SampleOrder::little);
    md5.Add(packed.data(), count * static_cast<std::size_t>(sampleBytes));
}

bool AudioChecksum::IsRight() noexcept {
    if (isActive) {
        unsigned char digest[Md5::digestBytes];
        md5.Finish(digest);
        isWrong = std::memcmp(digest, expected, sizeof digest) != 0;
        isActive = false;
    }
    return !isWrong;
}
