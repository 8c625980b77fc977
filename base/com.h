// COM in owning types: interface pointers, strings, variants and blocks of strings that know their own release. None of
// them lends its inside as an out parameter: what a call hands out comes in through Receive and its relatives at the
// end, which look at the call's status first.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include "platform/platform.h"

namespace qv {

template <class T>
class ComPtr {
public:
    using Raw = T*;

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
    using Raw = BSTR;

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
    [[nodiscard]] BSTR Detach() noexcept { return std::exchange(m_text, nullptr); }

private:
    BSTR m_text = nullptr;
};

// A BSTR's text; null is the empty text.
[[nodiscard]] std::wstring TextOf(BSTR text);
// The text behind a pointer that a failed call left, which may lead anywhere. Nothing when it is null, cannot be read
// or is longer than any path (32767 characters).
[[nodiscard]] std::optional<std::wstring> CopyUncertainText(const OLECHAR* text);

// A VARIANT that is cleared with the object.
class Variant {
public:
    using Raw = VARIANT;

    Variant() noexcept { VariantInit(&m_value); }
    explicit Variant(std::wstring_view text);  // VT_BSTR
    Variant(const Variant&) = delete;
    Variant& operator=(const Variant&) = delete;
    Variant(Variant&& other) noexcept : m_value(other.m_value) { VariantInit(&other.m_value); }
    Variant& operator=(Variant&& other) noexcept {
        std::swap(m_value, other.m_value);
        return *this;
    }
    ~Variant() { VariantClear(&m_value); }
    [[nodiscard]] static Variant Adopt(const VARIANT& value) noexcept {
        Variant result;
        result.m_value = value;
        return result;
    }
    [[nodiscard]] const VARIANT& Get() const noexcept { return m_value; }
    // The text of a VT_BSTR, as long as this object is unchanged; a null one is the empty text. Nothing for other
    // types.
    [[nodiscard]] std::optional<std::wstring_view> Text() const noexcept;
    // Converts in place as the platform does, in the user's locale. Unchanged on failure.
    [[nodiscard]] HRESULT ChangeType(VARTYPE type) noexcept;
    // Hands the value over to the caller.
    [[nodiscard]] VARIANT Detach() noexcept {
        const VARIANT value = m_value;
        VariantInit(&m_value);
        return value;
    }

private:
    VARIANT m_value;
};

// A block of strings as COM enumerations return it: the block and every string in it belong to the receiver and came
// from the task allocator. A null block counts as no strings, null entries as empty texts.
class StringBlock {
public:
    StringBlock() = default;
    StringBlock(const StringBlock&) = delete;
    StringBlock& operator=(const StringBlock&) = delete;
    StringBlock(StringBlock&& other) noexcept { *this = std::move(other); }
    StringBlock& operator=(StringBlock&& other) noexcept {
        std::swap(m_strings, other.m_strings);
        std::swap(m_count, other.m_count);
        std::swap(m_perEntry, other.m_perEntry);
        return *this;
    }
    ~StringBlock();
    // Takes over strings, which may be null. perEntry: how many strings one counted entry holds, 1 for names, 2 for
    // pairs; all count * perEntry of them are freed with the block.
    [[nodiscard]] static StringBlock Adopt(BSTR* strings, ULONG count, ULONG perEntry) noexcept;
    [[nodiscard]] ULONG Count() const noexcept { return m_strings != nullptr ? m_count : 0; }  // entries
    [[nodiscard]] BSTR At(std::size_t index) const noexcept { return m_strings[index]; }       // strings, from 0

private:
    BSTR* m_strings = nullptr;
    ULONG m_count = 0;
    ULONG m_perEntry = 0;
};

// Where a call writes what it hands out: a Raw*, and for interface pointers also the void** that many calls ask for.
template <class Raw>
class OutSlot {
public:
    explicit OutSlot(Raw& raw) noexcept : m_raw(&raw) {}
    operator Raw*() const noexcept { return m_raw; }  // NOLINT(google-explicit-constructor): it stands for one
    operator void**() const noexcept requires std::is_pointer_v<Raw> { return reinterpret_cast<void**>(m_raw); }

private:
    Raw* m_raw;
};

template <class Owner>
struct Received {
    HRESULT status;
    Owner value;  // empty unless the call succeeded
};

// Makes a call that hands out an object, a string or a variant, call(OutSlot), and takes it over only when the call
// answers S_OK. Whatever it wrote before another answer is forgotten without a look: code that fails may leave anything
// there, and releasing that crashes.
template <class Owner, class Call>
[[nodiscard]] Received<Owner> Receive(const Call& call) {
    typename Owner::Raw raw{};
    const HRESULT status = call(OutSlot<typename Owner::Raw>(raw));
    return {status, status == S_OK ? Owner::Adopt(raw) : Owner()};
}

// The same for an enumeration, call(ULONG* count, BSTR** strings), whose entries hold perEntry strings each.
template <class Call>
[[nodiscard]] Received<StringBlock> ReceiveStrings(ULONG perEntry, const Call& call) {
    ULONG count = 0;
    BSTR* strings = nullptr;
    const HRESULT status = call(&count, &strings);
    return {status, status == S_OK ? StringBlock::Adopt(strings, count, perEntry) : StringBlock()};
}

// An object's interface; null when it has none such.
template <class T>
[[nodiscard]] ComPtr<T> QueryFor(IUnknown& object, REFIID iid) {
    return Receive<ComPtr<T>>([&](auto out) { return object.QueryInterface(iid, out); }).value;
}

// Makes a call with one string as its argument and in-out result, call(BSTR argument, BSTR* result). A callee that
// replaces the string has freed it. After a negative status the value is empty: a string that the call left alone is
// freed here, one that it put in its place is forgotten like any output of a failed call.
template <class Call>
[[nodiscard]] Received<Bstr> Exchange(std::wstring_view text, const Call& call) {
    struct Variable {
        explicit Variable(std::wstring_view text) : before(Bstr(text).Detach()), now(before) {}
        ~Variable() {
            if (now == before) SysFreeString(before);
        }
        Variable(const Variable&) = delete;
        Variable& operator=(const Variable&) = delete;
        BSTR before;
        BSTR now;
    };
    Variable variable(text);
    const HRESULT status = call(variable.now, &variable.now);
    if (FAILED(status)) return {status, Bstr()};
    variable.before = nullptr;  // whichever string it is now, it is the caller's
    return {status, Bstr::Adopt(std::exchange(variable.now, nullptr))};
}

}  // namespace qv
