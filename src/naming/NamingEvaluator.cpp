// The passes of an evaluation in their order. Each searches and replaces in one text; what users see as
// rules of precedence is nothing but this order.
#include "naming/NamingEvaluator.h"

#include "naming/NamingElements.h"
#include "naming/NamingFunctions.h"
#include "naming/NamingText.h"

namespace {

constexpr const wchar_t* pathKeys[] = {L"origpath", L"origfilename", L"origdrive"};

bool MayMakeFolders(const XString& key, const XStringArray* extras) {
    for (const wchar_t* pathKey : pathKeys)
        if (key.EqualsNoCase(pathKey))
            return true;
    return extras && extras->Contains(key, true);
}

void EscapeValues(XTagList& values, const XStringArray* extras) {
    for (XTagItem& item : values.items) {
        item.value.Replace(L",", commaWord);
        item.value.Replace(L"[", bracketWord);
        if (item.value.FindChar(L'\\') > 0 && !MayMakeFolders(item.key, extras))
            item.value.Replace(L"\\", L"-");
    }
}

// These functions take the key of a tag; their users also write it as a wrapper or an element.
constexpr const wchar_t* keyFunctions[] = {L"[ifvalue]", L"[ifequals]", L"[if!equals]"};
constexpr wchar_t tagWrapper[] = L"[tag]";
constexpr int tagWrapperLength = 5;

void UnwrapTag(XString& text, const wchar_t* name) {
    const XString wrapped = XString(name) + tagWrapper;
    const int nameLength = TextLength(name);
    for (int p = text.Find(wrapped, 1, true); p > 0; p = text.Find(wrapped, p + 1, true)) {
        text.Delete(p + nameLength, p + nameLength + tagWrapperLength - 1);
        const int closing = text.Find(closingToken, p);
        if (closing > 0)
            text.Delete(closing, closing + closingLength - 1);
    }
}

void UnwrapElement(XString& text, const wchar_t* name) {
    const XString wrapped = XString(name) + L"[";
    const int nameLength = TextLength(name);
    for (int p = text.Find(wrapped, 1, true); p > 0; p = text.Find(wrapped, p + 1, true)) {
        text.Delete(p + nameLength, p + nameLength);
        const int closing = text.FindChar(L']', p + nameLength);
        if (closing > 0)
            text.Delete(closing, closing);
    }
}

} // namespace

XString EvaluateNaming(const XString& namingTemplate, XTagList& elements, const XStringArray* extras) {
    XTagList values;
    values.Merge(elements);
    EscapeValues(values, extras);

    clNamingText work(namingTemplate);
    for (const wchar_t* name : keyFunctions) {
        UnwrapTag(work.text, name);
        UnwrapElement(work.text, name);
    }
    ReplaceElements(work, values, extras);
    ReplaceTagWrappers(work, values);
    ReplaceTagsWrappers(work, values);
    EvaluateFunctions(work, values, elements);

    work.text.Replace(commaWord, L",", true);
    work.text.Replace(bracketWord, L"[", true);
    return work.text;
}
