// The effect library "Batch Report": leaves audio alone and, at the end of a batch, writes what became
// of each file to the file that its settings name: -file="C:\path\report.txt".
#include "foundation/XTagList.h"
#include "plugins/common/Exports.h"
#include "plugins/common/OutputFile.h"
#include "plugins/common/Settings.h"
#include "plugins/dsp/BatchReportPanel.h"
#include "plugins/dsp/ReportText.h"

#include "foundation/XPath.h"

namespace {

class clBatchReport {
public:
    std::int32_t Get(const wchar_t* key, PluginParams& params);
    bool WriteReport(const PluginParams& params);

    XString lastError;
    BatchReportPanel panel;
};

// The option's value is any text, which a table of allowed values can't say.
XString ReportPath(const wchar_t* settings) {
    XString path;
    XKeyValueList(settings ? settings : L"").GetValue(L"file", path);
    return path;
}

// Under a temporary name first: who waits for the report never sees half of it.
bool clBatchReport::WriteReport(const PluginParams& params) {
    lastError.Clear();
    const XString path = ReportPath(params.text1);
    if (path.IsEmpty())
        return true;
    XTagList results;
    if (params.data)
        results.Deserialize(params.data, params.dataSize);
    const std::string text = BuildReport(results);
    const XString temporary = path + L".tmp";
    OutputFile file;
    if (!file.Create(temporary) || !file.Write(text.data(), text.size()) || !file.Close()) {
        lastError = file.Error();
        return false;
    }
    if (MoveFileExW(LongPath(temporary, longFolderLimit), LongPath(path, longFolderLimit),
                    MOVEFILE_REPLACE_EXISTING))
        return true;
    const DWORD code = GetLastError();
    lastError = L"Can't write the file '" + path + L"': error " + DecimalText(code);
    DeleteFileW(LongPath(temporary, longFolderLimit));
    return false;
}

std::int32_t clBatchReport::Get(const wchar_t* key, PluginParams& params) {
    const XString name = key;
    if (name == ZtKey::batchEndConversion)
        return WriteReport(params) ? 1 : 0;
    if (name == ZtKey::lastError && !lastError.IsEmpty()) {
        params.text1 = lastError;
        return 1;
    }
    return 0;
}

} // namespace

ZT_EXPORT ZtInstance DSP_Create(PluginCreateBlock*) noexcept {
    return CreateInstance<clBatchReport>();
}

ZT_EXPORT void DSP_Destroy(ZtInstance instance) noexcept {
    delete static_cast<clBatchReport*>(instance);
}

ZT_EXPORT std::int32_t DSP_Get(ZtInstance instance, const wchar_t* key, PluginParams* params) noexcept {
    return GuardedCall<clBatchReport>(
        instance, 0, [&](clBatchReport& report) { return key && params ? report.Get(key, *params) : 0; });
}

ZT_EXPORT std::int32_t DSP_Set(ZtInstance, const wchar_t*, PluginParams*) noexcept {
    return 0;
}

ZT_EXPORT void DSP_ShowConfigBit(ZtInstance instance, void* parent, std::int32_t x, std::int32_t y,
                                 const wchar_t* settings) noexcept {
    ShowPanel<clBatchReport>(instance, parent, x, y, settings);
}

ZT_EXPORT const wchar_t* DSP_RemoveConfigBit(ZtInstance instance, void* parent) noexcept {
    return RemovePanel<clBatchReport>(instance, parent);
}

ZT_EXPORT std::int32_t DSP_BeginConversion(ZtInstance, DspBeginBlock*) noexcept {
    return 0; // no audio, please
}

// Never called after that answer; a caller that does so all the same gets its frames back.
ZT_EXPORT std::int32_t DSP_PassAudioBlock(ZtInstance, DspAudioBlock* block) noexcept {
    if (!block)
        return 0;
    block->output = block->input;
    block->outputFrames = block->inputFrames;
    return 1;
}

ZT_EXPORT std::int32_t DSP_PassNonLive(ZtInstance, DspAudioBlock*) noexcept {
    return 1;
}

ZT_EXPORT std::int32_t DSP_EndConversion(ZtInstance, DspAudioBlock* block) noexcept {
    if (!block)
        return 0;
    block->output = nullptr;
    block->outputFrames = 0;
    return 1;
}

ZT_EXPORT void DSP_AfterConversion(ZtInstance, std::int32_t) noexcept {}
