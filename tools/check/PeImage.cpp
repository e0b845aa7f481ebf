#include "PeImage.h"

#include <cstring>

namespace {

constexpr std::uint16_t machineX64 = 0x8664;
constexpr std::uint16_t magic64 = 0x20B; // PE32+
constexpr std::uint16_t flagLibrary = 0x2000;
constexpr std::uint64_t coffSize = 24; // with the signature
constexpr std::uint64_t sectionSize = 40;
constexpr std::uint64_t importSize = 20;
constexpr std::uint64_t directoriesAt = 112; // in the optional header
constexpr std::uint32_t mostNames = 100000;

class Reader {
public:
    Reader(const void* bytes, std::uint64_t size)
        : bytes(static_cast<const unsigned char*>(bytes)), size(size) {}

    template <class Number>
    [[nodiscard]] Number At(std::uint64_t offset) const noexcept { // 0 past the end
        Number number = 0;
        if (offset <= size && size - offset >= sizeof(number))
            std::memcpy(&number, bytes + offset, sizeof(number));
        return number;
    }
    [[nodiscard]] XString TextAt(std::uint64_t offset) const { // names are ASCII
        XString text;
        for (; offset < size && bytes[offset] != 0; ++offset)
            text.InsertChar(static_cast<wchar_t>(bytes[offset]));
        return text;
    }
    // Where a relative virtual address lies in the file; past the end if nowhere.
    [[nodiscard]] std::uint64_t OffsetOf(std::uint32_t address) const noexcept {
        for (std::uint32_t i = 0; i < sections; ++i) {
            const std::uint64_t at = sectionsAt + i * sectionSize;
            const std::uint32_t start = At<std::uint32_t>(at + 12);
            if (address >= start && address - start < At<std::uint32_t>(at + 16))
                return std::uint64_t{At<std::uint32_t>(at + 20)} + (address - start);
        }
        return size;
    }

    std::uint64_t sectionsAt = 0;
    std::uint32_t sections = 0;

private:
    const unsigned char* bytes;
    std::uint64_t size;
};

void ReadExports(const Reader& file, std::uint32_t address, XStringArray& out) {
    const std::uint64_t table = file.OffsetOf(address);
    const std::uint32_t count = file.At<std::uint32_t>(table + 24);
    const std::uint64_t names = file.OffsetOf(file.At<std::uint32_t>(table + 32));
    for (std::uint32_t i = 0; i < count && i < mostNames; ++i) {
        const XString name = file.TextAt(file.OffsetOf(file.At<std::uint32_t>(names + std::uint64_t{i} * 4)));
        if (name.IsEmpty())
            return;
        out.AddString(name);
    }
}

void ReadImports(const Reader& file, std::uint32_t address, XStringArray& out) {
    std::uint64_t entry = file.OffsetOf(address);
    for (std::uint32_t i = 0; i < mostNames; ++i, entry += importSize) {
        const std::uint32_t name = file.At<std::uint32_t>(entry + 12);
        if (name == 0)
            return;
        out.AddString(file.TextAt(file.OffsetOf(name)));
    }
}

} // namespace

void ReadPeImage(const void* bytes, std::uint64_t size, PeImage& out) {
    out.exports.Clear();
    out.imports.Clear();
    Reader file(bytes, size);
    const std::uint64_t pe = file.At<std::uint32_t>(0x3C);
    out.isPe = file.At<std::uint16_t>(0) == 0x5A4D && file.At<std::uint32_t>(pe) == 0x4550;
    out.isLibrary = out.isPe && (file.At<std::uint16_t>(pe + 22) & flagLibrary) != 0;
    const std::uint64_t optional = pe + coffSize;
    out.is64Bit = out.isPe && file.At<std::uint16_t>(pe + 4) == machineX64 &&
                  file.At<std::uint16_t>(optional) == magic64;
    if (!out.is64Bit)
        return;
    file.sections = file.At<std::uint16_t>(pe + 6);
    file.sectionsAt = optional + file.At<std::uint16_t>(pe + 20);
    const std::uint32_t directories = file.At<std::uint32_t>(optional + directoriesAt - 4);
    const auto directory = [&](std::uint32_t index) {
        return index < directories ? file.At<std::uint32_t>(optional + directoriesAt + index * 8) : 0;
    };
    if (const std::uint32_t address = directory(0))
        ReadExports(file, address, out.exports);
    if (const std::uint32_t address = directory(1))
        ReadImports(file, address, out.imports);
}
