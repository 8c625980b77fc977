#include <algorithm>
#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string_view>

#include "platform/headless/countdown.h"
#include "platform/headless/faults.h"
#include "platform/headless/ole_automation.h"

namespace {

// In front of the text stand the bytes of the text, without terminator, right before the first unit.
struct Prefix {
    std::uint32_t reserved;
    std::uint32_t bytes;
};

std::atomic<std::size_t> g_live{0};
qv::headless::Countdown g_fault;

constexpr UINT kMaxUnits = 0x3FFFFFF0u / sizeof(OLECHAR);

BSTR Allocate(const void* source, UINT bytes) {
    if (g_fault.Strikes() || bytes / sizeof(OLECHAR) > kMaxUnits) return nullptr;
    // A terminator for whole units and for odd bytes.
    const auto size = sizeof(Prefix) + (bytes / sizeof(OLECHAR) + 2) * sizeof(OLECHAR);
    auto* memory = static_cast<std::byte*>(std::calloc(1, size));
    if (memory == nullptr) return nullptr;
    reinterpret_cast<Prefix*>(memory)->bytes = bytes;
    if (source != nullptr) std::memcpy(memory + sizeof(Prefix), source, bytes);
    ++g_live;
    return reinterpret_cast<BSTR>(memory + sizeof(Prefix));
}

Prefix* PrefixOf(BSTR string) {
    return reinterpret_cast<Prefix*>(reinterpret_cast<std::byte*>(string) - sizeof(Prefix));
}

}  // namespace

namespace qv::headless {
std::size_t LiveStrings() noexcept {
    return g_live.load();
}
void FailStringAllocation(unsigned n) noexcept {
    g_fault.Arm(n);
}
}  // namespace qv::headless

BSTR SysAllocString(const OLECHAR* text) {
    return text == nullptr ? nullptr : SysAllocStringLen(text, static_cast<UINT>(std::wstring_view(text).size()));
}

BSTR SysAllocStringLen(const OLECHAR* text, UINT length) {
    return length > kMaxUnits ? nullptr : Allocate(text, length * static_cast<UINT>(sizeof(OLECHAR)));
}

BSTR SysAllocStringByteLen(LPCSTR bytes, UINT length) {
    return Allocate(bytes, length);
}

INT SysReAllocString(BSTR* string, const OLECHAR* text) {
    if (string == nullptr) return FALSE;
    if (text == nullptr) {
        SysFreeString(*string);
        *string = nullptr;
        return TRUE;
    }
    return SysReAllocStringLen(string, text, static_cast<UINT>(std::wstring_view(text).size()));
}

INT SysReAllocStringLen(BSTR* string, const OLECHAR* text, UINT length) {
    if (string == nullptr) return FALSE;
    // The new one first: the text may lie inside the old one.
    const BSTR renewed = SysAllocStringLen(text, length);
    if (renewed == nullptr) return FALSE;
    if (text == nullptr && *string != nullptr) {
        std::memcpy(renewed, *string, std::min(SysStringByteLen(*string), SysStringByteLen(renewed)));
    }
    SysFreeString(*string);
    *string = renewed;
    return TRUE;
}

void SysFreeString(BSTR string) {
    if (string == nullptr) return;
    --g_live;
    std::free(PrefixOf(string));
}

UINT SysStringByteLen(BSTR string) {
    return string == nullptr ? 0 : PrefixOf(string)->bytes;
}

UINT SysStringLen(BSTR string) {
    return SysStringByteLen(string) / static_cast<UINT>(sizeof(OLECHAR));
}
