#include "plugins/dsp/PieceFile.h"

#include <algorithm>
#include <cstring>

PieceFile::PieceFile(Reader reader, std::uint64_t size) : reader(std::move(reader)), size(size) {
    if (size > 0)
        pieces.push_back({false, 0, size, {}});
}

std::size_t PieceFile::Find(std::uint64_t offset) {
    while (offset < nearStart)
        nearStart -= pieces[--nearIndex].size;
    while (nearIndex < pieces.size() && offset - nearStart >= pieces[nearIndex].size)
        nearStart += pieces[nearIndex++].size;
    return nearIndex;
}

std::size_t PieceFile::Read(std::uint64_t offset, unsigned char* bytes, std::size_t count) {
    std::size_t done = 0;
    while (done < count) {
        const std::size_t index = Find(offset + done);
        if (index == pieces.size())
            break;
        const Piece& piece = pieces[index];
        const std::uint64_t skipped = offset + done - nearStart;
        const auto part =
            static_cast<std::size_t>(std::min<std::uint64_t>(count - done, piece.size - skipped));
        if (piece.isNew)
            std::memcpy(bytes + done, piece.bytes.data() + skipped, part);
        else if (reader(piece.offset + skipped, bytes + done, part) != part) {
            hasFailed = true;
            return done;
        }
        done += part;
    }
    return done;
}

std::size_t PieceFile::SplitAt(std::uint64_t offset) {
    const std::size_t index = Find(offset);
    const std::uint64_t head = offset - nearStart;
    if (head == 0)
        return index;
    Piece tail = pieces[index];
    tail.offset += head;
    tail.size -= head;
    if (tail.isNew)
        tail.bytes.erase(tail.bytes.begin(), tail.bytes.begin() + static_cast<std::ptrdiff_t>(head));
    pieces[index].size = head;
    if (tail.isNew)
        pieces[index].bytes.resize(static_cast<std::size_t>(head));
    pieces.insert(pieces.begin() + static_cast<std::ptrdiff_t>(index + 1), std::move(tail));
    return index + 1;
}

void PieceFile::Replace(std::uint64_t offset, std::uint64_t removed, const unsigned char* bytes,
                        std::size_t count) {
    if (offset > size) {
        const std::vector<unsigned char> zeros(static_cast<std::size_t>(offset - size), 0);
        Replace(size, 0, zeros.data(), zeros.size());
    }
    removed = std::min(removed, size - offset);
    const std::size_t first = SplitAt(offset), last = SplitAt(offset + removed);
    const auto begin = pieces.begin();
    pieces.erase(begin + static_cast<std::ptrdiff_t>(first), begin + static_cast<std::ptrdiff_t>(last));
    if (count > 0)
        pieces.insert(pieces.begin() + static_cast<std::ptrdiff_t>(first),
                      {true, 0, count, std::vector<unsigned char>(bytes, bytes + count)});
    size = size - removed + count;
    nearIndex = first;
    nearStart = offset;
}

std::uint64_t PieceFile::DisplacedBytes() const noexcept {
    std::uint64_t start = 0, displaced = 0;
    for (const Piece& piece : pieces) {
        if (!piece.isNew && piece.offset != start)
            displaced += piece.size;
        start += piece.size;
    }
    return displaced;
}

bool PieceFile::CopyDisplaced() {
    std::uint64_t start = 0;
    for (Piece& piece : pieces) {
        if (!piece.isNew && piece.offset != start) {
            piece.bytes.resize(static_cast<std::size_t>(piece.size));
            if (reader(piece.offset, piece.bytes.data(), piece.bytes.size()) != piece.bytes.size()) {
                hasFailed = true;
                return false;
            }
            piece.isNew = true;
        }
        start += piece.size;
    }
    return true;
}
