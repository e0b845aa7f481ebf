// Growable arrays of owned pointers with an inline block of 16 slots, and the array of strings.
#pragma once

#include "foundation/XString.h"

#include <cstdint>
#include <utility>

class XBuffer;

// The slots themselves; it owns the block and not what the pointers point at.
// Growth: 16 slots, then +32, +64, ... with steps bounded at 500000; 32 slots first after Clear.
class XPointerSlots {
public:
    XPointerSlots() noexcept;
    ~XPointerSlots();
    XPointerSlots(const XPointerSlots&) = delete;
    XPointerSlots& operator=(const XPointerSlots&) = delete;

    using Less = bool (*)(const void* a, const void* b, void* user);

    void Add(void* p);
    void InsertAt(std::int64_t index, void* p); // above count, or -1: at the end
    void RemoveAt(std::int64_t index) noexcept; // the slot only; no effect out of range
    void ClearSlots() noexcept;                 // frees the block; items null, capacity 0, step 32
    // In-place quicksort, not stable. -1 stands for the first and the last index.
    void Sort(Less less, void* user, std::int64_t left = -1, std::int64_t right = -1);

    void** items;
    std::int64_t count = 0;
    std::int64_t capacity = 16;
    std::int64_t step = 32;

private:
    void Grow();
    void* inlineItems[16];
};

// An array that owns elements of one type; `delete` is their clearing routine.
template <class T>
class XArray {
public:
    XArray() = default;
    ~XArray() { Clear(); }
    XArray(const XArray&) = delete;
    XArray& operator=(const XArray&) = delete;

    [[nodiscard]] std::int64_t Count() const noexcept { return slots.count; }
    [[nodiscard]] bool IsEmpty() const noexcept { return slots.count == 0; }
    // Unchecked, 0 <= index < Count(). Borrowed.
    [[nodiscard]] T* At(std::int64_t index) const noexcept { return static_cast<T*>(slots.items[index]); }
    [[nodiscard]] T& operator[](std::int64_t index) const noexcept { return *At(index); }

    T* AddPointer(T* p) {
        slots.Add(p);
        return p;
    } // takes ownership
    template <class... Arguments>
    T* AddNew(Arguments&&... arguments) {
        return AddPointer(new T(std::forward<Arguments>(arguments)...));
    }
    void InsertAt(std::int64_t index, T* p) { slots.InsertAt(index, p); }
    T* RemoveAt(std::int64_t index) noexcept { // hands the element back; null out of range
        if (index < 0 || index >= slots.count)
            return nullptr;
        T* element = At(index);
        slots.RemoveAt(index);
        return element;
    }
    void DeleteAt(std::int64_t index) noexcept { delete RemoveAt(index); }
    void Clear() noexcept {
        for (std::int64_t i = 0; i < slots.count; ++i)
            delete At(i);
        slots.ClearSlots();
    }
    // `less(a, b, user)` is true when a sorts before b.
    template <class LessT>
    void Sort(LessT less, std::int64_t left = -1, std::int64_t right = -1) {
        slots.Sort(
            [](const void* a, const void* b, void* user) {
                return static_cast<bool>(
                    (*static_cast<LessT*>(user))(*static_cast<const T*>(a), *static_cast<const T*>(b)));
            },
            &less, left, right);
    }

    class Iterator {
    public:
        explicit Iterator(void** slot) : slot(slot) {}
        T& operator*() const noexcept { return *static_cast<T*>(*slot); }
        Iterator& operator++() noexcept {
            ++slot;
            return *this;
        }
        bool operator!=(const Iterator& other) const noexcept { return slot != other.slot; }

    private:
        void** slot;
    };
    [[nodiscard]] Iterator begin() const noexcept { return Iterator(slots.items); }
    [[nodiscard]] Iterator end() const noexcept { return Iterator(slots.items + slots.count); }

    [[nodiscard]] const XPointerSlots& Slots() const noexcept { return slots; }

protected:
    XPointerSlots slots;
};

class XStringArray : public XArray<XString> {
public:
    XString* AddString(const wchar_t* text, std::uint64_t userValue = 0);
    XString* InsertString(std::int64_t index, const wchar_t* text);
    [[nodiscard]] bool Contains(const wchar_t* text, bool ignoreCase) const noexcept;
    void CopyFrom(const XStringArray& other); // replaces the content
    void SortTexts(bool ignoreCase);          // the standard comparator

    // Zero-terminated texts one after another and a final zero; an empty element is written as
    // "[Empty]", since an empty entry would end the image. False if memory ran out.
    [[nodiscard]] bool JoinMulti(XBuffer& buffer) const;
    void SplitMulti(const wchar_t* text, std::int64_t byteCount); // replaces the content
};

// Lines end at CR; LF directly behind is skipped. Clears `out` first.
void SplitLines(const wchar_t* text, XStringArray& out);
// Pieces between delimiters, "a,b," has three. Does not clear `out`.
void Split(XStringArray& out, const wchar_t* text, const wchar_t* delimiter);
