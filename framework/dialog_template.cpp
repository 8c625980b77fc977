#include "framework/dialog_template.h"

#include <cstring>

#include "base/module_state.h"
#include "framework/window_creation.h"

namespace qv::detail {
namespace {

// Every message is handled by the object above; the platform wants a procedure all the same.
INT_PTR CALLBACK EmptyDialogProcedure(HWND, UINT, WPARAM, LPARAM) noexcept {
    return FALSE;
}

}  // namespace

std::span<const std::byte> FindDialogTemplate(UINT id) {
    HINSTANCE module = GetResourceHandle();
    HRSRC resource = FindResourceW(module, MAKEINTRESOURCEW(id), reinterpret_cast<LPCWSTR>(RT_DIALOG));
    if (resource == nullptr) return {};
    const void* bytes = LockResource(LoadResource(module, resource));
    if (bytes == nullptr) return {};
    return {static_cast<const std::byte*>(bytes), SizeofResource(module, resource)};
}

std::vector<DWORD> RestyledTemplate(std::span<const std::byte> dialogTemplate, DWORD remove, DWORD add,
                                    DWORD addExtended) {
    // The older format begins with style and extended style; the newer one with 1, 0xFFFF, a help id, extended style
    // and style.
    constexpr std::size_t kSmallest = 18;
    constexpr std::size_t kLargest = 1 << 24;
    if (dialogTemplate.size() < kSmallest || dialogTemplate.size() > kLargest) return {};
    std::vector<DWORD> copy((dialogTemplate.size() + sizeof(DWORD) - 1) / sizeof(DWORD));
    std::memcpy(copy.data(), dialogTemplate.data(), dialogTemplate.size());
    const bool isNewer = copy[0] == 0xFFFF0001;
    DWORD& style = copy[isNewer ? 3 : 0];
    DWORD& extended = copy[isNewer ? 2 : 1];
    style = (style & ~remove) | add;
    extended |= addExtended;
    return copy;
}

HWND CreateFromDialogTemplate(CWnd& object, const DWORD* dialogTemplate, HWND parent) {
    const CreationScope scope(object, false);
    HWND window = CreateDialogIndirectParamW(GetResourceHandle(), reinterpret_cast<const DLGTEMPLATE*>(dialogTemplate),
                                             parent, &EmptyDialogProcedure, 0);
    return window != nullptr && ::IsWindow(window) != FALSE ? window : nullptr;
}

}  // namespace qv::detail
