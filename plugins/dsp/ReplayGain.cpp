// The effect library "ReplayGain": leaves audio alone and writes how loud it is into tags, for each file
// and, at the end of a batch, for its album. Settings: -album="tags|folder|batch|off"
// -peak="sample|true".
#include "foundation/XPath.h"
#include "plugins/dsp/AlbumBatch.h"
#include "plugins/dsp/AlbumTags.h"
#include "plugins/dsp/EffectExports.h"
#include "plugins/dsp/LoudnessMeter.h"
#include "plugins/dsp/ReplayGainPanel.h"
#include "plugins/dsp/ReplayGainTags.h"

namespace {

class clReplayGain : public EffectBase {
public:
    std::int32_t Begin(DspBeginBlock& block);
    bool PassNonLive(const DspAudioBlock& block);
    bool ChangeTags(PluginParams& params);
    void After(bool failed);
    bool EndBatch(const PluginParams& params);

    ReplayGainPanel panel;

private:
    ReplayGainSettings settings;
    std::uint32_t batchId = 0;
    XString output; // path
    XString album;  // see AlbumKey
    bool isMeasuring = false;
    LoudnessMeter meter;
    XBuffer tagImage;
};

std::int32_t clReplayGain::Begin(DspBeginBlock& block) {
    settings = ReplayGainSettings();
    batchId = block.batchId;
    output = block.outputPath;
    album.Clear();
    PcmFormat format;
    if (!ReadReplayGainSettings(block.settings, settings, lastError) ||
        !ReadFormat(block.format, format, lastError))
        return -1;
    // What can't be measured is converted all the same, without gains.
    isMeasuring = meter.Open(format, settings.wantsTruePeak);
    block.wantsNonLive = isMeasuring ? 1 : 0;
    return 1;
}

bool clReplayGain::PassNonLive(const DspAudioBlock& block) {
    if (!block.input || meter.Add(block.input, block.inputFrames))
        return true;
    lastError = L"The memory does not suffice to measure the audio";
    return false;
}

bool clReplayGain::ChangeTags(PluginParams& params) {
    XTagList tags;
    if (params.data)
        tags.Deserialize(params.data, params.dataSize);
    PutTrackGain(tags, isMeasuring ? GainOf(meter.Histogram()) : std::nullopt, meter.TruePeak());
    album = AlbumKey(settings.album, tags, output);
    if (!tags.Serialize(tagImage))
        return false;
    params.data = tagImage.data;
    params.dataSize = static_cast<std::uint32_t>(tagImage.size);
    return true;
}

void clReplayGain::After(bool failed) {
    if (failed || !isMeasuring || album.IsEmpty() || !CanHoldAlbumGain(output))
        return;
    const GainMeasure measure = {output, album, meter.TruePeak(), meter.Histogram()};
    (void)GainStore(batchId).Keep(measure, lastError); // the album is then told without this file
}

bool clReplayGain::EndBatch(const PluginParams& params) {
    if (!ReadReplayGainSettings(params.text1, settings, lastError))
        return false;
    XTagList results;
    if (params.data)
        results.Deserialize(params.data, params.dataSize);
    const GainStore store(static_cast<std::uint32_t>(params.number));
    WriteAlbumGains(results, store, lastError);
    store.Remove();
    return lastError.IsEmpty();
}

} // namespace

ZT_EFFECT_EXPORTS(clReplayGain)
