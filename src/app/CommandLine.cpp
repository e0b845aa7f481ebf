// The options in their order; the first of a name wins.
#include "app/CommandLine.h"

namespace {

constexpr wchar_t optionExtras[] = L"dynamic_naming_extras";
constexpr wchar_t optionCodec[] = L"conv_to_format";
constexpr wchar_t optionSkipSetUp[] = L"skip_ready_to_conv";
constexpr wchar_t optionList[] = L"list_to_conv";
constexpr wchar_t optionSignal[] = L"signal_event_got_files";
constexpr wchar_t textConfig[] = L"<config>";
constexpr wchar_t textInstall[] = L"<install>";

XString ValueOf(const XKeyValueList& options, const wchar_t* key) {
    XString value;
    options.GetValue(key, value);
    return value;
}

clCommand CommandOfText(const XString& text) {
    if (text.IsEmpty())
        return clCommand::goOn;
    if (text == textConfig)
        return clCommand::startConfig;
    return text == textInstall ? clCommand::refuseInstall : clCommand::unknown;
}

} // namespace

clCommandLine ReadCommandLine(const XKeyValueList& options, const XString& tail) {
    clCommandLine line;
    line.extrasFile = ValueOf(options, optionExtras);
    line.codec = ValueOf(options, optionCodec);
    line.skipSetUp = options.Has(optionSkipSetUp);
    line.listFile = ValueOf(options, optionList);
    line.text = tail;
    if (line.listFile.IsEmpty()) {
        line.command = CommandOfText(tail);
        return line;
    }
    line.command = clCommand::loadList;
    line.signalEvent = ValueOf(options, optionSignal);
    line.isListAlone = options.keys.Count() == 1;
    return line;
}
