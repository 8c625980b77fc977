// COM in owning types: interface pointers, strings and variants that know their own release, and task memory blocks.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/platform.h"

namespace qv {

template <class T>
class ComPtr {
public:
    ComPtr() = default;
    ComPtr(std::nullptr_t) {}  // NOLINT(google-explicit-constructor)
    // Shares: adds a reference.
    ComPtr(T* pointer)
        : m_pointer(pointer) {  // NOLINT(google-explicit-constructor): as the plain pointer it stands for
        if (m_pointer != nullptr) m_pointer->AddRef();
    }
    ComPtr(const ComPtr& other) : ComPtr(other.m_pointer) {}
    ComPtr(ComPtr&& other) noexcept : m_pointer(std::exchange(other.m_pointer, nullptr)) {}
    ~ComPtr() { Reset(); }
    ComPtr& operator=(ComPtr other) noexcept {
        std::swap(m_pointer, other.m_pointer);
        return *this;
    }
    [[nodiscard]] static ComPtr Adopt(T* pointer) noexcept {  // takes the caller's reference over
        ComPtr result;
        result.m_pointer = pointer;
        return result;
    }
    void Reset() noexcept {
        if (T* old = std::exchange(m_pointer, nullptr)) old->Release();
    }
    // For an out parameter: releases what is held first.
    [[nodiscard]] T** Put() noexcept {
        Reset();
        return &m_pointer;
    }
    [[nodiscard]] T* Detach() noexcept { return std::exchange(m_pointer, nullptr); }
    [[nodiscard]] T* Get() const noexcept { return m_pointer; }
    T* operator->() const noexcept { return m_pointer; }
    explicit operator bool() const noexcept { return m_pointer != nullptr; }

private:
    T* m_pointer = nullptr;
};

// A BSTR that is freed with the object. Running out of memory is raised (std::bad_alloc). Null stands for the empty
// text; made from an empty text it is an empty BSTR, since not every receiver takes null.
class Bstr {
public:
    Bstr() = default;
    explicit Bstr(std::wstring_view text);
    Bstr(const Bstr&) = delete;
    Bstr& operator=(const Bstr&) = delete;
    Bstr(Bstr&& other) noexcept : m_text(std::exchange(other.m_text, nullptr)) {}
    Bstr& operator=(Bstr&& other) noexcept {
        std::swap(m_text, other.m_text);
        return *this;
    }
    ~Bstr() { SysFreeString(m_text); }
    [[nodiscard]] static Bstr Adopt(BSTR text) noexcept {
        Bstr result;
        result.m_text = text;
        return result;
    }
    [[nodiscard]] BSTR Get() const noexcept { return m_text; }
    [[nodiscard]] BSTR* Put() noexcept {
        SysFreeString(std::exchange(m_text, nullptr));
        return &m_text;
    }
    [[nodiscard]] BSTR* InOut() noexcept { return &m_text; }
    [[nodiscard]] BSTR Detach() noexcept { return std::exchange(m_text, nullptr); }

private:
    BSTR m_text = nullptr;
};

// A BSTR's text; null is the empty text.
[[nodiscard]] std::wstring TextOf(BSTR text);

// A VARIANT that is cleared with the object.
class Variant : public VARIANT {
public:
    Variant() noexcept { VariantInit(this); }
    explicit Variant(std::wstring_view text);  // VT_BSTR
    Variant(const Variant&) = delete;
    Variant& operator=(const Variant&) = delete;
    ~Variant() { VariantClear(this); }
};

// A block of strings as COM enumerations return it: the block and every string in it belong to the receiver and came
// from the task allocator. A null block counts as no strings, null entries as empty texts.
class StringBlock {
public:
    StringBlock() = default;
    StringBlock(const StringBlock&) = delete;
    StringBlock& operator=(const StringBlock&) = delete;
    ~StringBlock();
    [[nodiscard]] BSTR** Put() noexcept { return &m_strings; }
    [[nodiscard]] ULONG* PutCount() noexcept { return &m_count; }
    // How many strings one counted entry holds: 1 for names, 2 for pairs. Set before the call that fills the block.
    void SetStringsPerEntry(ULONG strings) noexcept { m_perEntry = strings; }
    [[nodiscard]] ULONG Count() const noexcept { return m_strings != nullptr ? m_count : 0; }
    [[nodiscard]] BSTR At(std::size_t index) const noexcept { return m_strings[index]; }

private:
    BSTR* m_strings = nullptr;
    ULONG m_count = 0;
    ULONG m_perEntry = 1;
};

}  // namespace qv
