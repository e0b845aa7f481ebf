// An encoder of .pcmz files, which PcmzDecoder.cpp reads: "pcmz", an AudioFormatRecord and the samples as
// they come. A template: copy it, and write a format that the world knows.
// It stands alone: Plugin.h is all that it includes of Tonemill.
#include "contract/Plugin.h"

#include <cstdio>
#include <cwchar>

#define EXPORT extern "C" __declspec(dllexport)

struct Encoder { // one instance writes one file at a time
    FILE* file = nullptr;
    AudioFormatRecord format{};
    const wchar_t* error = L"";
};

static bool Write(Encoder& self, const void* bytes, std::size_t count) {
    const bool isGood = self.file && std::fwrite(bytes, 1, count, self.file) == count;
    self.error = isGood ? L"" : L"The output can't be written";
    return isGood;
}

static bool WriteHead(Encoder& self) {
    return Write(self, "pcmz", 4) && Write(self, &self.format, sizeof(self.format));
}

static bool Close(Encoder& self) {
    const bool isGood = !self.file || std::fclose(self.file) == 0; // which writes what is left
    self.file = nullptr;
    return isGood;
}

EXPORT ZtInstance ENC_Create(PluginCreateBlock*) { return new Encoder; }
EXPORT void ENC_Destroy(ZtInstance instance) {
    Close(*static_cast<Encoder*>(instance));
    delete static_cast<Encoder*>(instance);
}

EXPORT std::int32_t ENC_Get(ZtInstance instance, const wchar_t* key, PluginParams* params) {
    if (std::wcscmp(key, L"Extension") == 0)
        params->text1 = L".pcmz";
    else if (std::wcscmp(key, L"Last Error") == 0)
        params->text1 = static_cast<Encoder*>(instance)->error;
    else
        return 0; // a key that this encoder does not know, or has nothing to say to
    return 1;
}
EXPORT std::int32_t ENC_Set(ZtInstance, const wchar_t*, PluginParams*) { return 0; }

// It has no settings, so there is no panel.
EXPORT void ENC_ShowConfigBit(ZtInstance, void*, std::int32_t, std::int32_t, const wchar_t*) {}
EXPORT const wchar_t* ENC_RemoveConfigBit(ZtInstance, void*) { return L""; }

EXPORT std::int32_t ENC_BeginConversion(ZtInstance instance, const EncoderBeginBlock* block) {
    Encoder& self = *static_cast<Encoder*>(instance);
    Close(self);
    self.format = *block->format;
    self.format.frameCount = 0; // counted as they come
    self.file = _wfopen(block->outputPath, L"wb");
    return WriteHead(self);
}

EXPORT std::int32_t ENC_EncodeBlock(ZtInstance instance, const void* samples, std::uint32_t frames) {
    Encoder& self = *static_cast<Encoder*>(instance);
    self.format.frameCount += frames;
    return Write(self, samples, std::size_t{frames} * self.format.channels * 4);
}

EXPORT std::int32_t ENC_EndConversion(ZtInstance instance, std::int32_t completed) {
    Encoder& self = *static_cast<Encoder*>(instance);
    const bool isWhole =
        !completed || (self.file && std::fseek(self.file, 0, SEEK_SET) == 0 && WriteHead(self));
    return Close(self) && isWhole; // closed in any case: the worker deletes what is not complete
}
