// The worker's side of the encoder contract, reduced to what the tests need.
#include "EncoderDriver.h"

#include "foundation/XFile.h"
#include "foundation/XFileSystem.h"
#include "foundation/XPath.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>

namespace {
constexpr std::size_t blockFrames[] = {1, 4096, 777, 20001, 13};
}

// The tests run from <build>/tests/plugins.
XString TestedProgramFolder() {
    XString folder = StripBackslash(ProgramFolder()), last;
    PopLastFolder(last, folder);
    PopLastFolder(last, folder);
    return AddBackslash(folder) + L"Tonemill\\";
}

AudioFormatRecord FormatOf(int channels, int bits, std::uint32_t frequency) {
    AudioFormatRecord format = PcmRecord(channels, bits, frequency);
    format.flags = bits == 0 ? ztFormatLossless : 0u;
    return format;
}

std::vector<std::int32_t> TestSignal(const AudioFormatRecord& format, std::size_t frames) {
    std::vector<std::int32_t> samples(frames * format.channels);
    std::uint32_t random = 12345;
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const double frame = static_cast<double>(i / format.channels);
        const double pitch = 200.0 * static_cast<double>(i % format.channels + 1);
        random = random * 1664525 + 1013904223;
        const double noise = static_cast<double>(random >> 8) / 16777216.0 - 0.5;
        const double value = 0.7 * std::sin(6.283185307 * pitch * frame / format.frequency) + 0.2 * noise;
        if (format.sampleKind == ztSampleFloat) {
            const float narrow = static_cast<float>(value);
            std::memcpy(&samples[i], &narrow, sizeof narrow);
        } else {
            samples[i] =
                static_cast<std::int32_t>(value * static_cast<double>(1u << (format.bitsPerSample - 1)));
        }
    }
    return samples;
}

EncoderDriver::EncoderDriver(const wchar_t* name) {
    const XString folder = TestedProgramFolder();
    SetDllDirectoryW(folder); // where the libraries stand that plug-ins import
    PluginCreateBlock block{};
    EXPECT_TRUE(library.Load(folder + L"encoder\\" + name + L".dll") && library.Recreate(&block));
    EXPECT_TRUE(output.MakeNew(L"enc"));
    outputPath = output;
}

bool EncoderDriver::Convert(const AudioFormatRecord& format, const std::vector<std::int32_t>& samples,
                            const wchar_t* settings, const XTagList* tags) {
    XBuffer image;
    EncoderBeginBlock block{};
    block.size = sizeof block;
    block.outputPath = outputPath;
    block.settings = settings;
    block.format = &format;
    if (tags && tags->Serialize(image)) {
        block.tagData = image.data;
        block.tagDataSize = static_cast<std::uint32_t>(image.size);
    }
    if (!library.instance || !library.ENC_BeginConversion(library.instance, &block))
        return false;
    const std::size_t frames = samples.size() / format.channels;
    std::size_t done = 0;
    for (std::size_t i = 0; done < frames; ++i) {
        const std::size_t run = std::min(frames - done, blockFrames[i % std::size(blockFrames)]);
        if (!library.ENC_EncodeBlock(library.instance, samples.data() + done * format.channels,
                                     static_cast<std::uint32_t>(run)))
            return false;
        done += run;
    }
    if (!library.ENC_EndConversion(library.instance, 1))
        return false;
    XBuffer file;
    if (!ReadWholeFile(outputPath, file))
        return false;
    bytes.assign(file.Bytes(), file.Bytes() + file.size);
    return true;
}

XString EncoderDriver::Text(const wchar_t* key) const {
    PluginParams params{};
    return library.AskGet(key, params) ? XString(params.text1) : XString();
}

XString EncoderDriver::SettingsFault(const wchar_t* settings) const {
    PluginParams params{};
    params.text1 = settings;
    return library.AskGet(L"Check Settings", params) ? XString() : XString(params.text2);
}
