// The library under check: its exports, instances, and texts that it returns. Every call goes through
// the report, so that its name is known if it never comes back.
#pragma once

#include "Kinds.h"
#include "Report.h"
#include "contract/Plugin.h"

struct Library {
    PluginKind kind = PluginKind::encoder;
    XModule module;

    // Of all kinds; the forms of these exports are the same.
    DecoderCreate create = nullptr;
    DecoderDestroy destroy = nullptr;
    DecoderGet get = nullptr;
    DecoderSet set = nullptr;
    EncoderShowConfigBit showPanel = nullptr; // of encoders and effects
    EncoderRemoveConfigBit removePanel = nullptr;

    DecoderOpen open = nullptr;
    DecoderClose close = nullptr;
    DecoderDecodeBlock decode = nullptr;
    DecoderSetPosition seek = nullptr;
    DecoderDeleteATag deleteTag = nullptr;
    EncoderBeginConversion encoderBegin = nullptr;
    EncoderEncodeBlock encode = nullptr;
    EncoderEndConversion encoderEnd = nullptr;
    DspBeginConversion effectBegin = nullptr;
    DspPassAudioBlock pass = nullptr;
    DspPassNonLive passNonLive = nullptr;
    DspEndConversion effectEnd = nullptr;
    DspAfterConversion after = nullptr;

    // False, with the reason, if it can't be loaded or lacks an export.
    [[nodiscard]] bool Load(const XString& path, PluginKind kindWanted, XString& reason);
    [[nodiscard]] XString Name(const wchar_t* name) const { return XString(RowOf(kind).prefix) + name; }
};

// What the checks work with.
struct Checked {
    Report& report;
    Library& library;
    XString programFolder; // with its backslash
    XString judge;         // a decoder library for an encoder's outputs; empty: that of the program folder
    XString folder;        // for files of the checks, with its backslash
    XStringArray samples;
};

// One instance; null if Create failed, which is reported.
class Instance {
public:
    explicit Instance(Checked& checked);
    ~Instance() { Destroy(); }
    Instance(const Instance&) = delete;
    Instance& operator=(const Instance&) = delete;
    void Destroy();

    // Get with a key; an answer that takes long is reported.
    std::int32_t Ask(const wchar_t* key, PluginParams& params);
    // The text of "Last Error" or "Information"; empty if there is none.
    [[nodiscard]] XString TextOf(const wchar_t* key);

    Checked& checked;
    ZtInstance value = nullptr;
};

// A text that the library returned, copied. One that can't be read, has no end or changes although no
// call was made is reported, as is null unless `mayBeNull`.
[[nodiscard]] XString TakeText(Checked& checked, const XString& subject, const wchar_t* text,
                               bool mayBeNull = false);
// The same later on; false if it reads otherwise by now.
[[nodiscard]] bool IsStill(const wchar_t* text, const XString& copy);
