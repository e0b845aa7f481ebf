#include "plugins/dsp/GainMeasure.h"

#include <cmath>
#include <cstring>

namespace {

constexpr char mark[] = "TMGM";
constexpr std::uint32_t version = 1;
constexpr std::size_t mostUnits = 1 << 16;                   // of a text
constexpr double mostPeak = 1e9;                             // float audio has no limit of its own
constexpr std::uint64_t mostBlocks = std::uint64_t(1) << 40; // thousands of years

void PutText(ByteWriter& out, const XString& text) {
    out.Little(static_cast<std::uint64_t>(text.Count()), 4);
    for (int i = 0; i < text.Count(); ++i)
        out.Little(text.Text()[i], 2);
}

class ImageReader {
public:
    ImageReader(const unsigned char* bytes, std::size_t size) : at(bytes), left(size) {}

    // 0 and `isGood` false for good once the image is too short.
    std::uint64_t Little(std::size_t count) {
        std::uint64_t value = 0;
        isGood = isGood && count <= left;
        if (!isGood)
            return 0;
        for (std::size_t i = 0; i < count; ++i)
            value |= std::uint64_t{at[i]} << (8 * i);
        at += count;
        left -= count;
        return value;
    }
    XString Text() {
        const std::uint64_t units = Little(4);
        isGood = isGood && units <= mostUnits && units * 2 <= left;
        XString text;
        if (isGood)
            text.SetLength(static_cast<int>(units));
        for (int i = 0; i < text.Count(); ++i)
            text.Buffer()[i] = static_cast<wchar_t>(Little(2));
        text.FitLength();
        return text;
    }
    [[nodiscard]] bool IsAtEnd() const { return isGood && left == 0; }

    bool isGood = true;

private:
    const unsigned char* at;
    std::size_t left;
};

} // namespace

ByteVector WriteGainMeasure(const GainMeasure& measure) {
    std::uint64_t peakBits = 0;
    static_assert(sizeof peakBits == sizeof measure.peak);
    std::memcpy(&peakBits, &measure.peak, sizeof peakBits);
    ByteWriter bins, image;
    for (int bin = 0; bin < LoudnessHistogram::binCount; ++bin)
        if (const std::uint64_t blocks = measure.histogram.Blocks(bin)) {
            bins.Little(static_cast<std::uint64_t>(bin), 4);
            bins.Little(blocks, 8);
        }
    image.Id(mark);
    image.Little(version, 4);
    PutText(image, measure.output);
    PutText(image, measure.album);
    image.Little(peakBits, 8);
    image.Little(bins.out.size() / 12, 4);
    image.Raw(bins.out);
    return image.out;
}

bool ReadGainMeasure(const unsigned char* bytes, std::size_t size, GainMeasure& measure) {
    measure = GainMeasure();
    if (size < 4 || std::memcmp(bytes, mark, 4) != 0)
        return false;
    ImageReader image(bytes + 4, size - 4);
    if (image.Little(4) != version)
        return false;
    measure.output = image.Text();
    measure.album = image.Text();
    const std::uint64_t peakBits = image.Little(8);
    std::memcpy(&measure.peak, &peakBits, sizeof peakBits);
    if (!(measure.peak >= 0 && measure.peak <= mostPeak)) // not a number, too
        return false;
    for (std::uint64_t bins = image.Little(4); image.isGood && bins > 0; --bins) {
        const std::uint64_t bin = image.Little(4), blocks = image.Little(8);
        if (bin >= LoudnessHistogram::binCount || blocks > mostBlocks)
            return false;
        measure.histogram.AddBlocks(static_cast<int>(bin), blocks);
    }
    return image.IsAtEnd();
}

XString GainMeasureName(const XString& output) {
    std::uint64_t hash = 0xcbf29ce484222325; // FNV-1a
    for (int i = 0; i < output.Count(); ++i)
        for (const int shift : {0, 8}) {
            hash ^= static_cast<std::uint64_t>(output.Text()[i]) >> shift & 0xFF;
            hash *= 0x100000001b3;
        }
    XString name;
    name.ToHex(hash);
    return name + L".gain";
}
