#include "plugins/dsp/OutputProbe.h"

#include "foundation/XPath.h"
#include "host/DecoderCatalogue.h"

#include <algorithm>
#include <cstring>
#include <vector>

namespace {

constexpr std::uint64_t endFrames = 8192; // of which the last must be there
constexpr std::size_t mostChannels = 1024;

// The plug-in folders are those among which this library stands.
XString OwnRoot() {
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<const wchar_t*>(&OwnRoot), &module);
    constexpr int longestPath = 32768;
    XString path;
    path.SetLength(longestPath);
    GetModuleFileNameW(module, path.Buffer(), longestPath);
    path.FitLength();
    return FolderOf(StripBackslash(FolderOf(path)));
}

} // namespace

OutputProbe::OutputProbe() {
    SetPluginRoot(OwnRoot());
}

bool OutputProbe::Open(const XString& path, AudioFormatRecord& format) {
    PluginCreateBlock create{};
    if (!OpenDecoderFor(path, decoder, &create))
        return false;
    const XString longPath = LongPath(path, longFileLimit);
    DecoderOpenBlock block{};
    block.path = longPath.Text();
    block.wanted = ztOpenFormat;
    const bool isOpen = decoder.AskOpen(block) != 0;
    std::memcpy(&format, &block.format, sizeof format);
    return isOpen && format.channels >= 1 && format.channels <= mostChannels && format.frequency >= 1;
}

bool OutputProbe::DecodesEnd(const AudioFormatRecord& format) const {
    const std::uint64_t frames =
        format.frameCount ? format.frameCount : format.lengthMs * format.frequency / 1000;
    if (decoder.SetPosition(decoder.instance, frames - std::min(frames, endFrames)) == 0)
        return false;
    std::vector<std::int32_t> samples(endFrames * format.channels);
    std::uint64_t heard = 0;
    for (;;) {
        const std::int32_t count = decoder.DecodeBlock(decoder.instance, samples.data(), endFrames);
        if (count <= 0)
            // An announcement to the frame must come true; a guess by half.
            return count == 0 &&
                   heard >= std::min(frames, endFrames) / ((format.flags & ztFormatExactLength) != 0 ? 1 : 2);
        heard += static_cast<std::uint32_t>(count);
    }
}

bool OutputProbe::ReadFormat(const XString& path, AudioFormatRecord& format) {
    const bool isGood = Open(path, format);
    decoder.DestroyInstance();
    return isGood;
}

bool OutputProbe::ReadWhole(const XString& path, AudioFormatRecord& format) {
    const bool isGood = Open(path, format) && DecodesEnd(format);
    decoder.DestroyInstance();
    return isGood;
}

FileIdentity IdentityOf(const XString& path) {
    const XFileHandle file(CreateFileW(LongPath(path, longFileLimit), 0,
                                       FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                       OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    BY_HANDLE_FILE_INFORMATION information{};
    if (!file.IsValid() || !GetFileInformationByHandle(file.Get(), &information))
        return {};
    return {information.dwVolumeSerialNumber,
            std::uint64_t{information.nFileIndexHigh} << 32 | information.nFileIndexLow};
}
