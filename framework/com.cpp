#include "framework/com.h"

#include <new>

namespace qv {
namespace {

BSTR Allocate(std::wstring_view text) {
    BSTR result = SysAllocStringLen(text.data() != nullptr ? text.data() : L"", static_cast<UINT>(text.size()));
    if (result == nullptr) throw std::bad_alloc();
    return result;
}

}  // namespace

Bstr::Bstr(std::wstring_view text) : m_text(Allocate(text)) {}

std::wstring TextOf(BSTR text) {
    return text != nullptr ? std::wstring(text, SysStringLen(text)) : std::wstring();
}

Variant::Variant(std::wstring_view text) {
    VariantInit(this);
    V_BSTR(this) = Allocate(text);
    V_VT(this) = VT_BSTR;
}

StringBlock::~StringBlock() {
    if (m_strings == nullptr) return;
    const std::size_t strings = std::size_t{m_count} * m_perEntry;
    for (std::size_t i = 0; i < strings; ++i)
        SysFreeString(m_strings[i]);
    CoTaskMemFree(m_strings);
}

}  // namespace qv
