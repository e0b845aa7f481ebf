// The encoder library "AIFF": big-endian PCM, and AIFF-C where the samples are float.
#include "plugins/common/Id3Tag.h"
#include "plugins/encoder/AiffHeader.h"
#include "plugins/encoder/PcmFile.h"

namespace {

ByteVector AiffTail(const XTagList& tags, LeftOutTags& leftOut) {
    return BuildAiffChunk("ID3 ", BuildId3Tag(tags, 0, leftOut));
}

constexpr PcmContainer aiff{L"AIFF",  SampleOrder::big, 2, mostAiffBytes, BuildAiffHeader,
                            AiffTail, TagValues::id3};

class clAiffEncoder : public PcmFileEncoder {
public:
    clAiffEncoder() noexcept : PcmFileEncoder(aiff) {}
    static constexpr const wchar_t* extension = L".aiff";
    static std::uint64_t EstimateBytes(const PcmFormat& source, std::uint64_t lengthMs, const wchar_t* text) {
        return Estimate(aiff, source, lengthMs, text);
    }
};

} // namespace

ZT_ENCODER_EXPORTS(clAiffEncoder)
