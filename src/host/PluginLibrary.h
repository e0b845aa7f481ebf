// The base of the three classes that bind a plug-in library.
#pragma once

#include "contract/Plugin.h"
#include "foundation/XHandles.h"
#include "foundation/XString.h"

#include <cstring>
#include <tuple>

// Not shared: each user holds an object of its own, and with it an instance of its own. Neither
// copied nor moved.
class XDLL {
public:
    XDLL() = default;
    virtual ~XDLL();
    // Binds a library, or with null resets the export pointers of an object without one. With a
    // library held it changes nothing. All exports or none: returns `bound`. A library that lacks one
    // stays mapped until it is unloaded.
    virtual bool Load(const wchar_t* path) = 0;
    XDLL(const XDLL&) = delete;
    XDLL& operator=(const XDLL&) = delete;

    XModule module;
    bool bound = false; // the last Load found the library and every export

protected:
    // Steps that every Load begins with: false if a library is held already and nothing is to be done.
    bool BeginLoad(const wchar_t* path);
    [[nodiscard]] void* ExportAddress(const char* name) const noexcept; // null if there is none

    template <class Class, class... Row>
    bool BindExports(Class& self, const std::tuple<Row...>& table) {
        std::apply([&](const Row&... row) { (BindOne(self, row), ...); }, table);
        return bound;
    }

private:
    template <class Class, class Row>
    void BindOne(Class& self, const Row& row) {
        void* address = ExportAddress(row.name);
        static_assert(sizeof(address) == sizeof(self.*row.field));
        std::memcpy(&(self.*row.field), &address, sizeof(address));
        if (!address)
            bound = false;
    }
};

// A row of a class's table of exports: the name and the field that takes its address.
template <class Class, class Function>
struct XExport {
    const char* name;
    Function Class::*field;
};
template <class Class, class Function>
XExport(const char*, Function Class::*) -> XExport<Class, Function>;
