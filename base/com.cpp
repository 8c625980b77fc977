#include "base/com.h"

#include <cstdint>
#include <new>

namespace qv {
namespace {

BSTR Allocate(std::wstring_view text) {
    BSTR result = SysAllocStringLen(text.data() != nullptr ? text.data() : L"", static_cast<UINT>(text.size()));
    if (result == nullptr) throw std::bad_alloc();
    return result;
}

// Copies through the platform, which refuses an address that cannot be read where a read of our own would crash.
bool CopyFrom(const void* address, void* target, std::size_t size) {
    SIZE_T copied = 0;
    return size == 0 ||
           (ReadProcessMemory(GetCurrentProcess(), address, target, size, &copied) != FALSE && copied == size);
}

}  // namespace

Bstr::Bstr(std::wstring_view text) : m_text(Allocate(text)) {}

std::wstring TextOf(BSTR text) {
    return text != nullptr ? std::wstring(text, SysStringLen(text)) : std::wstring();
}

std::optional<std::wstring> CopyUncertainText(const OLECHAR* text) {
    constexpr std::uint32_t kLongest = 32767 * sizeof(OLECHAR);
    // The length in bytes stands right before the text.
    const auto address = reinterpret_cast<std::uintptr_t>(text);
    std::uint32_t bytes = 0;
    if (address < sizeof bytes) return std::nullopt;
    if (!CopyFrom(reinterpret_cast<const void*>(address - sizeof bytes), &bytes, sizeof bytes)) return std::nullopt;
    if (bytes > kLongest) return std::nullopt;
    std::wstring copy(bytes / sizeof(OLECHAR), L'\0');
    if (!CopyFrom(text, copy.data(), copy.size() * sizeof(OLECHAR))) return std::nullopt;
    return copy;
}

Variant::Variant(std::wstring_view text) : Variant() {
    m_value.bstrVal = Allocate(text);
    m_value.vt = VT_BSTR;
}

std::optional<std::wstring_view> Variant::Text() const noexcept {
    if (m_value.vt != VT_BSTR) return std::nullopt;
    if (m_value.bstrVal == nullptr) return std::wstring_view();
    return std::wstring_view(m_value.bstrVal, SysStringLen(m_value.bstrVal));
}

HRESULT Variant::ChangeType(VARTYPE type) noexcept {
    return VariantChangeType(&m_value, &m_value, 0, type);
}

StringBlock StringBlock::Adopt(BSTR* strings, ULONG count, ULONG perEntry) noexcept {
    StringBlock block;
    block.m_strings = strings;
    block.m_count = count;
    block.m_perEntry = perEntry;
    return block;
}

StringBlock::~StringBlock() {
    if (m_strings == nullptr) return;
    const std::size_t strings = std::size_t{m_count} * m_perEntry;
    for (std::size_t i = 0; i < strings; ++i)
        SysFreeString(m_strings[i]);
    CoTaskMemFree(m_strings);
}

}  // namespace qv
