// The stages of a check. Each runs in a process of its own, so that a plug-in that crashes in one can
// be checked in the others.
#pragma once

#include "Library.h"

void CheckKeys(Checked& checked);  // instances, threads, and what every kind answers
void CheckPanel(Checked& checked); // of encoders and effects
void CheckEncoderKeys(Checked& checked);
void CheckEncoderAudio(Checked& checked);
void CheckEffectKeys(Checked& checked);
void CheckEffectAudio(Checked& checked);
void CheckDecoderKeys(Checked& checked);
void CheckDecoderFailures(Checked& checked); // missing, empty and damaged files
void CheckDecoderSamples(Checked& checked);

struct StageRow {
    PluginKind kind;
    const wchar_t* what; // in "was not checked to its end: the ..."
    void (*run)(Checked&);
};
inline constexpr StageRow stages[] = {
    {PluginKind::decoder, L"keys", CheckKeys},
    {PluginKind::decoder, L"formats that it decodes", CheckDecoderKeys},
    {PluginKind::decoder, L"refusal of bad files", CheckDecoderFailures},
    {PluginKind::decoder, L"decoding of samples", CheckDecoderSamples},
    {PluginKind::encoder, L"keys", CheckKeys},
    {PluginKind::encoder, L"answers of an encoder", CheckEncoderKeys},
    {PluginKind::encoder, L"panel", CheckPanel},
    {PluginKind::encoder, L"encoding", CheckEncoderAudio},
    {PluginKind::effect, L"keys", CheckKeys},
    {PluginKind::effect, L"answers of an effect", CheckEffectKeys},
    {PluginKind::effect, L"panel", CheckPanel},
    {PluginKind::effect, L"effect on audio", CheckEffectAudio},
};
