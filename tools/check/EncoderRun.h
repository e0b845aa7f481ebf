// One conversion by an encoder, as the worker makes it.
#pragma once

#include "Library.h"
#include "Sound.h"
#include "foundation/XBuffer.h"

struct EncoderRun {
    enum class Outcome { refused, failed, complete }; // at Begin, later, not at all

    // The file goes into the folder of the checks; `extension` with its dot.
    EncoderRun(Checked& checked, const XString& extension);
    ~EncoderRun();
    EncoderRun(const EncoderRun&) = delete;
    EncoderRun& operator=(const EncoderRun&) = delete;

    // Begin alone; `path` is what gets written.
    bool Begin(Instance& instance, const AudioFormatRecord& format, const XBuffer* tags = nullptr,
               const wchar_t* settings = L"");
    bool Encode(Instance& instance, const Sound& sound); // in blocks of different sizes
    bool End(Instance& instance, bool completed);
    Outcome Convert(Instance& instance, const Sound& sound, const XBuffer* tags = nullptr);
    // True if the file can be deleted, thus is closed, or is not there.
    [[nodiscard]] bool Delete() const;
    [[nodiscard]] std::int64_t SizeBytes() const; // -1 if it is not there

    Checked& checked;
    XString path;
};
