#include "foundation/XFileSystem.h"
#include "foundation/XPath.h"
#include "plugins/common/OutputFile.h"
#include "plugins/dsp/EditedFile.h"

#include <algorithm>

namespace {

constexpr std::uint64_t mostMoved = 1 << 20; // bytes; beyond it a file is written anew
constexpr std::size_t copyBytes = 1 << 18;

bool SeekTo(HANDLE file, std::uint64_t offset) {
    LARGE_INTEGER place;
    place.QuadPart = static_cast<LONGLONG>(offset);
    return SetFilePointerEx(file, place, nullptr, FILE_BEGIN) != 0;
}

std::size_t ReadAt(HANDLE file, std::uint64_t offset, unsigned char* bytes, std::size_t count) {
    DWORD done = 0;
    if (count > MAXLONG || !SeekTo(file, offset) ||
        !ReadFile(file, bytes, static_cast<DWORD>(count), &done, nullptr))
        return 0;
    return done;
}

bool WriteAt(HANDLE file, std::uint64_t offset, const unsigned char* bytes, std::size_t count) {
    DWORD done = 0;
    return count <= MAXLONG && SeekTo(file, offset) &&
           WriteFile(file, bytes, static_cast<DWORD>(count), &done, nullptr) && done == count;
}

bool SetSize(HANDLE file, std::uint64_t size) {
    return SeekTo(file, size) && SetEndOfFile(file);
}

// A name may reach the disk before the bytes do: after a power cut the file would be empty.
bool IsOnDisk(const XString& path) {
    const XFileHandle file(CreateFileW(LongPath(path, longFolderLimit), GENERIC_WRITE, FILE_SHARE_READ,
                                       nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    return file.IsValid() && FlushFileBuffers(file.Get()) != 0;
}

} // namespace

bool EditedFile::Fail(const wchar_t* what, DWORD code) {
    error = XString(L"Can't ") + what + L" '" + path + L"': error " + DecimalText(code);
    return false;
}

bool EditedFile::Open(const XString& filePath) {
    path = filePath;
    content.reset();
    handle.Reset(CreateFileW(LongPath(path, longFileLimit), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ,
                             nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    LARGE_INTEGER size{};
    if (!handle.IsValid() || !GetFileSizeEx(handle.Get(), &size))
        return Fail(L"open", GetLastError());
    sizeBefore = static_cast<std::uint64_t>(size.QuadPart);
    const HANDLE file = handle.Get();
    content.emplace([file](std::uint64_t offset, unsigned char* bytes,
                           std::size_t count) { return ReadAt(file, offset, bytes, count); },
                    sizeBefore);
    return true;
}

bool EditedFile::WritePieces() {
    std::uint64_t at = 0;
    for (const PieceFile::Piece& piece : content->Pieces()) {
        if (piece.isNew && !WriteAt(handle.Get(), at, piece.bytes.data(), piece.bytes.size()))
            return false;
        at += piece.size;
    }
    return SetSize(handle.Get(), content->Size());
}

bool EditedFile::WriteInPlace() {
    if (!content->CopyDisplaced())
        return Fail(L"read", GetLastError());
    struct Old {
        std::uint64_t at;
        std::vector<unsigned char> bytes;
    };
    std::vector<Old> olds; // what the new pieces overwrite, and what is cut off
    std::uint64_t at = 0;
    const auto keep = [&](std::uint64_t count) {
        const std::uint64_t end = std::min(at + count, sizeBefore);
        if (at >= end)
            return true;
        olds.push_back({at, std::vector<unsigned char>(static_cast<std::size_t>(end - at))});
        return ReadAt(handle.Get(), at, olds.back().bytes.data(), olds.back().bytes.size()) == end - at;
    };
    bool isGood = true;
    for (const PieceFile::Piece& piece : content->Pieces()) {
        isGood = isGood && (!piece.isNew || keep(piece.size));
        at += piece.size;
    }
    isGood = isGood && (at >= sizeBefore || keep(sizeBefore - at));
    if (!isGood)
        return Fail(L"read", GetLastError());
    // A full disk shows here, before anything is changed.
    isGood = SetSize(handle.Get(), std::max(sizeBefore, content->Size())) && WritePieces();
    if (isGood)
        return true;
    const DWORD code = GetLastError();
    for (const Old& old : olds)
        (void)WriteAt(handle.Get(), old.at, old.bytes.data(), old.bytes.size());
    (void)SetSize(handle.Get(), sizeBefore);
    return Fail(L"change", code);
}

bool EditedFile::WriteAnew() {
    XString temporary;
    int number = 0;
    do
        temporary = path + L"." + DecimalText(++number) + L".tmp";
    while (PathExists(temporary));
    OutputFile out;
    bool isGood = out.Create(temporary);
    std::vector<unsigned char> buffer(copyBytes);
    for (std::uint64_t at = 0; isGood && at < content->Size();) {
        const std::size_t count = content->Read(at, buffer.data(), buffer.size());
        if (count == 0)
            isGood = Fail(L"read", GetLastError());
        else
            isGood = out.Write(buffer.data(), count);
        at += count;
    }
    isGood = isGood && out.Close();
    if (!isGood && error.IsEmpty())
        error = out.Error();
    if (isGood && !IsOnDisk(temporary))
        isGood = Fail(L"write", GetLastError());
    handle.Reset();
    if (isGood && !MoveFileExW(LongPath(temporary, longFolderLimit), LongPath(path, longFolderLimit),
                               MOVEFILE_REPLACE_EXISTING))
        isGood = Fail(L"replace", GetLastError());
    out.Abandon();
    if (!isGood)
        DeleteFileW(LongPath(temporary, longFolderLimit));
    return isGood;
}

bool EditedFile::Commit() {
    const bool isGood = !content->HasFailed()
                            ? (content->DisplacedBytes() <= mostMoved ? WriteInPlace() : WriteAnew())
                            : Fail(L"read", ERROR_READ_FAULT);
    handle.Reset();
    return isGood;
}
