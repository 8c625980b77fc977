// Icons as handles without a picture: one exists when the module has its icon group.
#include <map>
#include <mutex>
#include <string>
#include <utility>

#include "platform/headless/base/module.h"
#include "platform/headless/desktop/gdi.h"

namespace {

struct Icons {
    std::mutex mutex;
    // Shared ones live until the end of the process; by module and name.
    std::map<std::pair<HMODULE, std::wstring>, HICON> shared;
    UINT_PTR next = 0x10000;
};

Icons& Table() {
    static Icons s_icons;
    return s_icons;
}

std::wstring KeyOf(LPCWSTR name) {
    return IS_INTRESOURCE(name) ? L"#" + std::to_wstring(reinterpret_cast<UINT_PTR>(name)) : std::wstring(name);
}

HICON MakeIcon() {
    auto& icons = Table();
    icons.next += 4;
    return reinterpret_cast<HICON>(icons.next);
}

HICON Shared(HMODULE module, LPCWSTR name) {
    auto& icons = Table();
    const std::lock_guard lock(icons.mutex);
    HICON& icon = icons.shared[{module, KeyOf(name)}];
    if (icon == nullptr) icon = MakeIcon();
    return icon;
}

// The system's own icons, 32512 to 32518.
bool IsSystemIcon(HINSTANCE module, LPCWSTR name) {
    const auto id = reinterpret_cast<UINT_PTR>(name);
    return module == nullptr && id >= 32512 && id <= 32518;
}

bool Exists(HINSTANCE module, LPCWSTR name) {
    if (IsSystemIcon(module, name)) return true;
    if (module != nullptr && FindResourceW(module, name, RT_GROUP_ICON) != nullptr) return true;
    SetLastError(ERROR_RESOURCE_NAME_NOT_FOUND);
    return false;
}

}  // namespace

HICON LoadIconW(HINSTANCE module, LPCWSTR name) {
    return Exists(module, name) ? Shared(module, name) : nullptr;
}
