// Drives an encoder library through its exports as the worker does, and reads back what it wrote.
#pragma once

#include "contract/Plugin.h"
#include "foundation/XHandles.h"
#include "foundation/XTagList.h"
#include "foundation/XTempFile.h"

#include <vector>

// The program folder of this build, with a backslash at its end.
[[nodiscard]] XString TestedProgramFolder();

[[nodiscard]] AudioFormatRecord IntegerFormat(int channels, int bits, std::uint32_t frequency);
[[nodiscard]] AudioFormatRecord FloatFormat(int channels, std::uint32_t frequency);

// A sine with noise on it, another one per channel, in the format's kind; interleaved.
[[nodiscard]] std::vector<std::int32_t> TestSignal(const AudioFormatRecord& format, std::size_t frames);

class EncoderDriver {
public:
    explicit EncoderDriver(const wchar_t* name); // such as L"Wave"
    ~EncoderDriver();

    // Begin, blocks of odd sizes, End. False at the first refusal. `bytes` is then the file.
    bool Convert(const AudioFormatRecord& format, const std::vector<std::int32_t>& samples,
                 const wchar_t* settings = L"", const XTagList* tags = nullptr);
    [[nodiscard]] XString LastError();

    ZtInstance instance = nullptr;
    EncoderGet get = nullptr;
    EncoderShowConfigBit showPanel = nullptr;
    EncoderRemoveConfigBit removePanel = nullptr;
    EncoderBeginConversion begin = nullptr;
    EncoderEncodeBlock encode = nullptr;
    EncoderEndConversion end = nullptr;
    XString outputPath;
    std::vector<unsigned char> bytes;

private:
    template <class Function>
    void Bind(Function& function, const char* name);

    XModule module;
    EncoderDestroy destroy = nullptr;
    XTempFile output;
};

// Little-endian and big-endian numbers of a file's bytes; 0 past the end.
[[nodiscard]] std::uint64_t LittleAt(const std::vector<unsigned char>& bytes, std::size_t at, int count);
[[nodiscard]] std::uint64_t BigAt(const std::vector<unsigned char>& bytes, std::size_t at, int count);
