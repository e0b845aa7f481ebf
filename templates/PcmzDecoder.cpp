// A decoder of the .pcmz files that PcmzEncoder.cpp writes. A template: copy it, and read a format that
// the world knows. It stands alone: Plugin.h is all that it includes of Tonemill.
#include "contract/Plugin.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <cwchar>

#define EXPORT extern "C" __declspec(dllexport)

constexpr std::uint64_t headSize = 4 + sizeof(AudioFormatRecord);

struct Decoder { // one instance reads one file at a time
    FILE* file = nullptr;
    AudioFormatRecord format{};
    std::uint64_t position = 0; // of the next frame
    const wchar_t* error = L"";
};

EXPORT void Close(ZtInstance instance) {
    Decoder& self = *static_cast<Decoder*>(instance);
    if (self.file)
        std::fclose(self.file);
    self = Decoder{};
}

EXPORT ZtInstance Create(PluginCreateBlock*) { return new Decoder; }
EXPORT void Destroy(ZtInstance instance) {
    Close(instance);
    delete static_cast<Decoder*>(instance);
}

EXPORT std::int32_t Get(ZtInstance instance, const wchar_t* key, PluginParams* params) {
    const wchar_t* const name = L"PCMZ template audio";
    if (std::wcscmp(key, L"Decodes") == 0 && params->index == 0) {
        params->text1 = L".pcmz";
        params->text2 = name;
    } else if (std::wcscmp(key, L"Decoder Description") == 0) {
        params->text1 = name;
    } else if (std::wcscmp(key, L"Last Error") == 0) {
        params->text1 = static_cast<Decoder*>(instance)->error;
    } else {
        return 0; // a key that this decoder does not know, or the end of what it decodes
    }
    return 1;
}
EXPORT std::int32_t Set(ZtInstance, const wchar_t*, PluginParams*) { return 0; }

EXPORT std::int32_t Open(ZtInstance instance, DecoderOpenBlock* block) {
    Close(instance);
    Decoder& self = *static_cast<Decoder*>(instance);
    self.file = _wfopen(block->path, L"rb");
    char mark[4] = {};
    const bool isGood = self.file && std::fread(mark, 4, 1, self.file) == 1 &&
                        std::memcmp(mark, "pcmz", 4) == 0 &&
                        std::fread(&self.format, sizeof(self.format), 1, self.file) == 1 &&
                        self.format.frequency != 0 && self.format.channels != 0;
    if (!isGood) {
        const bool isThere = self.file != nullptr;
        Close(instance);
        self.error = isThere ? L"This is no PCMZ file" : L"The file can't be opened";
        return 0;
    }
    self.format.flags = ztFormatLossless | ztFormatExactLength;
    self.format.lengthMs = self.format.frameCount * 1000 / self.format.frequency;
    block->format = self.format;
    return 1;
}

EXPORT std::int32_t DecodeBlock(ZtInstance instance, void* samples, std::uint32_t maxFrames) {
    Decoder& self = *static_cast<Decoder*>(instance);
    if (!self.file)
        return -1;
    const auto wanted = std::min<std::uint64_t>(maxFrames, self.format.frameCount - self.position);
    const std::size_t count = std::fread(samples, std::size_t{4} * self.format.channels, wanted, self.file);
    self.position += count;
    if (count == wanted)
        return static_cast<std::int32_t>(count);
    self.error = L"The file is shorter than it says";
    return -1;
}

EXPORT std::int32_t SetPosition(ZtInstance instance, std::uint64_t frame) {
    Decoder& self = *static_cast<Decoder*>(instance);
    if (!self.file || frame > self.format.frameCount)
        return 0;
    self.position = frame;
    const std::uint64_t at = headSize + frame * 4 * self.format.channels;
    return _fseeki64(self.file, static_cast<std::int64_t>(at), SEEK_SET) == 0;
}

EXPORT std::int32_t DeleteATag(ZtInstance, const wchar_t*) { return 0; } // it delivers none
