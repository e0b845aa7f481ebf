// A decoder of the tests' own. Defines give it its formats and its faults:
//   FAKE_FORMATS       rows {extension, description} of the formats that it claims
//   FAKE_LACKS_EXPORT  DeleteATag is missing
//   FAKE_NO_INSTANCE   Create answers null
//   FAKE_ENDLESS       claims the last format for every index
//   FAKE_ABSURD        Open names images of sizes that can't be
//   FAKE_GATE          Open waits for the event of this name when the source's path holds a '='
#include "contract/Plugin.h"

#ifdef FAKE_GATE
#include <windows.h>
#endif

#define FAKE_EXPORT extern "C" __declspec(dllexport)

namespace {

struct Format {
    const wchar_t* extension;
    const wchar_t* description;
};
constexpr Format formats[] = {FAKE_FORMATS};
constexpr std::uint32_t formatCount = sizeof(formats) / sizeof(formats[0]);

int live = 0;    // instances
int created = 0; // ever
std::uint32_t lastWanted = 0;

// One short tag and one with a blob of 1100 bytes, which is too much to carry along.
struct Image {
    unsigned char bytes[2048];
    std::uint32_t size = 4;

    constexpr Image() : bytes{2} {
        Add(L"title", L"Blue", 0);
        Add(L"picture", L"3;image/png;", 1100);
    }
    constexpr void Add(const wchar_t* key, const wchar_t* value, std::uint32_t blob) {
        const std::uint32_t start = size;
        size += 4;
        AddText(key);
        AddText(value);
        size += blob;
        for (int i = 0; i < 4; ++i)
            bytes[start + i] = static_cast<unsigned char>((size - start) >> (8 * i));
    }
    constexpr void AddText(const wchar_t* text) {
        do {
            bytes[size++] = static_cast<unsigned char>(*text & 255);
            bytes[size++] = static_cast<unsigned char>(*text >> 8);
        } while (*text++);
    }
};
constexpr Image tags;

bool IsKey(const wchar_t* left, const wchar_t* right) {
    while (*left && *left == *right) {
        ++left;
        ++right;
    }
    return *left == *right;
}

} // namespace

FAKE_EXPORT ZtInstance Create(PluginCreateBlock*) {
#ifdef FAKE_NO_INSTANCE
    return nullptr;
#else
    ++live;
    ++created;
    return &live;
#endif
}

FAKE_EXPORT void Destroy(ZtInstance) {
    --live;
}

FAKE_EXPORT std::int32_t Get(ZtInstance, const wchar_t* key, PluginParams* params) {
    if (IsKey(key, L"Test Live"))
        return live;
    if (IsKey(key, L"Test Created"))
        return created;
    if (IsKey(key, L"Test Wanted"))
        return static_cast<std::int32_t>(lastWanted);
    if (IsKey(key, L"Decoder Description")) {
        params->text1 = L"Fake";
        return 1;
    }
    if (!IsKey(key, L"Decodes"))
        return 0;
    std::uint32_t index = params->index;
#ifdef FAKE_ENDLESS
    index = index < formatCount ? index : formatCount - 1;
#endif
    if (index >= formatCount)
        return 0;
    params->text1 = formats[index].extension;
    params->text2 = formats[index].description;
    return 1;
}

FAKE_EXPORT std::int32_t Set(ZtInstance, const wchar_t*, PluginParams*) {
    return 0;
}

// Refuses sources whose path holds a '!'.
FAKE_EXPORT std::int32_t Open(ZtInstance, DecoderOpenBlock* block) {
    lastWanted = block->wanted;
    for (const wchar_t* c = block->path; *c; ++c) {
        if (*c == L'!')
            return 0;
#ifdef FAKE_GATE
        if (*c == L'=') {
            const HANDLE gate = CreateEventW(nullptr, TRUE, FALSE, FAKE_GATE);
            WaitForSingleObject(gate, 30000);
            CloseHandle(gate);
        }
#endif
    }
    block->format.channels = 2;
    block->format.frequency = 44100;
    block->format.bitsPerSample = 16;
    block->format.lengthMs = 5000000000u;
    block->format.reserved2[15] = 77;
    if (block->wanted == ztOpenFormat)
        return 1;
    block->tagData = tags.bytes;
    block->propertyData = tags.bytes;
#ifdef FAKE_ABSURD
    block->tagDataSize = 0xfffffff0u;
    block->propertyDataSize = 0x80000000u;
#else
    block->tagDataSize = tags.size;
    block->propertyDataSize = tags.size;
#endif
    return 1;
}

FAKE_EXPORT void Close(ZtInstance) {}
FAKE_EXPORT std::int32_t DecodeBlock(ZtInstance, void*, std::uint32_t) {
    return 0;
}
FAKE_EXPORT std::int32_t SetPosition(ZtInstance, std::uint64_t) {
    return 0;
}
#ifndef FAKE_LACKS_EXPORT
FAKE_EXPORT std::int32_t DeleteATag(ZtInstance, const wchar_t*) {
    return 0;
}
#endif
