// One file from source to target: the loop that does the work of a worker. Windows only.
#pragma once

#include "host/clZtEncoder.h"
#include "worker/EffectChainRunner.h"
#include "worker/OutputJudge.h"
#include "worker/SourceReader.h"
#include "worker/TargetFile.h"

class Conversion {
public:
    Conversion(const clWorkerCommand& command, Reporter& reporter, Lifeline& lifeline);
    ~Conversion();
    Conversion(const Conversion&) = delete;
    Conversion& operator=(const Conversion&) = delete;

    // The target stands complete after stepGood; otherwise nothing of this conversion does.
    [[nodiscard]] clStep Run();

private:
    [[nodiscard]] clStep Convert();
    [[nodiscard]] bool LoadEncoder();
    [[nodiscard]] bool BeginEncoder();
    void EndEncoder(bool completed, bool& isGood);
    void ReportInformation();
    void LearnWritten(); // what the file is to hold, while the encoder is there to say it
    [[nodiscard]] XString EncoderError() const; // in brackets behind a blank; or empty

    // The source through the first `count` effects into the sink, to the last frame.
    [[nodiscard]] clStep Pass(int count, FrameSink& sink);
    // First passes of all who want one among the first `count` effects.
    [[nodiscard]] clStep Prepare(int count);
    [[nodiscard]] int CountFirstPasses(int count) const;
    [[nodiscard]] clStep CheckAndCommit();
    void ReportProgress();

    class EncoderSink;
    class FirstPassSink;

    const clWorkerCommand& command;
    Reporter& reporter;
    Lifeline& lifeline;
    SourceReader source;
    EffectChainRunner effects;
    TargetFile target;
    const bool leavesNoFile; // the encoder's own affair what becomes of the audio
    clZtEncoder encoder;
    clWritten written;
    bool isEncoding = false;
    std::uint64_t framesWritten = 0;
    int passes = 1;
    int passesDone = 0;
};
