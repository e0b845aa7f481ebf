// The effect library "Batch Report": leaves audio alone and, at the end of a batch, writes what became
// of each file, and why it failed, to the file that its settings name: -file="C:\path\report.txt".
#include "foundation/XKeyValueList.h"
#include "foundation/XPath.h"
#include "plugins/common/OutputFile.h"
#include "plugins/dsp/BatchReportPanel.h"
#include "plugins/dsp/EffectExports.h"
#include "plugins/dsp/ReportText.h"

namespace {

class clBatchReport : public EffectBase {
public:
    void HearErrors(const PluginParams& params);
    bool EndBatch(const PluginParams& params);

    BatchReportPanel panel;

private:
    XTagList errors;
};

void clBatchReport::HearErrors(const PluginParams& params) {
    errors.Clear();
    if (params.data)
        errors.Deserialize(params.data, params.dataSize);
}

// Under a temporary name first: who waits for the report never sees half of it.
bool clBatchReport::EndBatch(const PluginParams& params) {
    XString path;
    XKeyValueList(params.text1).GetValue(L"file", path);
    if (path.IsEmpty())
        return true;
    XTagList results;
    if (params.data)
        results.Deserialize(params.data, params.dataSize);
    const std::string text = BuildReport(results, errors);
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

} // namespace

ZT_EFFECT_EXPORTS(clBatchReport)
