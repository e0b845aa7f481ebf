// The encoder library "Test Conversion": decodes a file to its end, writes nothing, and tells the
// information log how long the audio is and what its checksums are. What is damaged fails while it is
// decoded, as in every conversion.
#include "plugins/common/ByteWriter.h"
#include "plugins/common/Checksums.h"
#include "plugins/common/EncoderExports.h"
#include "plugins/common/PcmConvert.h"
#include "plugins/encoder/TestOptions.h"
#include "plugins/encoder/TestPanel.h"

namespace {

class clTestEncoder : public EncoderBase {
public:
    static constexpr const wchar_t* extension = L".IGNORE";
    static constexpr bool needsNoFolder = true;
    static bool Check(const wchar_t* text, XString& error) {
        Settings settings;
        return settings.Parse(text, TestOption::all, error);
    }
    static std::uint64_t EstimateBytes(const PcmFormat&, std::uint64_t, const wchar_t*) { return 0; }
    bool Begin(const EncoderBeginBlock& block);
    bool Encode(const void* samples, std::uint32_t frames);
    bool End(bool completed);

    TestPanel panel;

private:
    [[nodiscard]] XString Result();

    bool wantsCrc = true, wantsMd5 = true;
    std::uint64_t framesHeard = 0;
    Md5 md5;
    Crc32 crc;
    ByteVector packed;
};

bool clTestEncoder::Begin(const EncoderBeginBlock& block) {
    Settings settings;
    if (!settings.Parse(block.settings, TestOption::all, lastError))
        return false;
    const XString wanted = settings.Word(L"checksum", TestOption::both);
    wantsCrc = wanted.EqualsNoCase(TestOption::both) || wanted.EqualsNoCase(L"crc32");
    wantsMd5 = wanted.EqualsNoCase(TestOption::both) || wanted.EqualsNoCase(L"md5");
    framesHeard = 0;
    md5 = Md5();
    crc = Crc32();
    return true;
}

// The checksums are those of the samples in whole bytes, little-endian and signed: the MD5 is then the
// one that a FLAC file holds of the same audio.
bool clTestEncoder::Encode(const void* samples, std::uint32_t frames) {
    const int bytes = (format.bits + 7) / 8;
    const std::size_t count = std::size_t(frames) * static_cast<std::size_t>(format.channels);
    const std::size_t size = count * static_cast<std::size_t>(bytes);
    packed.resize(std::max(packed.size(), size));
    PackSamples(samples, packed.data(), count, bytes, SampleOrder::little);
    if (wantsCrc)
        crc.Add(packed.data(), size);
    if (wantsMd5)
        md5.Add(packed.data(), size);
    framesHeard += frames;
    return true;
}

XString clTestEncoder::Result() {
    XString seconds;
    seconds.FromReal(static_cast<double>(framesHeard) / format.frequency, 3, true);
    XString text = L"Tested, and found sound: " + UnsignedText(framesHeard) +
                   (framesHeard == 1 ? L" sample (" : L" samples (") + seconds + L" s), " +
                   UnsignedText(format.frequency) + L" Hz, " + DecimalText(format.channels) +
                   (format.channels == 1 ? L" channel, " : L" channels, ") + DecimalText(format.bits) +
                   (format.isFloat ? L" bit floating point" : L" bit");
    if (wantsCrc) {
        ByteWriter value;
        value.Big(crc.Value(), 4);
        text += L", CRC-32 " + HexText(value.out.data(), value.out.size());
    }
    if (wantsMd5) {
        unsigned char digest[Md5::digestBytes];
        md5.Finish(digest);
        text += L", MD5 " + HexText(digest, sizeof digest);
    }
    return text;
}

bool clTestEncoder::End(bool completed) {
    if (completed)
        Inform(Result());
    return true;
}

} // namespace

ZT_ENCODER_EXPORTS(clTestEncoder)
