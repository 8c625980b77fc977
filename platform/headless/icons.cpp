// Icons as handles without a picture: one exists when the module has its icon group, or the caller has its bytes.
#include <algorithm>
#include <map>
#include <mutex>
#include <set>
#include <string>
#include <utility>

#include "platform/headless/gdi.h"
#include "platform/headless/module.h"

namespace {

struct Icons {
    std::mutex mutex;
    // Shared ones live until the end of the process; by module and name.
    std::map<std::pair<HMODULE, std::wstring>, HICON> shared;
    std::set<HICON> owned;
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

HICON Owned() {
    auto& icons = Table();
    const std::lock_guard lock(icons.mutex);
    return *icons.owned.insert(MakeIcon()).first;
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

WORD WordAt(const BYTE* bytes, std::size_t offset) {
    return static_cast<WORD>(bytes[offset] | (bytes[offset + 1] << 8));
}

}  // namespace

HICON LoadIconW(HINSTANCE module, LPCWSTR name) {
    return Exists(module, name) ? Shared(module, name) : nullptr;
}

HANDLE LoadImageW(HINSTANCE module, LPCWSTR name, UINT type, int, int, UINT flags) {
    if (type != IMAGE_ICON || (flags & LR_LOADFROMFILE) != 0) {
        // Bitmaps, cursors and files have no place here.
        SetLastError(ERROR_RESOURCE_TYPE_NOT_FOUND);
        return nullptr;
    }
    if (!Exists(module, name)) return nullptr;
    return (flags & LR_SHARED) != 0 || module == nullptr ? Shared(module, name) : Owned();
}

int LookupIconIdFromDirectoryEx(BYTE* directory, BOOL icon, int cx, int, UINT) {
    // A header of reserved, type and count, then 14 bytes an entry: width first, the icon's number last.
    constexpr std::size_t kHeader = 6;
    constexpr std::size_t kEntry = 14;
    if (directory == nullptr || WordAt(directory, 0) != 0 || WordAt(directory, 2) != (icon ? 1 : 2)) return 0;
    const int wanted = cx == 0 ? 32 : cx;
    int best = 0;
    int bestDistance = 0;
    for (std::size_t i = 0; i < WordAt(directory, 4); ++i) {
        const BYTE* entry = directory + kHeader + i * kEntry;
        const int width = entry[0] == 0 ? 256 : entry[0];
        const int distance = width > wanted ? width - wanted : wanted - width;
        if (best == 0 || distance < bestDistance) {
            best = WordAt(entry, 12);
            bestDistance = distance;
        }
    }
    return best;
}

HICON CreateIconFromResourceEx(BYTE* bits, DWORD size, BOOL, DWORD version, int, int, UINT) {
    // A bitmap header or a PNG image.
    constexpr DWORD kBitmapHeader = 40;
    const bool isPng = size >= 8 && bits != nullptr && bits[0] == 0x89 && bits[1] == 'P';
    const bool isBitmap = size >= kBitmapHeader && bits != nullptr && WordAt(bits, 0) == kBitmapHeader;
    if (version != 0x00030000 || (!isPng && !isBitmap)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    return Owned();
}

BOOL DestroyIcon(HICON icon) {
    auto& icons = Table();
    const std::lock_guard lock(icons.mutex);
    if (icons.owned.erase(icon) != 0) return TRUE;
    // Shared ones are left alone, and that counts as done.
    const bool shared =
        std::any_of(icons.shared.begin(), icons.shared.end(), [&](const auto& entry) { return entry.second == icon; });
    if (!shared) SetLastError(ERROR_INVALID_ICON_HANDLE);
    return shared;
}
