#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string_view>

#include "platform/headless/base/ole_automation.h"

namespace {

// In front of the text stand the bytes of the text, without terminator, right before the first unit.
struct Prefix {
    std::uint32_t reserved;
    std::uint32_t bytes;
};

constexpr UINT kMaxUnits = 0x3FFFFFF0u / sizeof(OLECHAR);

BSTR Allocate(const void* source, UINT bytes) {
    if (bytes / sizeof(OLECHAR) > kMaxUnits) return nullptr;
    // A terminator for whole units and for odd bytes.
    const auto size = sizeof(Prefix) + (bytes / sizeof(OLECHAR) + 2) * sizeof(OLECHAR);
    auto* memory = static_cast<std::byte*>(std::calloc(1, size));
    if (memory == nullptr) return nullptr;
    reinterpret_cast<Prefix*>(memory)->bytes = bytes;
    if (source != nullptr) std::memcpy(memory + sizeof(Prefix), source, bytes);
    return reinterpret_cast<BSTR>(memory + sizeof(Prefix));
}

Prefix* PrefixOf(BSTR string) {
    return reinterpret_cast<Prefix*>(reinterpret_cast<std::byte*>(string) - sizeof(Prefix));
}

}  // namespace

BSTR SysAllocString(const OLECHAR* text) {
    return text == nullptr ? nullptr : SysAllocStringLen(text, static_cast<UINT>(std::wstring_view(text).size()));
}

BSTR SysAllocStringLen(const OLECHAR* text, UINT length) {
    return length > kMaxUnits ? nullptr : Allocate(text, length * static_cast<UINT>(sizeof(OLECHAR)));
}

BSTR SysAllocStringByteLen(LPCSTR bytes, UINT length) {
    return Allocate(bytes, length);
}

void SysFreeString(BSTR string) {
    if (string != nullptr) std::free(PrefixOf(string));
}

UINT SysStringByteLen(BSTR string) {
    return string == nullptr ? 0 : PrefixOf(string)->bytes;
}

UINT SysStringLen(BSTR string) {
    return SysStringByteLen(string) / static_cast<UINT>(sizeof(OLECHAR));
}
