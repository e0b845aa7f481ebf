// The kinds of Win32 handles and their owners. Null and INVALID_HANDLE_VALUE are kept apart.
#pragma once

#include "foundation/XOwned.h"

#include <windows.h>

struct KernelKind { // events, mutexes, processes, threads
    using Value = HANDLE;
    static Value None() noexcept { return nullptr; }
    static void Close(Value v) noexcept { CloseHandle(v); }
};
struct FileKind { // files and pipe ends
    using Value = HANDLE;
    static Value None() noexcept { return INVALID_HANDLE_VALUE; }
    static void Close(Value v) noexcept { CloseHandle(v); }
};
struct FindKind {
    using Value = HANDLE;
    static Value None() noexcept { return INVALID_HANDLE_VALUE; }
    static void Close(Value v) noexcept { FindClose(v); }
};
struct ModuleKind {
    using Value = HMODULE;
    static Value None() noexcept { return nullptr; }
    static void Close(Value v) noexcept { FreeLibrary(v); }
};
struct RegistryKind {
    using Value = HKEY;
    static Value None() noexcept { return nullptr; }
    static void Close(Value v) noexcept { RegCloseKey(v); }
};
struct IconKind {
    using Value = HICON;
    static Value None() noexcept { return nullptr; }
    static void Close(Value v) noexcept { DestroyIcon(v); }
};
struct GdiKind { // bitmaps, brushes, fonts, pens, regions
    using Value = HGDIOBJ;
    static Value None() noexcept { return nullptr; }
    static void Close(Value v) noexcept { DeleteObject(v); }
};
struct MemoryDcKind {
    using Value = HDC;
    static Value None() noexcept { return nullptr; }
    static void Close(Value v) noexcept { DeleteDC(v); }
};
struct MenuKind {
    using Value = HMENU;
    static Value None() noexcept { return nullptr; }
    static void Close(Value v) noexcept { DestroyMenu(v); }
};

using XKernelHandle = XOwned<KernelKind>;
using XFileHandle = XOwned<FileKind>;
using XFindHandle = XOwned<FindKind>;
using XModule = XOwned<ModuleKind>;
using XRegistryKey = XOwned<RegistryKind>;
using XIcon = XOwned<IconKind>;
using XGdiObject = XOwned<GdiKind>;
using XMemoryDc = XOwned<MemoryDcKind>;
using XMenu = XOwned<MenuKind>;

// A selection into a device context that is undone at the end of the scope.
class XSelected {
public:
    XSelected(HDC dc, HGDIOBJ object) noexcept : dc(dc), old(SelectObject(dc, object)) {}
    ~XSelected() { SelectObject(dc, old); }
    XSelected(const XSelected&) = delete;
    XSelected& operator=(const XSelected&) = delete;

private:
    HDC dc;
    HGDIOBJ old;
};

// A COM interface pointer; releases it.
template <class T>
class XCom {
public:
    XCom() = default;
    ~XCom() { Reset(); }
    XCom(const XCom&) = delete;
    XCom& operator=(const XCom&) = delete;
    [[nodiscard]] T* Get() const noexcept { return value; }
    T* operator->() const noexcept { return value; }
    explicit operator bool() const noexcept { return value != nullptr; }
    [[nodiscard]] void** Receive() noexcept {
        Reset();
        return reinterpret_cast<void**>(&value);
    }
    void Reset() noexcept {
        if (value)
            value->Release();
        value = nullptr;
    }

private:
    T* value = nullptr;
};
