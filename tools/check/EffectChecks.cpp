// What an effect answers and what it does to audio.
#include "Checks.h"
#include "Rules.h"
#include "Sound.h"
#include "contract/Keys.h"
#include "foundation/XTagList.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr std::uint32_t soundMs = 500;
constexpr std::uint64_t mostFrames = 20000000; // from half a second of sound: an end that never comes
constexpr std::uint32_t blockSizes[] = {4096, 7, 1};

struct FormatRow {
    bool isFloat;
    int bits, channels;
    std::uint32_t frequency;
};
constexpr FormatRow formats[] = {
    {false, 16, 2, 44100}, {false, 24, 1, 8000}, {false, 32, 6, 48000}, {true, 32, 2, 96000}};

// One file through the effect, as the worker takes it.
class EffectRun {
public:
    enum class Outcome { refused, passesOver, failed, done };

    EffectRun(Checked& checked, Instance& instance, const Sound& in, const XString& what)
        : checked(checked), instance(instance), in(in), what(what) {}

    Outcome Begin(const wchar_t* settings = L"");
    Outcome Rest(std::uint32_t blockSize); // both passes and what it holds
    void After(bool failed) {
        checked.report.In(L"DSP_AfterConversion",
                          [&] { checked.library.after(instance.value, failed ? 1 : 0); });
    }

    Sound out;
    bool wantsFirstPass = false;
    bool changesTags = false;

private:
    bool Pass(std::uint32_t blockSize, bool isFirstPass);
    bool Take(const DspAudioBlock& block);
    bool Flush();

    Checked& checked;
    Instance& instance;
    const Sound& in;
    XString what;
};

EffectRun::Outcome EffectRun::Begin(const wchar_t* settings) {
    out = Sound();
    out.format = in.format;
    DspBeginBlock block{};
    block.size = sizeof(block);
    block.batchId = 1;
    block.sourcePath = L"C:\\Music\\source.wav";
    const XString outputPath = checked.folder + L"output.wav";
    block.outputPath = outputPath;
    block.settings = settings;
    block.format = &out.format;
    XBuffer tags;
    XTagList list;
    list.Add(L"title", L"Title");
    if (list.Serialize(tags)) {
        block.tagData = tags.data;
        block.tagDataSize = static_cast<std::uint32_t>(tags.size);
    }
    const std::int32_t answer = checked.report.In(
        L"DSP_BeginConversion", [&] { return checked.library.effectBegin(instance.value, &block); });
    if (answer < 0)
        return Outcome::refused;
    if (answer == 0)
        return Outcome::passesOver;
    wantsFirstPass = block.wantsNonLive != 0;
    changesTags = block.tagData != tags.data;
    if (changesTags && block.tagData) {
        const XString fault = TagImageFault(block.tagData, block.tagDataSize);
        checked.report.Demand(fault.IsEmpty(),
                              what + L": the list of tags that DSP_BeginConversion delivers " + fault);
    }
    const XString fault = FormatFault(out.format);
    return checked.report.Demand(fault.IsEmpty(),
                                 what + L": the format that DSP_BeginConversion delivers " + fault)
               ? Outcome::done
               : Outcome::failed;
}

bool EffectRun::Take(const DspAudioBlock& block) {
    if (block.outputFrames == 0)
        return true;
    if (!checked.report.Demand(block.output != nullptr,
                               what + L": the effect says that it has frames and leaves "
                                      L"their address null"))
        return false;
    const std::size_t count = std::size_t{block.outputFrames} * out.format.channels;
    const auto* samples = static_cast<const std::int32_t*>(block.output);
    out.samples.insert(out.samples.end(), samples, samples + count);
    return checked.report.Demand(out.Frames() < mostFrames,
                                 what +
                                     L": the audio that the effect delivers has no end (DSP_EndConversion is "
                                     L"called until outputFrames is 0)");
}

bool EffectRun::Pass(std::uint32_t blockSize, bool isFirstPass) {
    const XString name = isFirstPass ? L"DSP_PassNonLive" : L"DSP_PassAudioBlock";
    const std::uint64_t frames = in.Frames();
    for (std::uint64_t at = 0; at < frames; at += blockSize) {
        DspAudioBlock block{};
        block.inputFrames = static_cast<std::uint32_t>(std::min<std::uint64_t>(blockSize, frames - at));
        const auto* from = in.samples.data() + at * in.format.channels;
        const std::vector<std::int32_t> copy(from,
                                             from + std::size_t{block.inputFrames} * in.format.channels);
        const std::vector<std::int32_t> input = copy; // of its own size, so that a step behind it is found
        block.input = input.data();
        const bool isGood = checked.report.In(name, [&] {
            return (isFirstPass ? checked.library.passNonLive : checked.library.pass)(instance.value,
                                                                                      &block) != 0;
        });
        if (!checked.report.Demand(isGood,
                                   what + L": " + name + L" fails: " + instance.TextOf(ZtKey::lastError)) ||
            !checked.report.Demand(input == copy, what + L": " + name + L" writes into its input") ||
            (!isFirstPass && !Take(block)))
            return false;
    }
    return true;
}

bool EffectRun::Flush() {
    for (;;) {
        DspAudioBlock block{};
        const bool isGood = checked.report.In(
            L"DSP_EndConversion", [&] { return checked.library.effectEnd(instance.value, &block) != 0; });
        if (!checked.report.Demand(isGood, what + L": DSP_EndConversion fails: " +
                                               instance.TextOf(ZtKey::lastError)) ||
            !Take(block))
            return false;
        if (block.outputFrames == 0)
            return true;
    }
}

EffectRun::Outcome EffectRun::Rest(std::uint32_t blockSize) {
    if (wantsFirstPass) {
        DspAudioBlock end{};
        if (!Pass(blockSize, true))
            return Outcome::failed;
        const bool isGood = checked.report.In(L"DSP_PassNonLive at the end", [&] {
            return checked.library.passNonLive(instance.value, &end) != 0;
        });
        if (!checked.report.Demand(
                isGood,
                what + L": DSP_PassNonLive fails at the end of the first pass, which null as input tells"))
            return Outcome::failed;
    }
    PluginParams params{};
    if (instance.Ask(ZtKey::tags, params) != 0) {
        const XString fault = params.data ? TagImageFault(params.data, params.dataSize) : XString();
        checked.report.Demand(fault.IsEmpty(), XString(L"the list that DSP_Get(\"Tags\") delivers ") + fault);
        changesTags = true;
    }
    return Pass(blockSize, false) && Flush() ? Outcome::done : Outcome::failed;
}

bool AreAlike(const Sound& a, const Sound& b) {
    return std::memcmp(&a.format, &b.format, sizeof(a.format)) == 0 && a.samples == b.samples;
}

void TellLength(Checked& checked, const XString& what, const Sound& in, const EffectRun& run) {
    const Sound& out = run.out;
    const XString fault = SampleFault(out.format, out.samples.data(), out.samples.size());
    checked.report.Check(fault.IsEmpty(),
                         what + L": " + UnsignedText(in.Frames()) + L" frames in, " +
                             UnsignedText(out.Frames()) + L" out (" + FormatText(out.format) + L")" +
                             (run.wantsFirstPass ? L", after a first pass" : L"") +
                             (run.changesTags ? L", other tags" : L""),
                         what + L": the samples that the effect delivers " + fault);
    if (out.Frames() == 0)
        checked.report.Note(what + L": nothing is left of the audio");
}

// Block sizes, and a second beginning on the same instance, must not show in what comes out.
bool CheckFormat(Checked& checked, const FormatRow& row) {
    const Sound in = MakeSound(SoundFormat(row.isFloat, row.bits, row.channels, row.frequency), soundMs);
    const XString what = FormatText(in.format);
    Instance instance(checked);
    EffectRun run(checked, instance, in, what);
    const EffectRun::Outcome begun = run.Begin();
    if (begun == EffectRun::Outcome::refused) {
        const XString words = instance.TextOf(ZtKey::lastError);
        const bool isUsual = &row == formats;
        if (words.IsEmpty())
            checked.report.Broken(what + L" is refused, and DSP_Get(\"Last Error\") does not say why");
        else
            checked.report.Tell(isUsual ? Finding::broken : Finding::note, what + L" is refused: " + words);
        return false;
    }
    if (begun == EffectRun::Outcome::passesOver) {
        checked.report.Ok(what + L": the effect wants none of the audio");
        return true;
    }
    if (begun == EffectRun::Outcome::failed || run.Rest(blockSizes[0]) == EffectRun::Outcome::failed)
        return false;
    run.After(false);
    TellLength(checked, what, in, run);
    for (const std::uint32_t size : blockSizes) {
        EffectRun again(checked, instance, in, what);
        if (again.Begin() != EffectRun::Outcome::done ||
            !checked.report.Demand(std::memcmp(&again.out.format, &run.out.format, sizeof(run.out.format)) ==
                                           0 &&
                                       again.wantsFirstPass == run.wantsFirstPass,
                                   what + L": the instance does not begin twice alike") ||
            again.Rest(size) == EffectRun::Outcome::failed)
            return false;
        again.After(size == 1); // the last one as a failure
        if (!checked.report.Demand(
                AreAlike(run.out, again.out),
                what + L": in blocks of " + DecimalText(size) + L" frames " +
                    (size == blockSizes[0] ? L"the second file on one instance" : L"the same file") +
                    L" comes out otherwise (" + UnsignedText(again.out.Frames()) + L" frames)"))
            return false;
    }
    return true;
}

// A conversion that ends early, and settings that are not good.
void CheckEarlyEnds(Checked& checked) {
    const Sound in = MakeSound(SoundFormat(false, 16, 2, 44100), soundMs);
    {
        Instance instance(checked);
        EffectRun run(checked, instance, in, L"an early end");
        if (run.Begin() == EffectRun::Outcome::done)
            run.After(true);
        EffectRun next(checked, instance, in, L"a file after an early end");
        if (next.Begin() == EffectRun::Outcome::done && next.Rest(blockSizes[0]) == EffectRun::Outcome::done)
            next.After(false);
    }
    {
        Instance instance(checked);
        EffectRun run(checked, instance, in, L"null settings");
        checked.report.Demand(run.Begin(nullptr) != EffectRun::Outcome::refused,
                              L"DSP_BeginConversion refuses null settings, which mean the defaults");
    } // and goes while a file is under way
    Instance instance(checked);
    EffectRun run(checked, instance, in, L"nonsense as settings");
    if (run.Begin(L"-no_such_option=\"nonsense\" \" =") == EffectRun::Outcome::refused)
        checked.report.Demand(
            !instance.TextOf(ZtKey::lastError).IsEmpty(),
            L"nonsense as settings is refused, and DSP_Get(\"Last Error\") does not say why");
    checked.report.Ok(L"early ends and odd settings do no harm");
}

} // namespace

void CheckEffectKeys(Checked& checked) {
    Instance instance(checked);
    if (!instance.value)
        return;
    static_cast<void>(instance.TextOf(ZtKey::lastError));
    constexpr std::uint32_t noRecords = 0;
    for (const wchar_t* settings : {L"", static_cast<const wchar_t*>(nullptr)}) {
        PluginParams params{};
        params.number = 1;
        params.data = &noRecords;
        params.dataSize = sizeof(noRecords);
        params.text1 = settings;
        params.text2 = L"";
        params.text3 = L"Wave";
        instance.Ask(ZtKey::batchErrors, params);
        instance.Ask(ZtKey::batchEndConversion, params);
        params = {};
        params.data = &noRecords;
        params.dataSize = sizeof(noRecords);
        if (instance.Ask(ZtKey::tags, params) != 0 && params.data) {
            const XString fault = TagImageFault(params.data, params.dataSize);
            checked.report.Demand(fault.IsEmpty(),
                                  XString(L"the list that DSP_Get(\"Tags\") delivers ") + fault);
        }
    }
    checked.report.Ok(L"a batch without files ends well");
}

void CheckEffectAudio(Checked& checked) {
    bool isGood = true;
    for (const FormatRow& row : formats)
        isGood = CheckFormat(checked, row) && isGood;
    if (isGood)
        checked.report.Ok(L"neither the size of blocks nor an earlier file shows in what comes out");
    CheckEarlyEnds(checked);
}
