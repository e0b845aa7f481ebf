#include "worker/EffectChainRunner.h"

#include "contract/Keys.h"
#include "host/CodecHandler.h"
#include "worker/AudioText.h"

#include <cstring>

namespace {

// Tonemill itself reads this one, to choose the processors; it has nothing to do here.
constexpr wchar_t multiCpuForce[] = L"Multi-CPU Force";
// An effect may hold a whole file and add a tail to it; what comes beyond is a fault without end.
constexpr std::uint64_t longestTailSeconds = 3600;

} // namespace

void EffectChainRunner::Error(const Effect& effect, const wchar_t* what) {
    XString text =
        XString(L"Error converting '") + command.inFile + L"': the effect '" + effect.name + L"' " + what;
    PluginParams params{};
    if (effect.library.AskGet(ZtKey::lastError, params) != 0 && params.text1 && params.text1[0] != 0)
        text += XString(L" (") + params.text1 + L")";
    reporter.Error(text);
}

EffectChainRunner::Answer EffectChainRunner::BeginOne(Effect& effect) {
    effect.output = effect.input;
    effect.framesIn = 0;
    DspBeginBlock block{};
    block.size = sizeof(block);
    block.batchId = command.batchId;
    block.sourcePath = command.inFile;
    block.outputPath = command.outFile;
    block.settings = effect.settings;
    block.format = &effect.output;
    block.tagData = effect.inputTags;
    block.tagDataSize = effect.inputTagsSize;
    const std::int32_t answer = effect.library.DSP_BeginConversion(effect.library.instance, &block);
    if (answer == 0)
        return Answer::passesOver;
    effect.isBegun = answer > 0;
    if (answer < 0 || !IsUsableFormat(effect.output)) {
        Error(effect, answer < 0 ? L"can't begin" : L"describes audio that can't be");
        return Answer::failed;
    }
    effect.wantsFirstPass = block.wantsNonLive != 0;
    if (!TakeTags(effect, block.tagData, block.tagDataSize))
        return Answer::failed;
    return Answer::takesAudio;
}

// The effect's image lives until its next call only, so it is copied.
bool EffectChainRunner::TakeTags(Effect& effect, const void* image, std::uint32_t size) {
    if (!image)
        size = 0;
    if (size != 0 && image != tagData) {
        XBuffer copy; // `image` may be older tags of this effect
        if (!copy.Set(image, size)) {
            Error(effect, L"delivers more tags than the memory holds");
            return false;
        }
        effect.ownTags = std::move(copy);
        image = effect.ownTags.data;
    }
    tagData = image;
    tagDataSize = size;
    return true;
}

bool EffectChainRunner::CollectTags() {
    for (Effect& effect : effects) {
        PluginParams params{};
        params.data = tagData;
        params.dataSize = tagDataSize;
        if (effect.library.AskGet(ZtKey::tags, params) != 0 &&
            !TakeTags(effect, params.data, params.dataSize))
            return false;
    }
    return true;
}

bool EffectChainRunner::Begin(const AudioFormatRecord& source, const XBuffer& tags) {
    format = source;
    tagData = tags.size != 0 ? tags.data : nullptr;
    tagDataSize = static_cast<std::uint32_t>(tags.size);
    XArray<clChainEntry> chain;
    EffectChainFromText(chain, command.chain);
    for (const clChainEntry& entry : chain) {
        if (entry.name.Equals(multiCpuForce))
            continue;
        Effect* effect = effects.AddNew();
        effect->name = entry.name;
        effect->settings = entry.settings;
        effect->input = format;
        effect->inputTags = tagData;
        effect->inputTagsSize = tagDataSize;
        PluginCreateBlock create{};
        if (!clZtCodecHandler::LoadDSP(entry.name, effect->library, &create)) {
            // To convert without it would give other audio than was asked for.
            Error(*effect, L"is not installed or can't be loaded");
            return false;
        }
        switch (BeginOne(*effect)) {
        case Answer::failed:
            return false;
        case Answer::passesOver:
            effects.DeleteAt(effects.Count() - 1);
            break;
        case Answer::takesAudio:
            format = effect->output;
            break;
        }
    }
    return true;
}

bool EffectChainRunner::Feed(int index, int count, const void* frames, std::uint32_t frameCount,
                             FrameSink& sink) {
    if (frameCount == 0)
        return true;
    if (index == count)
        return sink.Take(frames, frameCount);
    Effect& effect = effects[index];
    effect.framesIn += frameCount;
    DspAudioBlock block{};
    block.input = frames;
    block.inputFrames = frameCount;
    if (effect.library.DSP_PassAudioBlock(effect.library.instance, &block) == 0 ||
        (block.outputFrames != 0 && !block.output)) {
        Error(effect, L"failed");
        return false;
    }
    return Feed(index + 1, count, block.output, block.outputFrames, sink);
}

bool EffectChainRunner::Run(int count, const void* frames, std::uint32_t frameCount, FrameSink& sink) {
    return Feed(0, count, frames, frameCount, sink);
}

clStep EffectChainRunner::Flush(int count, FrameSink& sink, Lifeline& lifeline) {
    for (int index = 0; index < count; ++index) {
        Effect& effect = effects[index];
        std::uint64_t held = 0;
        for (;;) {
            if (!lifeline.Pulse())
                return stepCancelled;
            DspAudioBlock block{};
            const bool isGood = effect.library.DSP_EndConversion(effect.library.instance, &block) != 0;
            held += block.outputFrames;
            const std::uint64_t inputMs = FramesToMs(effect.framesIn, effect.input.frequency);
            if (!isGood || (block.outputFrames != 0 && !block.output) ||
                held / effect.output.frequency > inputMs / 1000 + longestTailSeconds) {
                Error(effect, L"failed at the end of the audio");
                return stepFailed;
            }
            if (block.outputFrames == 0)
                break;
            if (!Feed(index + 1, count, block.output, block.outputFrames, sink))
                return stepFailed;
        }
    }
    return stepGood;
}

bool EffectChainRunner::RunFirstPass(int index, const void* frames, std::uint32_t frameCount) {
    Effect& effect = effects[index];
    DspAudioBlock block{};
    block.input = frames;
    block.inputFrames = frameCount;
    if (effect.library.DSP_PassNonLive(effect.library.instance, &block) != 0)
        return true;
    Error(effect, L"failed in its first pass");
    return false;
}

bool EffectChainRunner::Restart(int count) {
    for (int index = 0; index < count; ++index) {
        Effect& effect = effects[index];
        const AudioFormatRecord before = effect.output;
        effect.library.DSP_AfterConversion(effect.library.instance, 1);
        effect.isBegun = false;
        const void* chainTags = tagData;
        const std::uint32_t chainTagsSize = tagDataSize;
        XBuffer tagsBefore(std::move(effect.ownTags));
        const Answer answer = BeginOne(effect);
        // Those behind it go on with what the first beginning gave.
        effect.ownTags = std::move(tagsBefore);
        tagData = chainTags;
        tagDataSize = chainTagsSize;
        if (answer == Answer::failed)
            return false;
        if (answer == Answer::passesOver || std::memcmp(&before, &effect.output, sizeof(before)) != 0) {
            Error(effect, L"does not begin twice alike");
            return false;
        }
    }
    return true;
}

void EffectChainRunner::ReportInformation() {
    for (const Effect& effect : effects) {
        PluginParams params{};
        if (effect.library.AskGet(ZtKey::information, params) != 0 && params.text1)
            reporter.InformationLines(effect.name + L": " + params.text1);
    }
}

void EffectChainRunner::Finish(bool failed) {
    for (const Effect& effect : effects)
        if (effect.isBegun)
            effect.library.DSP_AfterConversion(effect.library.instance, failed ? 1 : 0);
    effects.Clear();
}
