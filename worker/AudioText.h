// What the worker says of audio, and how it judges lengths. Portable.
#pragma once

#include "contract/Plugin.h"
#include "foundation/XString.h"

[[nodiscard]] XString DescribeAudio(const AudioFormatRecord& format); // "44.1 kHz stereo"
// "Input: FLAC 44.1 kHz stereo"; the kind of file is its extension.
[[nodiscard]] XString InputText(const XString& path, const AudioFormatRecord& format);
[[nodiscard]] XString OutputText(const XString& encoder, const AudioFormatRecord& format);
[[nodiscard]] XString PlayTimeText(std::uint64_t milliseconds); // "3:07.250"

[[nodiscard]] std::uint64_t FramesToMs(std::uint64_t frames, std::uint32_t frequency); // rounded
// What a source announces; 0 if it says nothing.
[[nodiscard]] std::uint64_t AnnouncedFrames(const AudioFormatRecord& format);
// Whether a decoder's answer makes sense: kind, width, channels, rate.
[[nodiscard]] bool IsUsableFormat(const AudioFormatRecord& format);

// How the length of an output compares to what went in.
enum clLengthVerdict {
    lengthGood,
    lengthWrong,    // it is told to the frame, and it is not that
    lengthUnproven, // the file's announcement is off or missing, and may be a guess: count it
};
inline constexpr std::uint64_t lengthToleranceMs = 100;
[[nodiscard]] clLengthVerdict JudgeLength(const AudioFormatRecord& output, std::uint64_t framesIn,
                                          std::uint32_t frequencyIn);
// The verdict on frames that were counted by decoding.
[[nodiscard]] bool IsCountedLengthGood(const AudioFormatRecord& output, std::uint64_t counted,
                                       std::uint64_t framesIn, std::uint32_t frequencyIn);
