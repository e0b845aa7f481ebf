#include "worker/SourceReader.h"

#include "contract/Keys.h"
#include "foundation/XPath.h"
#include "host/DecoderCatalogue.h"
#include "worker/AudioText.h"
#include "worker/SystemText.h"

#include <cstring>

namespace {

// Why the system does not let the file be read; empty if it does.
XString ReadRefusal(const XString& longPath) {
    const XFileHandle file(CreateFileW(longPath, GENERIC_READ,
                                       FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                       OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    const DWORD error = GetLastError();
    return file.IsValid() ? XString() : SystemErrorText(error);
}

} // namespace

void SourceReader::Error(const XString& what) {
    reporter.Error(XString(L"Error reading '") + path + L"': " + what);
}

XString SourceReader::LastError() const {
    PluginParams params{};
    if (decoder.AskGet(ZtKey::lastError, params) == 0 || !params.text1 || params.text1[0] == 0)
        return XString();
    return XString(L" (") + params.text1 + L")";
}

bool SourceReader::OpenFile(std::uint32_t wanted, DecoderOpenBlock& block) {
    block = DecoderOpenBlock{};
    block.path = longPath.Text();
    block.wanted = wanted;
    position = 0;
    return decoder.AskOpen(block) != 0;
}

void SourceReader::ReportRefusal() {
    const XString decoderText = LastError();
    const XString refusal = ReadRefusal(longPath);
    Error(refusal.IsEmpty()
              ? XString(L"the file is damaged, or of a format that is not supported") + decoderText
              : refusal);
}

bool SourceReader::Open(const XString& sourcePath) {
    path = sourcePath;
    longPath = LongPath(path, longFileLimit);
    PluginCreateBlock create{};
    if (!OpenDecoderFor(path, decoder, &create)) {
        const XString refusal = ReadRefusal(longPath);
        Error(refusal.IsEmpty() ? XString(L"no decoder takes files of the type '") + ExtensionOf(path) + L"'"
                                : refusal);
        return false;
    }
    DecoderOpenBlock block;
    if (!OpenFile(ztOpenAll, block)) {
        ReportRefusal();
        return false;
    }
    std::memcpy(&format, &block.format, sizeof(format));
    if (!IsUsableFormat(format)) {
        Error(L"the decoder describes audio that can't be");
        return false;
    }
    const std::uint64_t size = std::uint64_t{blockFrames} * format.channels * format.sampleBytes;
    const bool hasTags = block.tagData && block.tagDataSize != 0;
    const bool hasProperties = block.propertyData && block.propertyDataSize != 0;
    if (!frames.SetSize(size, false, false) || (hasTags && !tags.Set(block.tagData, block.tagDataSize)) ||
        (hasProperties && !properties.Set(block.propertyData, block.propertyDataSize))) {
        Error(L"there is not enough memory");
        return false;
    }
    return true;
}

bool SourceReader::Rewind() {
    if (position == 0)
        return true;
    decoder.Close(decoder.instance);
    DecoderOpenBlock block;
    if (OpenFile(ztOpenFormat, block) && block.format.channels == format.channels &&
        block.format.frequency == format.frequency && block.format.sampleKind == format.sampleKind)
        return true;
    Error(XString(L"the file can't be read once more") + LastError());
    return false;
}

std::int32_t SourceReader::Read() {
    const std::int32_t count = decoder.DecodeBlock(decoder.instance, frames.data, blockFrames);
    if (count == 0)
        return IsEndSound() ? 0 : -1;
    if (count < 0 || static_cast<std::uint32_t>(count) > blockFrames) {
        Error(position == 0 ? L"nothing of it could be decoded" + LastError()
                            : XString(L"the file is damaged after ") +
                                  PlayTimeText(FramesToMs(position, format.frequency)) + LastError());
        return -1;
    }
    position += static_cast<std::uint32_t>(count);
    return count;
}

bool SourceReader::IsEndSound() {
    const std::uint64_t announced = AnnouncedFrames(format);
    const bool isExact = (format.flags & ztFormatExactLength) != 0;
    if (position >= announced && (position > 0 || isExact))
        return true;
    const XString decoded = PlayTimeText(FramesToMs(position, format.frequency));
    const XString whole = PlayTimeText(FramesToMs(announced, format.frequency));
    if (isExact) {
        Error(XString(L"the file is truncated: only ") + decoded + L" of " + whole + L" could be decoded");
        return false;
    }
    if (position == 0) {
        Error(L"it holds no audio that could be decoded");
        return false;
    }
    // A guess that is far off may be a truncated file or a wrong guess: worth a word, not a failure.
    const bool isFarOff = announced - position > format.frequency && position < announced / 50 * 49;
    if (isFarOff)
        reporter.Information(XString(L"'") + path + L"' seemed to be " + whole + L" long and is " + decoded +
                             L".");
    return true;
}

void SourceReader::ReportInformation() {
    PluginParams params{};
    if (decoder.AskGet(ZtKey::information, params) != 0 && params.text1)
        reporter.InformationLines(params.text1);
}

void SourceReader::Close() {
    decoder.DestroyInstance(); // the library stays, since it mostly opens the finished file, too
}
