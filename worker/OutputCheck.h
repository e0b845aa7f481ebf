// Opens a finished output like any other source and compares length, format and tags to what was put in.
// Windows only.
#pragma once

#include "worker/Lifeline.h"
#include "worker/OutputJudge.h"

// `path` is the file as it stands, `frames` what the encoder got. stepGood also if no decoder takes
// such files. What is wrong goes into `fault`, and nothing is reported.
[[nodiscard]] clStep CheckOutput(const XString& path, const clWritten& written, std::uint64_t frames,
                                 std::uint32_t frequency, Lifeline& lifeline, XString& fault);
