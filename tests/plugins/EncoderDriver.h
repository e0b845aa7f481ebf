// Drives an encoder library through its exports as the worker does, and reads back what it wrote.
#pragma once

#include "FileBytes.h"
#include "foundation/XTagList.h"
#include "foundation/XTempFile.h"
#include "host/clZtEncoder.h"
#include "tests/support/PcmRecord.h"

// The program folder of this build, with a backslash at its end.
[[nodiscard]] XString TestedProgramFolder();

// Floating point, with 0 bits, that no lossy coding has made.
[[nodiscard]] AudioFormatRecord FormatOf(int channels, int bits, std::uint32_t frequency);

// A sine with noise on it, another one per channel, in the format's kind; interleaved.
[[nodiscard]] std::vector<std::int32_t> TestSignal(const AudioFormatRecord& format, std::size_t frames);

class EncoderDriver {
public:
    explicit EncoderDriver(const wchar_t* name); // such as L"Wave"

    // Begin, blocks of odd sizes, End. False at the first refusal. `bytes` is then the file.
    bool Convert(const AudioFormatRecord& format, const std::vector<std::int32_t>& samples,
                 const wchar_t* settings = L"", const XTagList* tags = nullptr);
    // The text that a key gives; empty if it is answered with no.
    [[nodiscard]] XString Text(const wchar_t* key) const;
    [[nodiscard]] XString LastError() const { return Text(L"Last Error"); }
    // Of settings; empty if they are good.
    [[nodiscard]] XString SettingsFault(const wchar_t* settings) const;

    clZtEncoder library;
    XString outputPath;
    ByteVector bytes;

private:
    XTempFile output;
};
