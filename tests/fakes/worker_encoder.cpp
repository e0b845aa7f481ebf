// An encoder for the worker's tests: writes .fake files. Settings: failat= and crashat= and abortat= and
// exitat= (frames), lose= (frames that it drops without a word), slow= (ms per block), wrong=1 (settings
// that are refused), saytmp=1 (fails with the temporary folder as its words), nofile=1 (writes into the
// void and says two lines of what it heard), channels= and tags= (says that the file has so many channels,
// and so many values of a tag).
#define FAKE_OWN_INSTANCE
#define FAKE_OWN_AUDIO
#include "QuietExports.h"
#include "worker_numbers.h"

#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace {

struct FakeEncoder {
    FILE* file = nullptr;
    std::uint32_t channels = 0;
    std::int64_t position = 0, failAt = -1, crashAt = -1, abortAt = -1, exitAt = -1, lose = 0;
    DWORD slowMs = 0;
    bool hasFile = true;
    AudioFormatRecord written{};
    std::vector<unsigned char> writtenTags;
    wchar_t words[MAX_PATH + 1] = L"the fake encoder's own words";
};

FakeEncoder& Of(ZtInstance instance) {
    return *static_cast<FakeEncoder*>(instance);
}

} // namespace

FAKE_EXPORT ZtInstance ENC_Create(PluginCreateBlock*) {
    return new FakeEncoder;
}

FAKE_EXPORT void ENC_Destroy(ZtInstance instance) {
    if (Of(instance).file)
        std::fclose(Of(instance).file);
    delete &Of(instance);
}

FAKE_EXPORT std::int32_t ENC_Get(ZtInstance instance, const wchar_t* key, PluginParams* params) {
    if (IsText(key, L"Last Error")) {
        params->text1 = Of(instance).words;
        return 1;
    }
    if (IsText(key, L"Information") && !Of(instance).hasFile) {
        std::swprintf(Of(instance).words, MAX_PATH, L"heard %lld frames\n\nand no more",
                      static_cast<long long>(Of(instance).position));
        params->text1 = Of(instance).words;
        return 1;
    }
    if (IsText(key, L"Written Format") && Of(instance).written.channels > 0) {
        params->data = &Of(instance).written;
        return 1;
    }
    if (IsText(key, L"Written Tags") && !Of(instance).writtenTags.empty()) {
        params->data = Of(instance).writtenTags.data();
        params->dataSize = static_cast<std::uint32_t>(Of(instance).writtenTags.size());
        return 1;
    }
    if (IsText(key, L"Extension")) {
        params->text1 = L".fake";
        return 1;
    }
    if (IsText(key, L"Check Settings")) {
        if (NumberOf(params->text1, L"wrong", 0) == 0)
            return 1;
        params->text2 = L"wrong is not good";
    }
    return 0;
}

FAKE_EXPORT std::int32_t ENC_BeginConversion(ZtInstance instance, const EncoderBeginBlock* block) {
    FakeEncoder& self = Of(instance);
    self.channels = block->format->channels;
    self.failAt = NumberOf(block->settings, L"failat", -1);
    self.crashAt = NumberOf(block->settings, L"crashat", -1);
    self.abortAt = NumberOf(block->settings, L"abortat", -1);
    self.exitAt = NumberOf(block->settings, L"exitat", -1);
    self.lose = NumberOf(block->settings, L"lose", 0);
    self.slowMs = static_cast<DWORD>(NumberOf(block->settings, L"slow", 0));
    self.written.channels = static_cast<std::uint16_t>(NumberOf(block->settings, L"channels", 0));
    self.written.frequency = block->format->frequency;
    if (const std::int64_t values = NumberOf(block->settings, L"tags", 0))
        self.writtenTags = OneTag(values);
    if (NumberOf(block->settings, L"saytmp", 0) != 0) {
        GetTempPathW(MAX_PATH, self.words);
        return 0;
    }
    self.hasFile = NumberOf(block->settings, L"nofile", 0) == 0;
    self.file = _wfopen(self.hasFile ? block->outputPath : L"NUL", L"wb");
    FakeHead head;
    head.channels = self.channels;
    head.frequency = block->format->frequency;
    if (block->tagData)
        std::memcpy(head.tags, block->tagData, std::min(sizeof(head.tags), std::size_t{block->tagDataSize}));
    return self.file && std::fwrite(&head, sizeof(head), 1, self.file) == 1;
}

FAKE_EXPORT std::int32_t ENC_EncodeBlock(ZtInstance instance, const void* samples, std::uint32_t frames) {
    FakeEncoder& self = Of(instance);
    self.position += frames;
    const auto isDue = [&self](std::int64_t at) { return at >= 0 && self.position > at; };
    if (isDue(self.failAt))
        return 0;
    if (isDue(self.crashAt))
        *static_cast<volatile int*>(nullptr) = 1;
    if (isDue(self.abortAt))
        std::abort();
    if (isDue(self.exitAt))
        std::exit(0);
    Sleep(self.slowMs);
    const std::uint32_t lost = self.lose < frames ? static_cast<std::uint32_t>(self.lose) : frames;
    self.lose -= lost;
    return std::fwrite(samples, 4 * self.channels, frames - lost, self.file) == frames - lost;
}

FAKE_EXPORT std::int32_t ENC_EndConversion(ZtInstance instance, std::int32_t) {
    FakeEncoder& self = Of(instance);
    const bool isGood = self.file && std::fclose(self.file) == 0;
    self.file = nullptr;
    return isGood;
}
