// The encoder library "WavPack": integers and floats bit by bit, with the MD5 of the audio.
#include "foundation/XTagList.h"
#include "plugins/common/Checksums.h"
#include "plugins/common/EncoderExports.h"
#include "plugins/common/OutputFile.h"
#include "plugins/common/PcmConvert.h"
#include "plugins/encoder/ApeTags.h"
#include "plugins/encoder/WavPackCheck.h"
#include "plugins/encoder/WavPackOptions.h"
#include "plugins/encoder/WavPackPanel.h"

#include <wavpack/wavpack.h>

#include <memory>

namespace {

constexpr int mostChannels = WAVPACK_MAX_CLI_CHANS; // tools take no more
constexpr int bitsForLossy = 16;                    // more would only store noise
constexpr int floatExponent = 127;                  // full scale at 1.0

struct CloseWriter {
    void operator()(WavpackContext* context) const noexcept { WavpackCloseFile(context); }
};

struct Layout {
    bool isFloat;
    int bits, bytes; // of a sample; the bits stand at the top of the bytes
};

Layout LayoutFor(const PcmFormat& source) noexcept {
    if (source.isLossy)
        return {false, bitsForLossy, bitsForLossy / 8};
    return {source.isFloat, source.bits, (source.bits + 7) / 8};
}

class clWavPackEncoder : public EncoderBase {
public:
    static constexpr const wchar_t* extension = L".wv";
    static bool Check(const wchar_t* text, XString& error) {
        Settings settings;
        return settings.Parse(text, WavPackOption::all, error);
    }
    static std::uint64_t EstimateBytes(const PcmFormat& source, std::uint64_t lengthMs, const wchar_t*) {
        // Music comes to about three fifths of its PCM size.
        const double seconds = static_cast<double>(lengthMs) / 1000;
        return static_cast<std::uint64_t>(seconds * source.frequency * source.channels *
                                          LayoutFor(source).bytes * 0.6);
    }
    bool Begin(const EncoderBeginBlock& block);
    bool Encode(const void* samples, std::uint32_t frames);
    bool End(bool completed);

    WavPackPanel panel;

private:
    bool Configure(const Settings& settings);
    bool WriteTags();
    bool MendLength();
    bool EncoderFailed();
    static int OnBlock(void* self, void* data, std::int32_t count);

    OutputFile file;
    XString path;
    DepthChanger depth;
    Layout layout{};
    bool verifies = false;
    std::uint64_t announced = 0, frames = 0;
    Md5 md5;
    std::vector<ApeItem> tags;
    std::vector<unsigned char> firstBlock; // holds the length, which may come out otherwise
    std::vector<std::int32_t> aligned;
    std::vector<unsigned char> packed;
    std::unique_ptr<WavpackContext, CloseWriter> encoder;
};

int clWavPackEncoder::OnBlock(void* self, void* data, std::int32_t count) {
    clWavPackEncoder& encoder = *static_cast<clWavPackEncoder*>(self);
    const unsigned char* bytes = static_cast<const unsigned char*>(data);
    if (encoder.firstBlock.empty())
        encoder.firstBlock.assign(bytes, bytes + count);
    return encoder.file.Write(bytes, static_cast<std::uint64_t>(count));
}

bool clWavPackEncoder::EncoderFailed() {
    if (file.HasFailed())
        return Fail(file.Error());
    XString reason;
    reason.Assign(WavpackGetErrorMessage(encoder.get()));
    return Fail(L"WavPack can't encode this: " + reason);
}

bool clWavPackEncoder::Configure(const Settings& settings) {
    static constexpr int modeFlags[] = {CONFIG_FAST_FLAG, 0, CONFIG_HIGH_FLAG,
                                        CONFIG_HIGH_FLAG | CONFIG_VERY_HIGH_FLAG};
    WavpackConfig config{};
    config.bits_per_sample = layout.bits;
    config.bytes_per_sample = layout.bytes;
    config.float_norm_exp = layout.isFloat ? floatExponent : 0;
    config.num_channels = format.channels;
    config.channel_mask = static_cast<std::int32_t>(format.channelMask ? format.channelMask
                                                                       : UsualChannelMask(format.channels));
    config.sample_rate = static_cast<std::int32_t>(format.frequency);
    config.flags = CONFIG_MD5_CHECKSUM;
    const XString mode = settings.Word(L"mode", WavPackOption::modeWords[WavPackOption::usualMode]);
    for (int i = 0; i <= WavPackOption::veryHigh; ++i)
        if (mode.EqualsNoCase(WavPackOption::modeWords[i]))
            config.flags |= modeFlags[i];
    config.xmode = static_cast<int>(settings.Number(L"extra", 0));
    if (config.xmode > 0)
        config.flags |= CONFIG_EXTRA_MODE;
    announced = format.frameCount;
    const std::int64_t total = announced > 0 ? static_cast<std::int64_t>(announced) : -1;
    return (WavpackSetConfiguration64(encoder.get(), &config, total, nullptr) &&
            WavpackPackInit(encoder.get())) ||
           EncoderFailed();
}

bool clWavPackEncoder::Begin(const EncoderBeginBlock& block) {
    encoder.reset();
    Settings settings;
    if (!settings.Parse(block.settings, WavPackOption::all, lastError))
        return false;
    if (format.channels > mostChannels)
        return Fail(L"WavPack holds up to 256 channels, and the source has " + DecimalText(format.channels));
    layout = LayoutFor(format);
    depth.Open(format.isFloat, format.bits, layout.bits);
    verifies = settings.Flag(L"verify");
    path = block.outputPath;
    frames = 0;
    md5 = Md5();
    firstBlock.clear();
    XTagList list;
    if (block.tagData)
        list.Deserialize(block.tagData, block.tagDataSize);
    LeftOutTags leftOut;
    tags = ReadApeTags(list, leftOut);
    WritesFormat(format.channels, format.frequency, layout.bits, layout.isFloat);
    WritesTags(L"WavPack", list, leftOut);
    if (!file.Create(block.outputPath))
        return Fail(file.Error());
    encoder.reset(WavpackOpenFileOutput(OnBlock, this, nullptr));
    return encoder ? Configure(settings) : Fail(L"Out of memory");
}

bool clWavPackEncoder::Encode(const void* samples, std::uint32_t count) {
    if (!encoder)
        return Fail(L"WavPack was not started");
    const std::size_t values = std::size_t(count) * static_cast<std::size_t>(format.channels);
    const std::size_t bytes = values * static_cast<std::size_t>(layout.bytes);
    const std::int32_t* from = layout.isFloat || !format.isFloat ? static_cast<const std::int32_t*>(samples)
                                                                 : depth.Convert(samples, values);
    // The library may change what it gets, and wants depths such as 12 bit at the top of their bytes.
    aligned.resize(std::max(aligned.size(), values));
    const int shift = layout.bytes * 8 - layout.bits;
    for (std::size_t i = 0; i < values; ++i)
        aligned[i] = static_cast<std::int32_t>(static_cast<std::uint32_t>(from[i]) << shift);
    packed.resize(std::max(packed.size(), bytes));
    PackSamples(aligned.data(), packed.data(), values, layout.bytes, SampleOrder::wave);
    md5.Add(packed.data(), bytes);
    frames += count;
    return WavpackPackSamples(encoder.get(), aligned.data(), count) || EncoderFailed();
}

bool clWavPackEncoder::WriteTags() {
    for (const ApeItem& item : tags) {
        const auto append = item.isBinary ? WavpackAppendBinaryTagItem : WavpackAppendTagItem;
        if (!append(encoder.get(), item.name.c_str(), item.value.data(), static_cast<int>(item.value.size())))
            return EncoderFailed();
    }
    return tags.empty() || WavpackWriteTag(encoder.get()) || EncoderFailed();
}

bool clWavPackEncoder::MendLength() {
    if (frames == announced || firstBlock.empty())
        return true;
    WavpackUpdateNumSamples(encoder.get(), firstBlock.data());
    return (file.Seek(0) && file.Write(firstBlock.data(), firstBlock.size())) || Fail(file.Error());
}

bool clWavPackEncoder::End(bool completed) {
    if (!completed) {
        file.Abandon();
        encoder.reset();
        return true;
    }
    if (!encoder)
        return Fail(L"WavPack was not started");
    if (frames == 0) // no reader takes such a file
        return Fail(L"WavPack can't hold a source without a single sample");
    unsigned char digest[Md5::digestBytes];
    md5.Finish(digest);
    const bool written = WavpackFlushSamples(encoder.get()) && WavpackStoreMD5Sum(encoder.get(), digest) &&
                         WavpackFlushSamples(encoder.get());
    if (!written)
        return EncoderFailed();
    if (!WriteTags() || !MendLength())
        return false;
    encoder.reset();
    if (!file.Close())
        return Fail(file.Error());
    return !verifies || CheckWavPackFile(path, frames, digest, lastError);
}

} // namespace

ZT_ENCODER_EXPORTS(clWavPackEncoder)
