#include "EncoderRun.h"

#include <algorithm>

namespace {
constexpr std::uint32_t blockFrames[] = {1, 4096, 7, 8192};
}

EncoderRun::EncoderRun(Checked& checked, const XString& extension) : checked(checked) {
    static int number = 0;
    path = checked.folder + L"output \x00E4 " + DecimalText(++number) + extension;
}

EncoderRun::~EncoderRun() {
    DeleteFileW(path);
}

bool EncoderRun::Begin(Instance& instance, const AudioFormatRecord& format, const XBuffer* tags,
                       const wchar_t* settings) {
    EncoderBeginBlock block{};
    block.size = sizeof(block);
    block.batchId = 1;
    block.outputPath = path;
    block.sourcePath = L"C:\\Music\\source.wav";
    block.settings = settings;
    block.format = &format;
    block.tagData = tags ? tags->data : nullptr;
    block.tagDataSize = tags ? static_cast<std::uint32_t>(tags->size) : 0;
    return checked.report.In(L"ENC_BeginConversion",
                             [&] { return checked.library.encoderBegin(instance.value, &block) != 0; });
}

bool EncoderRun::Encode(Instance& instance, const Sound& sound) {
    const std::uint64_t frames = sound.Frames();
    int size = 0;
    for (std::uint64_t at = 0; at < frames; size = (size + 1) % 4) {
        const auto count =
            static_cast<std::uint32_t>(std::min<std::uint64_t>(blockFrames[size], frames - at));
        // A block of its own: a plug-in that reads behind it, or keeps the pointer, finds something else.
        const std::vector<std::int32_t> block(
            sound.samples.begin() + static_cast<std::ptrdiff_t>(at * sound.format.channels),
            sound.samples.begin() + static_cast<std::ptrdiff_t>((at + count) * sound.format.channels));
        const bool isGood = checked.report.In(L"ENC_EncodeBlock", [&] {
            return checked.library.encode(instance.value, block.data(), count) != 0;
        });
        if (!isGood)
            return false;
        at += count;
    }
    return true;
}

bool EncoderRun::End(Instance& instance, bool completed) {
    return checked.report.In(completed ? L"ENC_EndConversion(1)" : L"ENC_EndConversion(0)", [&] {
        return checked.library.encoderEnd(instance.value, completed ? 1 : 0) != 0;
    });
}

EncoderRun::Outcome EncoderRun::Convert(Instance& instance, const Sound& sound, const XBuffer* tags) {
    if (!Begin(instance, sound.format, tags))
        return Outcome::refused;
    if (!Encode(instance, sound)) {
        End(instance, false);
        return Outcome::failed;
    }
    return End(instance, true) ? Outcome::complete : Outcome::failed;
}

bool EncoderRun::Delete() const {
    return DeleteFileW(path) != FALSE || GetLastError() == ERROR_FILE_NOT_FOUND;
}

std::int64_t EncoderRun::SizeBytes() const {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (!GetFileAttributesExW(path, GetFileExInfoStandard, &data))
        return -1;
    return static_cast<std::int64_t>(std::uint64_t{data.nFileSizeHigh} << 32 | data.nFileSizeLow);
}
