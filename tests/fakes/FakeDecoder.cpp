// A decoder of the tests' own. Defines give it its formats and its faults:
//   FAKE_FORMATS       rows {extension, description} of the formats that it claims
//   FAKE_LACKS_EXPORT  DeleteATag is missing
//   FAKE_NO_INSTANCE   Create answers null
//   FAKE_ENDLESS       claims the last format for every index
//   FAKE_ABSURD        Open names images of sizes that can't be
//   FAKE_GATE          Open waits for the event of this name when the source's path holds a '='
#include "FakeExport.h"

#ifdef FAKE_GATE
#include <windows.h>
#endif

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
#pragma pack(push, 1)
struct Image {
    std::uint32_t count = 2;
    std::uint32_t titleSize = sizeof(titleSize) + sizeof(title);
    wchar_t title[11] = L"title\0Blue";
    std::uint32_t pictureSize = sizeof(pictureSize) + sizeof(picture) + sizeof(blob);
    wchar_t picture[21] = L"picture\0"
                          L"3;image/png;";
    unsigned char blob[1100] = {};
};
#pragma pack(pop)
constexpr Image tags;

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
    if (IsText(key, L"Test Live"))
        return live;
    if (IsText(key, L"Test Created"))
        return created;
    if (IsText(key, L"Test Wanted"))
        return static_cast<std::int32_t>(lastWanted);
    if (IsText(key, L"Decoder Description")) {
        params->text1 = L"Fake";
        return 1;
    }
    if (!IsText(key, L"Decodes"))
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
    block->tagData = &tags;
    block->propertyData = &tags;
#ifdef FAKE_ABSURD
    block->tagDataSize = 0xfffffff0u;
    block->propertyDataSize = 0x80000000u;
#else
    block->tagDataSize = sizeof(tags);
    block->propertyDataSize = sizeof(tags);
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
