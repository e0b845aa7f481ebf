// The encoder library "Wave64": PCM without a bound on its size.
#include "plugins/encoder/PcmFile.h"
#include "plugins/encoder/Wave64Header.h"

namespace {

// Tags stand before the samples: readers that take no heed of the padding would not find them behind.
constexpr PcmContainer wave64{L"Wave64",         SampleOrder::wave, 8,
                              ~std::uint64_t(0), BuildWave64Header, BuildWave64Summary,
                              TagValues::joined, wave64ChunkHead};

class clWave64Encoder : public PcmFileEncoder {
public:
    clWave64Encoder() noexcept : PcmFileEncoder(wave64) {}
    static constexpr const wchar_t* extension = L".w64";
    static std::uint64_t EstimateBytes(const PcmFormat& source, std::uint64_t lengthMs, const wchar_t* text) {
        return Estimate(wave64, source, lengthMs, text);
    }
};

} // namespace

ZT_ENCODER_EXPORTS(clWave64Encoder)
