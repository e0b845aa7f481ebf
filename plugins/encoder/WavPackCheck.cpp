#include "plugins/encoder/WavPackCheck.h"

#include "foundation/XFile.h"
#include "foundation/XPath.h"
#include "plugins/common/PcmConvert.h"

#include <wavpack/wavpack.h>

#include <cstring>
#include <memory>
#include <vector>

namespace {

constexpr std::uint32_t runFrames = 4096;
constexpr std::size_t messageBytes = 128; // the library writes up to 80

XFile& FileOf(void* file) noexcept {
    return *static_cast<XFile*>(file);
}

std::int64_t Move(void* file, std::int64_t distance, DWORD from) noexcept {
    LARGE_INTEGER wanted{}, place{};
    wanted.QuadPart = distance;
    return SetFilePointerEx(FileOf(file).handle, wanted, &place, from) ? place.QuadPart : -1;
}

std::int64_t LengthOf(void* file) noexcept {
    LARGE_INTEGER size{};
    return GetFileSizeEx(FileOf(file).handle, &size) ? size.QuadPart : 0;
}

// The library reads the next byte first and puts it back; nothing is written, cut or closed by it.
WavpackStreamReader64 reader = {
    [](void* file, void* data, std::int32_t count) {
        return static_cast<std::int32_t>(FileOf(file).Read(data, static_cast<DWORD>(count)));
    },
    nullptr,
    [](void* file) { return Move(file, 0, FILE_CURRENT); },
    [](void* file, std::int64_t place) { return Move(file, place, FILE_BEGIN) < 0 ? -1 : 0; },
    [](void* file, std::int64_t distance, int from) {
        return Move(file, distance, static_cast<DWORD>(from)) < 0 ? -1
                                                                  : 0; // SEEK_SET is FILE_BEGIN, and so on
    },
    [](void* file, int byte) { return Move(file, -1, FILE_CURRENT) < 0 ? EOF : byte; },
    LengthOf,
    [](void*) { return 1; },
    nullptr,
    nullptr,
};

struct CloseReader {
    void operator()(WavpackContext* context) const noexcept { WavpackCloseFile(context); }
};

bool Fail(XString& error, const wchar_t* reason) {
    error = XString(L"The finished file does not decode to its source: ") + reason;
    return false;
}

} // namespace

bool CheckWavPackFile(const XString& path, std::uint64_t frames,
                      const unsigned char (&digest)[Md5::digestBytes], XString& error) {
    XFile file(path);
    if (!file.Open(GENERIC_READ, OPEN_EXISTING))
        return Fail(error, L"it can't be opened");
    char message[messageBytes] = {};
    const std::unique_ptr<WavpackContext, CloseReader> context(
        WavpackOpenFileInputEx64(&reader, &file, nullptr, message, 0, 0));
    if (!context) {
        XString reason;
        reason.Assign(message);
        return Fail(error, reason);
    }
    const std::size_t channels = static_cast<std::size_t>(WavpackGetNumChannels(context.get()));
    const int bytes = WavpackGetBytesPerSample(context.get());
    std::vector<std::int32_t> samples(runFrames * channels);
    std::vector<unsigned char> packed(samples.size() * static_cast<std::size_t>(bytes));
    Md5 md5;
    std::uint64_t counted = 0;
    while (const std::uint32_t got = WavpackUnpackSamples(context.get(), samples.data(), runFrames)) {
        counted += got;
        PackSamples(samples.data(), packed.data(), got * channels, bytes, SampleOrder::wave);
        md5.Add(packed.data(), got * channels * static_cast<std::size_t>(bytes));
    }
    unsigned char found[Md5::digestBytes];
    md5.Finish(found);
    if (WavpackGetNumErrors(context.get()) != 0)
        return Fail(error, L"a block is damaged");
    if (counted != frames)
        return Fail(error, L"its length is another");
    return std::memcmp(found, digest, sizeof found) == 0 || Fail(error, L"its samples are others");
}
