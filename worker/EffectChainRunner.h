// The effects of a conversion in their order: each gets what the one before it delivers. Windows only.
#pragma once

#include "foundation/XBuffer.h"
#include "host/EffectChain.h"
#include "host/clZtDSP.h"
#include "worker/CommandText.h"
#include "worker/Lifeline.h"

// Takes frames; false if it failed and has reported so.
class FrameSink {
public:
    virtual ~FrameSink() = default;
    [[nodiscard]] virtual bool Take(const void* frames, std::uint32_t count) = 0;
};

class EffectChainRunner {
public:
    EffectChainRunner(const clWorkerCommand& command, Reporter& reporter)
        : command(command), reporter(reporter) {}
    ~EffectChainRunner() { Finish(true); }
    EffectChainRunner(const EffectChainRunner&) = delete;
    EffectChainRunner& operator=(const EffectChainRunner&) = delete;

    // Loads and begins all; those that want none of this file's audio are let go at once. The tag
    // image must outlive this object.
    [[nodiscard]] bool Begin(const AudioFormatRecord& source, const XBuffer& tags);
    [[nodiscard]] int Count() const noexcept { return static_cast<int>(effects.Count()); }
    [[nodiscard]] bool WantsFirstPass(int index) const { return effects[index].wantsFirstPass; }

    // Frames through the first `count` effects into the sink.
    [[nodiscard]] bool Run(int count, const void* frames, std::uint32_t frameCount, FrameSink& sink);
    // After the last frames: what those effects still hold.
    [[nodiscard]] clStep Flush(int count, FrameSink& sink, Lifeline& lifeline);
    // When all first passes are over: lets the effects say in tags what they have found.
    [[nodiscard]] bool CollectTags();
    // Frames, or null at the end, for the effect's first pass.
    [[nodiscard]] bool RunFirstPass(int index, const void* frames, std::uint32_t frameCount);
    // The first `count` effects anew, after they ran for the first pass of one behind them.
    [[nodiscard]] bool Restart(int count);
    void ReportInformation(); // after a Flush of all: what they have to say of the file
    void Finish(bool failed); // tells all and lets them go

    AudioFormatRecord format{}; // what the chain delivers
    const void* tagData = nullptr;
    std::uint32_t tagDataSize = 0;

private:
    struct Effect {
        XString name;
        XString settings;
        clZtDSP library;
        AudioFormatRecord input{};
        AudioFormatRecord output{};
        const void* inputTags = nullptr; // borrowed from the source or the effect before
        std::uint32_t inputTagsSize = 0;
        XBuffer ownTags; // if it changed them
        std::uint64_t framesIn = 0;
        bool isBegun = false;
        bool wantsFirstPass = false;
    };
    enum class Answer { takesAudio, passesOver, failed };
    [[nodiscard]] Answer BeginOne(Effect& effect);
    [[nodiscard]] bool TakeTags(Effect& effect, const void* image, std::uint32_t size);
    [[nodiscard]] bool Feed(int index, int count, const void* frames, std::uint32_t frameCount,
                            FrameSink& sink);
    void Error(const Effect& effect, const wchar_t* what); // with the effect's own words

    const clWorkerCommand& command;
    Reporter& reporter;
    XArray<Effect> effects;
};
