// The three kinds of plug-in by their exports. Portable.
#pragma once

#include "PeImage.h"

enum class PluginKind { decoder, encoder, effect };
inline constexpr int kindCount = 3;

struct KindRow {
    PluginKind kind;
    const wchar_t* name;   // "a decoder"
    const wchar_t* folder; // beside the program
    const wchar_t* prefix; // of its exports
    const wchar_t* const* exports;
    int exportCount;
};
[[nodiscard]] const KindRow& RowOf(PluginKind kind);

// By the name of the library's folder if it has exports of that kind, else the kind of which it has
// most. False if it has none of any.
[[nodiscard]] bool DetectKind(const XString& path, const PeImage& image, PluginKind& kind);
// What is wrong with its exports, one text each: missing ones, and the names that stand for them.
void FindExportFaults(const PeImage& image, const KindRow& row, XStringArray& faults);
