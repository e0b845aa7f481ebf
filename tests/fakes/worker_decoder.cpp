// A decoder for the worker's tests. A .tone file is a text in 8-bit letters: frames=, exact=, announced=
// (frames), failat=, hangat=, slow= (ms per block). Sample number n of channel 0 is n, of channel 1 -n.
// A .fake file is what the fake encoder writes. All have one tag, of two values.
#include "FakeExport.h"
#include "worker_numbers.h"

#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <cwchar>
#include <vector>

namespace {

struct FakeDecoder {
    FILE* file = nullptr; // stays open, as a real decoder's would
    bool isTone = false;
    AudioFormatRecord format{};
    std::int64_t frames = 0, failAt = -1, hangAt = -1, position = 0;
    DWORD slowMs = 0;
    std::vector<unsigned char> tags;
};

FakeDecoder& Of(ZtInstance instance) {
    return *static_cast<FakeDecoder*>(instance);
}

bool OpenTone(FakeDecoder& self) {
    char text[256] = {};
    const std::size_t length = std::fread(text, 1, sizeof(text) - 1, self.file);
    wchar_t wide[256] = {};
    std::copy_n(text, length, wide);
    self.frames = NumberOf(wide, L"frames", -1);
    self.failAt = NumberOf(wide, L"failat", -1);
    self.hangAt = NumberOf(wide, L"hangat", -1);
    self.slowMs = static_cast<DWORD>(NumberOf(wide, L"slow", 0));
    self.format.channels = 2;
    self.format.frequency = 44100;
    self.format.frameCount = static_cast<std::uint64_t>(NumberOf(wide, L"announced", self.frames));
    self.format.flags = ztFormatLossless | (NumberOf(wide, L"exact", 1) ? ztFormatExactLength : 0u);
    return self.frames >= 0;
}

bool OpenFake(FakeDecoder& self) {
    FakeHead head, wanted;
    if (std::fread(&head, sizeof(head), 1, self.file) != 1 || std::memcmp(head.mark, wanted.mark, 4) != 0)
        return false;
    std::fseek(self.file, 0, SEEK_END);
    self.frames =
        (std::ftell(self.file) - static_cast<long>(sizeof(head))) / static_cast<long>(4 * head.channels);
    std::fseek(self.file, sizeof(head), SEEK_SET);
    self.format.channels = static_cast<std::uint16_t>(head.channels);
    self.format.frequency = head.frequency;
    self.format.frameCount = static_cast<std::uint64_t>(self.frames);
    self.format.flags = ztFormatLossless | ztFormatExactLength;
    return true;
}

} // namespace

FAKE_EXPORT ZtInstance Create(PluginCreateBlock*) {
    return new FakeDecoder;
}

FAKE_EXPORT void Close(ZtInstance instance) {
    if (Of(instance).file)
        std::fclose(Of(instance).file);
    Of(instance) = FakeDecoder{};
}

FAKE_EXPORT void Destroy(ZtInstance instance) {
    Close(instance);
    delete &Of(instance);
}

FAKE_EXPORT std::int32_t Get(ZtInstance, const wchar_t* key, PluginParams* params) {
    if (IsText(key, L"Last Error")) {
        params->text1 = L"the fake\r\ndecoder's own words";
        return 1;
    }
    constexpr const wchar_t* extensions[] = {L".tone", L".fake"};
    if (!IsText(key, L"Decodes") || params->index >= 2)
        return 0;
    params->text1 = extensions[params->index];
    params->text2 = L"Fake";
    return 1;
}

FAKE_EXPORT std::int32_t Set(ZtInstance, const wchar_t*, PluginParams*) {
    return 0;
}

FAKE_EXPORT std::int32_t Open(ZtInstance instance, DecoderOpenBlock* block) {
    Close(instance);
    FakeDecoder& self = Of(instance);
    self.file = _wfopen(block->path, L"rb");
    if (!self.file)
        return 0;
    const std::size_t length = std::wcslen(block->path);
    self.isTone = length > 5 && IsText(block->path + length - 5, L".tone");
    self.format.sampleKind = ztSampleInteger;
    self.format.sampleBytes = 4;
    self.format.bitsPerSample = 24;
    if (!(self.isTone ? OpenTone(self) : OpenFake(self)))
        return 0;
    block->format = self.format;
    if (block->wanted == ztOpenAll) {
        self.tags = OneTag(2);
        block->tagData = self.tags.data();
        block->tagDataSize = static_cast<std::uint32_t>(self.tags.size());
    }
    return 1;
}

FAKE_EXPORT std::int32_t DecodeBlock(ZtInstance instance, void* samples, std::uint32_t maxFrames) {
    FakeDecoder& self = Of(instance);
    const std::int64_t count = std::min<std::int64_t>(maxFrames, self.frames - self.position);
    if (self.failAt >= 0 && self.position + count > self.failAt)
        return -1;
    while (self.hangAt >= 0 && self.position + count > self.hangAt)
        Sleep(1000);
    Sleep(self.slowMs);
    if (!self.isTone)
        return static_cast<std::int32_t>(
            std::fread(samples, 4 * self.format.channels, static_cast<std::size_t>(count), self.file));
    auto* out = static_cast<std::int32_t*>(samples);
    for (std::int64_t i = 0; i < count; ++i, ++self.position) {
        out[2 * i] = static_cast<std::int32_t>(self.position);
        out[2 * i + 1] = static_cast<std::int32_t>(-self.position);
    }
    return static_cast<std::int32_t>(count);
}

FAKE_EXPORT std::int32_t SetPosition(ZtInstance, std::uint64_t) {
    return 0;
}
FAKE_EXPORT std::int32_t DeleteATag(ZtInstance, const wchar_t*) {
    return 0;
}
