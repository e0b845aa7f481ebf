#include "worker/Conversion.h"

#include "contract/Keys.h"
#include "contract/Worker.h"
#include "foundation/XPath.h"
#include "host/CodecHandler.h"
#include "host/DecoderFilter.h"
#include "worker/AudioText.h"
#include "worker/ForcedEnd.h"
#include "worker/OutputCheck.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr int highestRunningPercent = 99; // 100 is said of a file that has its name
constexpr wchar_t actionAnalysing[] = L"Analysing";
constexpr wchar_t actionConverting[] = L"Converting";
constexpr wchar_t actionChecking[] = L"Checking";

} // namespace

// The output begins with its first frames, so that a source without any leaves no trace.
class Conversion::EncoderSink final : public FrameSink {
public:
    explicit EncoderSink(Conversion& owner) : owner(owner) {}
    bool Take(const void* frames, std::uint32_t count) override {
        if (!owner.BeginEncoder())
            return false;
        if (owner.encoder.ENC_EncodeBlock(owner.encoder.instance, frames, count) == 0) {
            owner.target.Error(XString(L"the encoder failed") + owner.EncoderError());
            return false;
        }
        owner.framesWritten += count;
        return true;
    }

private:
    Conversion& owner;
};

class Conversion::FirstPassSink final : public FrameSink {
public:
    FirstPassSink(EffectChainRunner& effects, int index) : effects(effects), index(index) {}
    bool Take(const void* frames, std::uint32_t count) override {
        return effects.RunFirstPass(index, frames, count);
    }

private:
    EffectChainRunner& effects;
    int index;
};

Conversion::Conversion(const clWorkerCommand& command, Reporter& reporter, Lifeline& lifeline)
    : command(command), reporter(reporter), lifeline(lifeline), source(reporter), effects(command, reporter),
      target(command.outFile, reporter),
      leavesNoFile(ExtensionOf(command.outFile).EqualsNoCase(ignoredExtensionMark)) {
    SetForcedEndTarget(&target);
}

Conversion::~Conversion() {
    SetForcedEndTarget(nullptr);
}

XString Conversion::EncoderError() const {
    PluginParams params{};
    if (encoder.AskGet(ZtKey::lastError, params) == 0 || !params.text1 || params.text1[0] == 0)
        return XString();
    return XString(L" (") + params.text1 + L")";
}

bool Conversion::LoadEncoder() {
    PluginCreateBlock create{};
    if (!clZtCodecHandler::LoadEncoder(command.encoder, encoder, &create)) {
        target.Error(XString(L"the encoder '") + command.encoder + L"' is not installed or can't be loaded");
        return false;
    }
    PluginParams params{};
    params.text1 = command.settings;
    if (encoder.AskGet(ZtKey::checkSettings, params) == 0 && params.text2) {
        target.Error(XString(L"the settings of '") + command.encoder + L"' are wrong: " + params.text2);
        return false;
    }
    return true;
}

bool Conversion::BeginEncoder() {
    if (isEncoding)
        return true;
    if (!leavesNoFile && !target.Prepare())
        return false;
    EncoderBeginBlock block{};
    block.size = sizeof(block);
    block.batchId = command.batchId;
    block.outputPath = leavesNoFile ? command.outFile : target.Temporary();
    block.sourcePath = command.inFile;
    block.settings = command.settings;
    block.format = &effects.format;
    block.tagData = effects.tagData;
    block.tagDataSize = effects.tagDataSize;
    block.propertyData = source.properties.size != 0 ? source.properties.data : nullptr;
    block.propertyDataSize = static_cast<std::uint32_t>(source.properties.size);
    if (encoder.ENC_BeginConversion(encoder.instance, &block) == 0) {
        target.Error(XString(L"the encoder can't begin") + EncoderError());
        return false;
    }
    isEncoding = true;
    reporter.Message(ZtWorker::keyActionOutput, OutputText(command.encoder, effects.format));
    return true;
}

void Conversion::EndEncoder(bool completed, bool& isGood) {
    isGood = encoder.ENC_EndConversion(encoder.instance, completed ? 1 : 0) != 0;
    isEncoding = false;
    if (completed && !isGood)
        target.Error(XString(L"the encoder can't complete the file") + EncoderError());
    else if (completed)
        ReportInformation();
}

// What the plug-ins have to say of a file that went through whole.
void Conversion::ReportInformation() {
    source.ReportInformation();
    effects.ReportInformation();
    PluginParams params{};
    if (encoder.AskGet(ZtKey::information, params) != 0 && params.text1)
        reporter.InformationLines(params.text1);
}

void Conversion::LearnWritten() {
    PluginParams params{};
    if (encoder.AskGet(ZtKey::writtenFormat, params) != 0 && params.data)
        std::memcpy(&written.format, params.data, sizeof(written.format));
    params = PluginParams{};
    if (encoder.AskGet(ZtKey::writtenTags, params) != 0 && params.data)
        written.tags.Deserialize(params.data, params.dataSize);
}

void Conversion::ReportProgress() {
    const std::uint64_t announced = AnnouncedFrames(source.format);
    if (announced == 0)
        return;
    const double passPart =
        std::min(1.0, static_cast<double>(source.Position()) / static_cast<double>(announced));
    const int percent = static_cast<int>((passesDone + passPart) / passes * 100);
    reporter.Percent(std::min(percent, highestRunningPercent));
}

clStep Conversion::Pass(int count, FrameSink& sink) {
    if (!source.Rewind())
        return stepFailed;
    for (;;) {
        if (!lifeline.Pulse())
            return stepCancelled;
        const std::int32_t frames = source.Read();
        if (frames < 0)
            return stepFailed;
        if (frames == 0)
            break;
        if (!effects.Run(count, source.Frames(), static_cast<std::uint32_t>(frames), sink))
            return stepFailed;
        ReportProgress();
    }
    const clStep step = effects.Flush(count, sink, lifeline);
    ++passesDone;
    return step;
}

int Conversion::CountFirstPasses(int count) const {
    int needed = 0;
    for (int index = 0; index < count; ++index)
        if (effects.WantsFirstPass(index))
            needed += 1 + CountFirstPasses(index);
    return needed;
}

// A first pass hears what the effects ahead deliver, so those run live for it and start anew after it,
// with first passes of their own again. Rarely does more than one effect ask.
clStep Conversion::Prepare(int count) {
    for (int index = 0; index < count; ++index) {
        if (!effects.WantsFirstPass(index))
            continue;
        FirstPassSink sink(effects, index);
        clStep step = Pass(index, sink);
        if (step == stepGood && !effects.RunFirstPass(index, nullptr, 0))
            step = stepFailed;
        if (step == stepGood && index > 0)
            step = effects.Restart(index) ? Prepare(index) : stepFailed;
        if (step != stepGood)
            return step;
    }
    return stepGood;
}

clStep Conversion::CheckAndCommit() {
    LearnWritten();
    // Their handles of source and output must be gone before files change names.
    encoder.Unload();
    source.Close();
    if (leavesNoFile)
        return stepGood;
    reporter.Message(ZtWorker::keyAction, actionChecking);
    XString fault;
    const clStep step =
        CheckOutput(target.Temporary(), written, framesWritten, effects.format.frequency, lifeline, fault);
    if (step == stepFailed)
        target.Error(fault);
    return step == stepGood ? target.Commit(lifeline) : step;
}

clStep Conversion::Convert() {
    if (!lifeline.Pulse())
        return stepCancelled;
    if (!source.Open(command.inFile))
        return stepFailed;
    reporter.Message(ZtWorker::keyActionInput, InputText(command.inFile, source.format));
    if (!LoadEncoder() || !effects.Begin(source.format, source.tags))
        return stepFailed;
    passes += CountFirstPasses(effects.Count());
    reporter.Message(ZtWorker::keyAction, passes > 1 ? actionAnalysing : actionConverting);
    clStep step = Prepare(effects.Count());
    if (step != stepGood)
        return step;
    if (!effects.CollectTags())
        return stepFailed;
    if (passes > 1)
        reporter.Message(ZtWorker::keyAction, actionConverting);
    EncoderSink sink(*this);
    step = Pass(effects.Count(), sink);
    if (step != stepGood)
        return step;
    if (framesWritten == 0 && source.Position() > 0) {
        // A file without audio would look like a success.
        reporter.Error(XString(L"Error converting '") + command.inFile +
                       L"': the effects leave no audio of it");
        return stepFailed;
    }
    bool isGood = BeginEncoder(); // a source without a frame is a file all the same
    if (isGood)
        EndEncoder(true, isGood);
    return isGood ? CheckAndCommit() : stepFailed;
}

clStep Conversion::Run() {
    const clStep step = Convert();
    if (isEncoding) {
        bool ignored = false;
        EndEncoder(false, ignored);
    }
    encoder.Unload();
    source.Close();
    target.Discard();
    effects.Finish(step != stepGood);
    if (step == stepGood)
        reporter.Percent(100);
    return step;
}
