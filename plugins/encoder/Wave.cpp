// The encoder library "Wave": integer and float PCM, as the source has it unless the settings say else;
// 16 bits for sources that were coded with loss, as users know them.
#include "plugins/common/Id3Tag.h"
#include "plugins/encoder/PcmFile.h"
#include "plugins/encoder/WaveHeader.h"

namespace {

ByteVector WaveTail(const XTagList& tags, LeftOutTags& leftOut) {
    ByteWriter tail;
    tail.Raw(BuildInfoChunk(tags));
    tail.Raw(BuildChunk("id3 ", BuildId3Tag(tags, 0, leftOut)));
    return std::move(tail.out);
}

constexpr PcmContainer wave{L"A wave file", SampleOrder::wave, 2, ~std::uint64_t(0), BuildWaveHeader,
                            WaveTail,       TagValues::id3};

class clWaveEncoder : public PcmFileEncoder {
public:
    clWaveEncoder() noexcept : PcmFileEncoder(wave) {}
    static constexpr const wchar_t* extension = L".wav";
    static std::uint64_t EstimateBytes(const PcmFormat& source, std::uint64_t lengthMs, const wchar_t* text) {
        return Estimate(wave, source, lengthMs, text);
    }
};

} // namespace

ZT_ENCODER_EXPORTS(clWaveEncoder)
