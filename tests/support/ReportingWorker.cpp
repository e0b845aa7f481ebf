// The worker that only reports, and the batch that uses it.
#include "ReportingWorker.h"

#include "contract/Worker.h"
#include "foundation/XFile.h"
#include "foundation/XKeyValueList.h"
#include "foundation/XPath.h"
#include "host/Settings.h"

namespace {

constexpr wchar_t secondsVariable[] = L"TM_REPORT_SECONDS";
constexpr std::uint32_t sourceLengthMs = 240000;
constexpr int reportsPerSecond = 20;
constexpr DWORD reportIntervalMs = 1000 / reportsPerSecond;

XString Message(const wchar_t* key, const XString& value) {
    return XString(ZtWorker::messageMark) + ZtWorker::addressee + L": " + key + L": " + value + L"\r\n";
}

void Say(const XString& text) {
    DWORD written = 0;
    WriteFile(GetStdHandle(STD_OUTPUT_HANDLE), text.Text(),
              static_cast<DWORD>(text.Count()) * sizeof(wchar_t), &written, nullptr);
}

XString ValueOf(const XKeyValueList& options, const wchar_t* name) {
    XString value;
    options.GetValue(name, value);
    return value;
}

std::int64_t NumberAtEnd(const XString& name) {
    int from = 0;
    while (const int blank = name.FindChar(L' ', from + 1))
        from = blank;
    return name.Mid(from + 1).ToInt();
}

} // namespace

int PlayReportingWorker() {
    XKeyValueList line;
    line.ParseCommandLine(GetCommandLineW());
    if (!line.Has(ZtWorker::commandFileSwitch))
        return -1;
    XFile file(ValueOf(line, ZtWorker::commandFileSwitch));
    XString command;
    if (!file.Open(GENERIC_READ, OPEN_EXISTING) || !file.ReadLine(command, true))
        return 2;
    file.Close();
    const XKeyValueList options(command);
    const XString source = ValueOf(options, ZtWorker::switchInFile);
    const XString output = ValueOf(options, ZtWorker::switchOutFile);
    const std::int64_t first = NumberAtEnd(NameWithoutExtension(source));
    const XKernelHandle quit(OpenEventW(SYNCHRONIZE, FALSE, ValueOf(options, ZtWorker::switchQuitEvent)));

    wchar_t seconds[16] = L"";
    GetEnvironmentVariableW(secondsVariable, seconds, 16);
    const std::int64_t reports = XString(seconds).ToInt() * reportsPerSecond;
    Say(Message(ZtWorker::keyAction, L"Encoding '" + NameWithoutExtension(source) + L"'"));
    Say(Message(ZtWorker::keyActionInput, L"From: " + source));
    Say(Message(ZtWorker::keyActionOutput, L"To: " + output));
    for (std::int64_t i = 0; i < reports; ++i) {
        Say(Message(ZtWorker::keyPercent, DecimalText(first + i * (100 - first) / reports)));
        if (WaitForSingleObject(quit.Get(), reportIntervalMs) == WAIT_OBJECT_0)
            break;
    }
    return 0;
}

clConvertingSeams PrepareReportingBatch(clFileList& files, const clReportingBatch& batch) {
    SetEnvironmentVariableW(secondsVariable, DecimalText(batch.seconds));
    RegWriteString(batch.codec, Setting::lastCodec);
    XString chain = L"-dspeffect1=\"Multi-CPU Force=-noally";
    for (int i = 1; i <= batch.slots; ++i)
        chain += L" -cpu" + DecimalText(i);
    chain += L"\"";
    if (batch.effect)
        chain += XString(L" -dspeffect2=\"") + batch.effect + L"=\"";
    RegWriteString(chain, Setting::effectChain, HKEY_CURRENT_USER,
                   SettingsPath(XString(L"\\zTMCodec\\") + batch.codec));
    for (int i = 0; i < batch.files; ++i) {
        clFileItem* item = files.Append();
        item->sourcePath = L"Q:\\Music\\Take " + DecimalText(1 + i * batch.numberStep) + L".wav";
        item->format.lengthMs = sourceLengthMs; // as if it had been examined
        item->SetStage(stageTags);
    }
    clConvertingSeams seams;
    wchar_t self[MAX_PATH];
    GetModuleFileNameW(nullptr, self, MAX_PATH);
    seams.workerExecutable = self;
    return seams;
}
