// What the libraries that write PCM share: settings, resampling, depths, and a file of header, samples
// and tail. Windows only.
#pragma once

#include "plugins/common/ByteWriter.h"
#include "plugins/common/EncoderExports.h"
#include "plugins/common/Information.h"
#include "plugins/common/OutputFile.h"
#include "plugins/common/PcmConvert.h"
#include "plugins/common/Resampler.h"
#include "plugins/encoder/PcmLayout.h"
#include "plugins/encoder/PcmPanel.h"

// One kind of file.
struct PcmContainer {
    const wchar_t* name; // for messages
    SampleOrder order;
    std::uint64_t dataMultiple; // the samples are padded with zeros to a multiple of so many bytes
    std::uint64_t mostBytes;    // of a file
    // Everything before the first sample, of a size that depends on the layout alone.
    ByteVector (*header)(const PcmLayout& layout, std::uint64_t dataBytes, std::uint64_t fileBytes);
    // Tags and what else is no audio: behind the padding, or see below.
    ByteVector (*tail)(const XTagList& tags, LeftOutTags& leftOut);
    TagValues values; // as the tail keeps several of one key
    // If not 0, the tail stands before the last so many bytes of the header instead.
    std::size_t tailBefore = 0;
};

class PcmFileEncoder : public EncoderBase {
public:
    explicit PcmFileEncoder(const PcmContainer& container) noexcept : container(container) {}
    static bool Check(const wchar_t* settings, XString& error);
    bool Begin(const EncoderBeginBlock& block);
    bool Encode(const void* samples, std::uint32_t frames);
    bool End(bool completed);

    PcmPanel panel;

protected:
    static std::uint64_t Estimate(const PcmContainer& container, const PcmFormat& source,
                                  std::uint64_t lengthMs, const wchar_t* settings);

private:
    bool FitsTheFormat(std::uint64_t bytesOfSamples);
    bool WriteSamples(const void* samples, std::uint32_t frames);
    [[nodiscard]] ByteVector Header(std::uint64_t fileBytes) const;
    bool FinishFile();
    bool FileFailed() { return Fail(file.Error()); }

    const PcmContainer& container;
    PcmLayout layout;
    OutputFile file;
    Resampler resampler;
    DepthChanger depth;
    bool resamples = false;
    bool widens = false; // integers are to become float
    std::uint64_t dataBytes = 0;
    std::size_t headerBytes = 0;
    ByteVector tail;
    ByteVector packed;
    std::vector<float> floats;
};
