// The text of an effect chain: -dspeffect1="name=settings" -dspeffect2="..." and so on. The same text
// stands in the registry, in the worker's command and in files of the type .dspeffect.
#pragma once

#include "foundation/XArray.h"

struct clChainEntry {
    XString name;     // of the library, without extension
    XString settings; // opaque
};

// Replaces the content of `chain`. The numbers run from 1 without a gap; what stands behind a gap is
// dropped. An entry without "=", or with nothing before it, is passed over. This is also how the batch
// end and the count of slots walk a chain.
void EffectChainFromText(XArray<clChainEntry>& chain, const wchar_t* text);
// {qt} stands for a double quote in settings; a {qt} of their own comes back as one, too.
[[nodiscard]] XString EffectChainToText(const XArray<clChainEntry>& chain);
// One more entry under the first free number; `required` is "name=settings", taken as it stands.
[[nodiscard]] XString AppendRequiredEffect(const wchar_t* chainText, const wchar_t* required);

inline constexpr wchar_t effectFileExtension[] = L"dspeffect";
// The answer of a save dialog, with the extension if it has none.
[[nodiscard]] XString EffectFileName(const XString& chosen);

// Windows only. The file is the chain text in UTF-16LE and nothing else.
// Replaces what is there. `showErrors` as in XFile.
bool WriteEffectFile(const XString& path, const XString& chainText, bool showErrors = false);
// First line of the file, a byte-order mark dropped; empty if it can't be read.
[[nodiscard]] XString ReadEffectFile(const XString& path);
