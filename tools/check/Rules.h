// What texts, images, formats and samples have to be like. Every function answers the fault in words
// that follow a subject ("holds a line end"), empty if there is none. Portable.
#pragma once

#include "contract/Plugin.h"
#include "foundation/XString.h"

[[nodiscard]] XString ExtensionFault(const XString& extension); // ".flac"
// A settings text as part of the worker's command, and for an effect inside a chain.
[[nodiscard]] XString EncoderSettingsFault(const XString& settings);
[[nodiscard]] XString EffectSettingsFault(const XString& settings);
[[nodiscard]] XString RequiredEffectFault(const XString& specification); // "name=settings"
[[nodiscard]] XString TagImageFault(const void* image, std::uint32_t size);
[[nodiscard]] XString FormatFault(const AudioFormatRecord& format);
// Samples, not frames: in the range that bitsPerSample gives, float ones finite.
[[nodiscard]] XString SampleFault(const AudioFormatRecord& format, const std::int32_t* samples,
                                  std::uint64_t count);
[[nodiscard]] XString FormatText(const AudioFormatRecord& format); // "16 bit, 2 channels, 44100 Hz"
