#include "host/CodecHandler.h"

#include "contract/Keys.h"
#include "foundation/XFile.h"
#include "foundation/XThread.h"

namespace {

struct TraceState {
    XMutex mutex;
    int indent = 0; // blanks
    bool lineStart = true;
    TraceState() { mutex.Create(); }
};

TraceState& Tracing() {
    static TraceState state;
    return state;
}

XString TraceLine(TraceState& state, const wchar_t* text, const wchar_t* function, bool endOfLine) {
    const XString body = text;
    if (body == L"<-<-" && state.indent >= 2)
        state.indent -= 2;
    XString line;
    if (state.lineStart)
        line.SetLength(state.indent);
    line += body;
    if (function)
        line = line + L" " + function;
    if (endOfLine)
        line += L"\r\n";
    state.lineStart = endOfLine;
    if (body == L"->->")
        state.indent += 2;
    return line;
}

template <class Library>
bool LoadByName(Library& library, const wchar_t* name, const XString& folder, const wchar_t* kind,
                const wchar_t* function, PluginCreateBlock* block) {
    clZtCodecHandler::Trace(L"->->", block, function);
    const XString path = folder + name + L".DLL";
    clZtCodecHandler::Trace(XString(L"Loading ") + kind + L" '" + path + L"'", block);
    library.Unload();
    const bool loaded = library.Load(path) && library.Recreate(block);
    clZtCodecHandler::Trace(L"<-<-", block, function);
    return loaded;
}

} // namespace

bool clZtCodecHandler::LoadEncoder(const wchar_t* name, clZtEncoder& encoder, PluginCreateBlock* block) {
    return LoadByName(encoder, name, EncoderFolder(), L"Encoder", L"clZtCodecHandler::LoadEncoder", block);
}

bool clZtCodecHandler::LoadDSP(const wchar_t* name, clZtDSP& effect, PluginCreateBlock* block) {
    return LoadByName(effect, name, EffectFolder(), L"DSP", L"clZtCodecHandler::LoadDSP", block);
}

void clZtCodecHandler::Trace(const wchar_t* text, const PluginCreateBlock* block, const wchar_t* function,
                             bool endOfLine) {
    if (!block || !block->logFile || block->logFile == INVALID_HANDLE_VALUE)
        return;
    // The lock is the system's, not the object's, so that threads do not share its `held` flag unlocked.
    TraceState& state = Tracing();
    WaitForSingleObject(state.mutex.handle.Get(), INFINITE);
    const XString line = TraceLine(state, text, function, endOfLine);
    DWORD written = 0;
    WriteFile(block->logFile, line.Text(), static_cast<DWORD>(line.Count()) * 2, &written, nullptr);
    ReleaseMutex(state.mutex.handle.Get());
}

XString GetEncoderExtension(const wchar_t* name) {
    clZtEncoder encoder;
    PluginCreateBlock block{};
    if (!encoder.Load(EncoderLibraryPath(name)) || !encoder.Recreate(&block))
        return XString();
    PluginParams params{};
    encoder.AskGet(ZtKey::extension, params);
    return XString(params.text1);
}

void ReadSmartInstallList(XArray<clSmartInstall>& out) {
    XStringArray lines;
    XFile file(PluginRoot() + smartInstallFileName);
    if (file.Open(GENERIC_READ, OPEN_EXISTING)) {
        XString line;
        while (file.ReadLine(line, false))
            lines.AddString(line);
    }
    SmartInstallFromLines(out, lines);
}
