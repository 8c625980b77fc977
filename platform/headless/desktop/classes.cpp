#include "platform/headless/desktop/classes.h"

#include <algorithm>
#include <cwchar>
#include <cwctype>

#include "platform/headless/base/error.h"
#include "platform/headless/desktop/window_table.h"

namespace qv::headless {

ClassTable& Classes() {
    // Never destroyed: classes of modules that unload late are still in it.
    static ClassTable& s_table = *new ClassTable;
    return s_table;
}

std::wstring LowerCase(std::wstring_view text) {
    std::wstring lower(text);
    for (wchar_t& unit : lower)
        unit = static_cast<wchar_t>(std::towlower(static_cast<std::wint_t>(unit)));
    return lower;
}

// A class is seen by the module that registered it, a global one by everybody; no module means any.
WindowClass* FindClass(HINSTANCE instance, LPCWSTR name) {
    ClassTable& table = Classes();
    if (!name) return nullptr;
    if (IS_INTRESOURCE(name)) {
        const auto found = table.classAtoms.find(static_cast<ATOM>(reinterpret_cast<UINT_PTR>(name)));
        return found == table.classAtoms.end() ? nullptr : found->second;
    }
    const auto found = table.classes.find(LowerCase(name));
    if (found == table.classes.end()) return nullptr;
    WindowClass* global = nullptr;
    for (const auto& candidate : found->second) {
        if (candidate->info.style & CS_GLOBALCLASS) {
            global = candidate.get();
        } else if (!instance || !candidate->info.hInstance || candidate->info.hInstance == instance) {
            return candidate.get();
        }
    }
    return global;
}

WindowClass& AddSystemClass(const wchar_t* name, ATOM atom, WNDPROC procedure, int extra) {
    auto entry = std::make_unique<WindowClass>();
    entry->name = name;
    entry->info.cbSize = sizeof(WNDCLASSEXW);
    entry->info.style = CS_GLOBALCLASS | CS_DBLCLKS;
    entry->info.lpfnWndProc = procedure;
    entry->info.cbWndExtra = extra;
    entry->atom = atom;
    Classes().classAtoms[atom] = entry.get();
    return *Classes().classes[name].emplace_back(std::move(entry));
}

}  // namespace qv::headless

using namespace qv::headless;

ATOM RegisterClassExW(const WNDCLASSEXW* windowClass) {
    if (!windowClass || windowClass->cbSize != sizeof(WNDCLASSEXW) || !windowClass->lpszClassName ||
        !windowClass->lpfnWndProc || windowClass->cbWndExtra < 0 || IS_INTRESOURCE(windowClass->lpszClassName) ||
        !*windowClass->lpszClassName) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    ClassTable& table = Classes();
    auto& sameName = table.classes[LowerCase(windowClass->lpszClassName)];
    const bool taken = std::any_of(sameName.begin(), sameName.end(), [&](const auto& other) {
        return other->info.hInstance == windowClass->hInstance ||
               (other->info.style & windowClass->style & CS_GLOBALCLASS) != 0;
    });
    if (taken) {
        SetLastError(ERROR_CLASS_ALREADY_EXISTS);
        return 0;
    }
    auto entry = std::make_unique<WindowClass>();
    entry->name = windowClass->lpszClassName;
    entry->info = *windowClass;
    entry->info.lpszClassName = nullptr;
    entry->atom = table.nextAtom++;
    const ATOM atom = entry->atom;
    table.classAtoms[atom] = entry.get();
    sameName.push_back(std::move(entry));
    return atom;
}

ATOM RegisterClassW(const WNDCLASSW* windowClass) {
    if (!windowClass) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    WNDCLASSEXW extended{};
    extended.cbSize = sizeof extended;
    extended.style = windowClass->style;
    extended.lpfnWndProc = windowClass->lpfnWndProc;
    extended.cbClsExtra = windowClass->cbClsExtra;
    extended.cbWndExtra = windowClass->cbWndExtra;
    extended.hInstance = windowClass->hInstance;
    extended.hIcon = windowClass->hIcon;
    extended.hCursor = windowClass->hCursor;
    extended.hbrBackground = windowClass->hbrBackground;
    extended.lpszMenuName = windowClass->lpszMenuName;
    extended.lpszClassName = windowClass->lpszClassName;
    return RegisterClassExW(&extended);
}

int GetClassNameW(HWND window, LPWSTR buffer, int room) {
    const Window* found = Find(window);
    if (!found || !buffer || room <= 0) return 0;
    const std::size_t length = std::min(found->windowClass->name.size(), static_cast<std::size_t>(room - 1));
    std::wmemcpy(buffer, found->windowClass->name.c_str(), length);
    buffer[length] = L'\0';
    return static_cast<int>(length);
}

ULONG_PTR GetClassLongPtrW(HWND window, int index) {
    const Window* found = Find(window);
    if (!found) return 0;
    const WNDCLASSEXW& info = found->windowClass->info;
    switch (index) {
        case GCL_STYLE:
            return info.style;
        default:
            SetLastError(ERROR_INVALID_INDEX);
            return 0;
    }
}
