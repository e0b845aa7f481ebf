// A file with changes that are kept in memory until they are written all at once. Portable: the bytes of
// the file itself come from a reader.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

class PieceFile {
public:
    // Up to `count` bytes from an offset of the unchanged file; fewer only on failure.
    using Reader = std::function<std::size_t(std::uint64_t offset, unsigned char* bytes, std::size_t count)>;

    // The content is its pieces one behind the other: bytes of the unchanged file, or new ones.
    struct Piece {
        bool isNew = false;
        std::uint64_t offset = 0; // in the unchanged file
        std::uint64_t size = 0;
        std::vector<unsigned char> bytes; // of a new one
    };

    PieceFile(Reader reader, std::uint64_t size);

    [[nodiscard]] std::uint64_t Size() const noexcept { return size; }
    [[nodiscard]] const std::vector<Piece>& Pieces() const noexcept { return pieces; }
    // Bytes read; fewer at the end. A failure of the reader sets HasFailed for good.
    std::size_t Read(std::uint64_t offset, unsigned char* bytes, std::size_t count);
    [[nodiscard]] bool HasFailed() const noexcept { return hasFailed; }
    // Puts bytes in place of `removed` others; past the end the gap is filled with zeros.
    void Replace(std::uint64_t offset, std::uint64_t removed, const unsigned char* bytes, std::size_t count);

    // How many bytes of the unchanged file have moved.
    [[nodiscard]] std::uint64_t DisplacedBytes() const noexcept;
    // Makes those bytes new ones, so that all that is left of the unchanged file stands where it stood.
    [[nodiscard]] bool CopyDisplaced();

private:
    std::size_t Find(std::uint64_t offset);    // index of the piece that holds it, which is near now
    std::size_t SplitAt(std::uint64_t offset); // index of the piece that begins there

    Reader reader;
    std::uint64_t size;
    std::vector<Piece> pieces; // none empty
    // Long Ogg files get a change in each of their pages: a search from the first piece would take minutes.
    std::size_t nearIndex = 0;
    std::uint64_t nearStart = 0;
    bool hasFailed = false;
};
