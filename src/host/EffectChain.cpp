#include "host/EffectChain.h"

#include "contract/Worker.h"
#include "foundation/XKeyValueList.h"
#include "foundation/XPath.h"

namespace {

XString EntryKey(std::int64_t number) {
    return XString(ZtWorker::switchEffect) + DecimalText(number);
}

XString EntryText(std::int64_t number, const XString& value) {
    return L"-" + EntryKey(number) + L"=\"" + value + L"\"";
}

} // namespace

void EffectChainFromText(XArray<clChainEntry>& chain, const wchar_t* text) {
    chain.Clear();
    const XKeyValueList options(text);
    XString value;
    for (std::int64_t number = 1; options.GetValue(EntryKey(number), value); ++number) {
        value.Replace(ZtWorker::quoteMark, L"\"");
        const int equals = value.FindChar(L'=');
        if (equals <= 1)
            continue;
        clChainEntry* entry = chain.AddNew();
        entry->name = value.Left(equals - 1);
        entry->settings = value.From(equals + 1);
    }
}

XString EffectChainToText(const XArray<clChainEntry>& chain) {
    XString text;
    for (std::int64_t i = 0; i < chain.Count(); ++i) {
        XString settings = chain[i].settings;
        settings.Replace(L"\"", ZtWorker::quoteMark);
        if (!text.IsEmpty())
            text.Extend(L" ");
        text.Extend(EntryText(i + 1, chain[i].name + L"=" + settings));
    }
    return text;
}

XString AppendRequiredEffect(const wchar_t* chainText, const wchar_t* required) {
    const XKeyValueList options(chainText);
    std::int64_t number = 1;
    while (options.Has(EntryKey(number)))
        ++number;
    XString text = chainText;
    if (!text.IsEmpty())
        text += L" ";
    return text + EntryText(number, required);
}

XString EffectFileName(const XString& chosen) {
    if (ExtensionOf(chosen).Count() >= 2)
        return chosen;
    const bool endsInDot = chosen.CharAt(chosen.Count()) == L'.';
    return chosen + (endsInDot ? L"" : L".") + effectFileExtension;
}
