// The effect library "Delete Source File": leaves audio alone and, at the end of a batch, moves those
// sources to the recycle bin whose outputs are beyond doubt. Settings: -otherlength (outputs may be
// longer or shorter than their sources).
#include "foundation/XFileSystem.h"
#include "plugins/common/Settings.h"
#include "plugins/dsp/DeletePanel.h"
#include "plugins/dsp/EffectExports.h"
#include "plugins/dsp/OutputProbe.h"
#include "plugins/dsp/RecycleBin.h"
#include "plugins/dsp/SourcesToDelete.h"

#include <map>

namespace {

constexpr SettingsOption options[] = {{L"otherlength", L"", 0, 0, true}};

class clDeleteSourceFile : public EffectBase {
public:
    bool EndBatch(const PluginParams& params);

    DeletePanel panel;

private:
    void TryDelete(const ConvertedSource& source, OutputProbe& probe, bool anyLength);
};

// One file under two paths (links, short names, shares) is one file all the same: what the paths don't
// tell apart here they do.
void KeepSharedFiles(std::vector<ConvertedSource>& sources) {
    std::map<FileIdentity, std::size_t> owners; // of outputs
    std::map<FileIdentity, std::size_t> places; // of sources
    for (std::size_t i = 0; i < sources.size(); ++i) {
        for (const XString& output : sources[i].outputs)
            if (const FileIdentity identity = IdentityOf(output); identity.IsKnown())
                if (const auto owner = owners.emplace(identity, i).first; owner->second != i)
                    sources[i].mayGo = sources[owner->second].mayGo = false;
        if (const FileIdentity identity = IdentityOf(sources[i].path); identity.IsKnown())
            if (const auto place = places.emplace(identity, i).first; place->second != i)
                sources[i].mayGo = sources[place->second].mayGo = false;
    }
    for (const auto& [identity, place] : places)
        if (owners.contains(identity))
            sources[place].mayGo = false;
}

// Empty if every output is what it should be.
XString DoubtOf(const ConvertedSource& source, OutputProbe& probe, bool anyLength) {
    if (!source.mayGo)
        return L"a conversion failed, or source and outputs share a file";
    const DWORD attributes = GetFileAttributesW(source.path);
    if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_DIRECTORY))
        return L"it is not there";
    if (attributes & FILE_ATTRIBUTE_READONLY)
        return L"it is read-only";
    AudioFormatRecord original{};
    if (!probe.ReadFormat(source.path, original))
        return L"its length can't be read";
    for (const XString& output : source.outputs) {
        AudioFormatRecord copy{};
        if (!IsFile(output) || !probe.ReadWhole(output, copy))
            return L"'" + output + L"' can't be read";
        if (!anyLength && !IsSameLength(original, copy))
            return L"'" + output + L"' has another length";
    }
    return XString();
}

void clDeleteSourceFile::TryDelete(const ConvertedSource& source, OutputProbe& probe, bool anyLength) {
    XString reason = DoubtOf(source, probe, anyLength);
    if (reason.IsEmpty() && MoveToRecycleBin(source.path, reason))
        return;
    if (!lastError.IsEmpty())
        lastError += L"\n";
    lastError += L"'" + source.path + L"' stays: " + reason;
}

bool clDeleteSourceFile::EndBatch(const PluginParams& params) {
    Settings settings;
    if (!settings.Parse(params.text1, options, lastError))
        return false;
    XTagList results;
    if (params.data)
        results.Deserialize(params.data, params.dataSize);
    std::vector<ConvertedSource> sources = ReadConvertedSources(results);
    KeepSharedFiles(sources);
    OutputProbe probe;
    for (const ConvertedSource& source : sources)
        TryDelete(source, probe, settings.Flag(L"otherlength"));
    return lastError.IsEmpty();
}

} // namespace

ZT_EFFECT_EXPORTS(clDeleteSourceFile)
