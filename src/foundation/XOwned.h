// One move-only owner for every kind of handle: a kind says what "none" is and how to close.
#pragma once

#include <utility>

template <class Kind>
class XOwned {
public:
    using Value = typename Kind::Value;
    explicit XOwned(Value v = Kind::None()) noexcept : value(v) {}
    XOwned(XOwned&& other) noexcept : value(other.Release()) {}
    XOwned& operator=(XOwned&& other) noexcept {
        Reset(other.Release());
        return *this;
    }
    XOwned(const XOwned&) = delete;
    XOwned& operator=(const XOwned&) = delete;
    ~XOwned() { Reset(); }

    [[nodiscard]] Value Get() const noexcept { return value; } // borrowed
    [[nodiscard]] Value Release() noexcept { return std::exchange(value, Kind::None()); }
    [[nodiscard]] bool IsValid() const noexcept { return value != Kind::None(); }
    void Reset(Value v = Kind::None()) noexcept {
        if (value != Kind::None() && value != v)
            Kind::Close(value);
        value = v;
    }

private:
    Value value;
};
