// All three template plug-ins in one library, with a panel, and with the one fault that the environment
// variable TM_FAULT names; without it they are good.
#define ENC_Create Good_ENC_Create
#define ENC_Destroy Good_ENC_Destroy
#define ENC_Get Good_ENC_Get
#define ENC_ShowConfigBit Good_ENC_ShowConfigBit
#define ENC_RemoveConfigBit Good_ENC_RemoveConfigBit
#define ENC_BeginConversion Good_ENC_BeginConversion
#define ENC_EncodeBlock Good_ENC_EncodeBlock
#define ENC_EndConversion Good_ENC_EndConversion
#define DSP_Get Good_DSP_Get
#define DSP_BeginConversion Good_DSP_BeginConversion
#define DSP_PassAudioBlock Good_DSP_PassAudioBlock
#define DSP_PassNonLive Good_DSP_PassNonLive
#define DSP_EndConversion Good_DSP_EndConversion
#define Get Good_Get
#define Open Good_Open
#define Close Good_Close
#define DecodeBlock Good_DecodeBlock
#define SetPosition Good_SetPosition
#include "templates/PcmzDecoder.cpp"
#undef EXPORT
#include "templates/PcmzEncoder.cpp"
#undef EXPORT
#include "templates/Polarity.cpp"
#undef ENC_Create
#undef ENC_Destroy
#undef ENC_Get
#undef ENC_ShowConfigBit
#undef ENC_RemoveConfigBit
#undef ENC_BeginConversion
#undef ENC_EncodeBlock
#undef ENC_EndConversion
#undef DSP_Get
#undef DSP_BeginConversion
#undef DSP_PassAudioBlock
#undef DSP_PassNonLive
#undef DSP_EndConversion
#undef Get
#undef Open
#undef Close
#undef DecodeBlock
#undef SetPosition

#include <windows.h>

#include <cstdlib>
#include <map>
#include <mutex>
#include <stdexcept>
#include <string>

namespace {

bool Has(const wchar_t* fault) {
    static const std::wstring set = [] {
        wchar_t text[64] = L"";
        GetEnvironmentVariableW(L"TM_FAULT", text, 64);
        return std::wstring(text);
    }();
    return set == fault;
}

bool Is(const wchar_t* key, const wchar_t* other) {
    return std::wcscmp(key, other) == 0;
}

struct Shown {
    HWND window = nullptr;
    std::wstring settings, returned, words;
};
std::mutex lock;
std::map<ZtInstance, Shown> panels;
Shown& PanelOf(ZtInstance instance) {
    const std::lock_guard<std::mutex> guard(lock);
    return panels[instance];
}

wchar_t sharedText[1000];
const DWORD firstThread = GetCurrentThreadId();
volatile int* nowhere = nullptr;

void (*volatile release)(void*) = std::free; // which the compiler does not see
void Forget(const void* text) {
    release(const_cast<void*>(text));
}

const wchar_t* WithoutEnd() {
    auto* page = static_cast<wchar_t*>(VirtualAlloc(nullptr, 8192, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE));
    DWORD old = 0;
    VirtualProtect(page + 2048, 4096, PAGE_NOACCESS, &old);
    std::fill_n(page, 2048, L'.');
    return page + 2000;
}

std::int32_t FaultyAnswer(ZtInstance instance, const wchar_t* key, PluginParams* params) {
    if (Is(key, L"no such key")) {
        if (Has(L"crash"))
            *nowhere = 1;
        while (Has(L"hang"))
            Sleep(1000);
        if (Has(L"throw"))
            throw std::runtime_error("out");
        if (Has(L"exit"))
            std::exit(0);
        return Has(L"unknown key");
    }
    if (Is(key, L"Extension")) {
        if (Has(L"slow"))
            Sleep(1500);
        if (Has(L"no dot"))
            params->text1 = L"pcmz";
        else if (Has(L"freed")) {
            params->text1 = static_cast<wchar_t*>(std::memcpy(std::malloc(12), L".pcmz", 12));
            Forget(params->text1);
        } else if (Has(L"without end"))
            params->text1 = WithoutEnd();
        else if (Has(L"null text"))
            params->text1 = nullptr;
    }
    if (Is(key, L"Check Settings")) {
        const std::wstring settings = params->text1 ? params->text1 : L"";
        if (Has(L"accepts all"))
            return 1;
        if (!Has(L"refuses defaults") && (settings.empty() || settings.substr(0, 3) == L"-a="))
            return 1;
        params->text2 = L"that is wrong";
    }
    if (Is(key, L"GetEstimatedFileSize")) {
        params->result = Has(L"estimate falls") ? 9000000 - params->number : params->number * 176;
        return 1;
    }
    if (Is(key, L"Written Format") && Has(L"other written")) {
        static AudioFormatRecord other = static_cast<Encoder*>(instance)->format;
        other.channels = 7;
        params->data = &other;
        return 1;
    }
    if (Is(key, L"Written Tags") && Has(L"tags missing")) {
        params->data = "\x01\0\0\0\x0A\0\0\0k\0\0\0\0\0"; // the key "k"
        params->dataSize = 14;
        return 1;
    }
    if (Is(key, L"RequiresDSP") && Has(L"required")) {
        params->text2 = L"Fade";
        return 1;
    }
    if (Is(key, L"MultiEncEncodingMultiplier") && Has(L"multiplier"))
        return -1;
    if (Is(key, L"Last Error")) {
        if (Has(L"no words"))
            return 0;
        if (Has(L"shared words")) {
            std::wcscpy(sharedText, PanelOf(instance).words.c_str());
            params->text1 = sharedText;
        }
    }
    return -2; // no fault
}

} // namespace

EXPORT ZtInstance ENC_Create(PluginCreateBlock* block) {
    static const ZtInstance only = Good_ENC_Create(block);
    return Has(L"null instance") ? nullptr : Has(L"one instance") ? only : Good_ENC_Create(block);
}
EXPORT void ENC_Destroy(ZtInstance instance) {
    const HWND window = PanelOf(instance).window;
    if (window && !Has(L"panel outlives"))
        DestroyWindow(window);
    {
        const std::lock_guard<std::mutex> guard(lock);
        panels.erase(instance);
    }
    if (!Has(L"one instance"))
        Good_ENC_Destroy(instance);
}
EXPORT std::int32_t ENC_Get(ZtInstance instance, const wchar_t* key, PluginParams* params) {
    const std::int32_t good = Good_ENC_Get(instance, key, params);
    const std::int32_t faulty = FaultyAnswer(instance, key, params);
    return faulty == -2 ? good : faulty;
}

EXPORT void ENC_ShowConfigBit(ZtInstance instance, void* parent, std::int32_t x, std::int32_t y,
                              const wchar_t* settings) {
    Shown& panel = PanelOf(instance);
    panel.settings = settings ? settings : L"";
    if (panel.window)
        DestroyWindow(panel.window);
    const bool isElsewhere = Has(L"panel elsewhere");
    const DWORD style = Has(L"own window") ? WS_POPUP : WS_CHILD;
    panel.window = CreateWindowW(L"STATIC", L"panel", style | WS_VISIBLE, isElsewhere ? 0 : x,
                                 isElsewhere ? 0 : y, Has(L"panel wide") ? 2000 : 200, 50,
                                 static_cast<HWND>(parent), nullptr, nullptr, nullptr);
    if (Has(L"gdi leak"))
        CreateSolidBrush(1);
    if (Has(L"menu leak"))
        CreatePopupMenu();
}
EXPORT const wchar_t* ENC_RemoveConfigBit(ZtInstance instance, void* parent) {
    Shown& panel = PanelOf(instance);
    if (parent != ztKeepPanel ? !Has(L"panel stays") : Has(L"panel goes")) {
        DestroyWindow(panel.window);
        panel.window = nullptr;
    }
    if (Has(L"settings grow") && parent != ztKeepPanel)
        panel.settings += L"-a=\"1\"";
    panel.returned = panel.settings;
    if (Has(L"line end"))
        panel.returned = L"-a=\"1\"\r\n-b=\"2\"";
    if (Has(L"refused settings"))
        panel.returned = L"-b=\"1\"";
    if (!Has(L"shared text"))
        return panel.returned.c_str();
    std::wcscpy(sharedText, panel.returned.c_str());
    return sharedText;
}

EXPORT std::int32_t ENC_BeginConversion(ZtInstance instance, const EncoderBeginBlock* block) {
    PanelOf(instance).words = block->outputPath;
    if (Has(L"no words") && block->format->bitsPerSample == 24)
        return 0;
    return Good_ENC_BeginConversion(instance, block);
}
EXPORT std::int32_t ENC_EncodeBlock(ZtInstance instance, const void* samples, std::uint32_t frames) {
    if (!Has(L"wrong scale"))
        return Good_ENC_EncodeBlock(instance, samples, Has(L"loses frames") ? frames - 1 : frames);
    const AudioFormatRecord& format = static_cast<Encoder*>(instance)->format;
    std::vector<std::int32_t> louder(std::size_t{frames} * format.channels);
    std::memcpy(louder.data(), samples, louder.size() * 4);
    for (std::int32_t& sample : louder)
        sample = format.bitsPerSample == 16 ? sample / 2 : sample;
    return Good_ENC_EncodeBlock(instance, louder.data(), frames);
}
EXPORT std::int32_t ENC_EndConversion(ZtInstance instance, std::int32_t completed) {
    if (!completed && Has(L"stays open"))
        return 1;
    const std::int32_t answer = Good_ENC_EndConversion(instance, completed);
    if (completed && Has(L"no file"))
        DeleteFileW(PanelOf(instance).words.c_str());
    return answer;
}

EXPORT std::int32_t DSP_Get(ZtInstance, const wchar_t* key, PluginParams* params) {
    if (Is(key, L"BatchEndConversion") && Has(L"batch end"))
        *nowhere = 1;
    if (Is(key, L"Tags") && Has(L"bad image")) {
        params->data = "\x02\0\0\0\xff";
        params->dataSize = 5;
        return 1;
    }
    return 0;
}
EXPORT std::int32_t DSP_BeginConversion(ZtInstance instance, DspBeginBlock* block) {
    static int begun = 0;
    if (Has(L"bad format"))
        block->format->bitsPerSample = 0;
    if (Has(L"not alike") && ++begun == 2)
        block->format->frequency /= 2;
    block->wantsNonLive = Has(L"first pass");
    return Good_DSP_BeginConversion(instance, block);
}
EXPORT std::int32_t DSP_PassAudioBlock(ZtInstance instance, DspAudioBlock* block) {
    auto* input = static_cast<std::int32_t*>(const_cast<void*>(block->input));
    if (Has(L"writes input"))
        input[0] = 5;
    Good_DSP_PassAudioBlock(instance, block);
    auto* output = static_cast<std::int32_t*>(const_cast<void*>(block->output));
    if (Has(L"block start"))
        output[0] = 0;
    if (Has(L"beyond bits"))
        output[0] = INT32_MAX;
    if (Has(L"null output"))
        block->output = nullptr;
    return !Has(L"pass fails");
}
EXPORT std::int32_t DSP_PassNonLive(ZtInstance, DspAudioBlock* block) {
    return block->input != nullptr;
}
EXPORT std::int32_t DSP_EndConversion(ZtInstance instance, DspAudioBlock* block) {
    static std::int32_t silence[6 * 1000000];
    Good_DSP_EndConversion(instance, block);
    if (Has(L"endless")) {
        block->output = silence;
        block->outputFrames = 1000000;
    }
    return 1;
}

EXPORT std::int32_t Get(ZtInstance instance, const wchar_t* key, PluginParams* params) {
    if (Is(key, L"Decodes")) {
        if (Has(L"endless formats"))
            params->index = 0;
        if (Has(L"no formats"))
            return 0;
    }
    const std::int32_t answer = Good_Get(instance, key, params);
    if (Is(key, L"Decodes") && Has(L"no name"))
        params->text2 = nullptr;
    return Is(key, L"Last Error") && Has(L"no words") ? 0 : answer;
}
EXPORT std::int32_t Open(ZtInstance instance, DecoderOpenBlock* block) {
    if (Has(L"takes missing") && GetFileAttributesW(block->path) == INVALID_FILE_ATTRIBUTES)
        return 1;
    const std::int32_t answer = Good_Open(instance, block);
    if (answer == 0 && Has(L"holds refused"))
        _wfopen(block->path, L"rb");
    if (Has(L"other format") && block->wanted == ztOpenAll)
        block->format.bitRate = 1000;
    if (Has(L"wrong count"))
        block->format.frameCount += 10;
    if (Has(L"wrong length"))
        block->format.lengthMs += 5000;
    if (Has(L"wide samples"))
        block->format.bitsPerSample = 8;
    return answer;
}
EXPORT void Close(ZtInstance instance) {
    if (!Has(L"stays open"))
        Good_Close(instance);
}
EXPORT std::int32_t DecodeBlock(ZtInstance instance, void* samples, std::uint32_t maxFrames) {
    const std::int32_t count = Good_DecodeBlock(instance, samples, maxFrames);
    auto* out = static_cast<std::int32_t*>(samples);
    const std::size_t channels = static_cast<Decoder*>(instance)->format.channels;
    if (Has(L"writes behind") && count > 0)
        out[maxFrames * channels] = 0;
    if (Has(L"one thread") && GetCurrentThreadId() != firstThread && count > 0)
        out[0] = 1;
    if (Has(L"small blocks") && maxFrames == 7)
        out[0] = 1;
    if (Has(L"more than asked"))
        return static_cast<std::int32_t>(maxFrames) + 1;
    return count == 0 && Has(L"end fails") ? -1 : count;
}
EXPORT std::int32_t SetPosition(ZtInstance instance, std::uint64_t frame) {
    return Good_SetPosition(instance, Has(L"off by one") && frame != 0 ? frame + 1 : frame);
}
