// For a client that runs with nobody there: presses OK on whatever dialog or message box the thread shows, and
// remembers what it said. A timer does it, because the modal loop of a dialog serves timers too.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace unattended {

struct Shown {
    std::wstring caption;
    std::wstring text;  // of its labels
};

inline std::vector<Shown>& ShownDialogs() {
    static std::vector<Shown> shown;
    return shown;
}

inline std::wstring WindowText(HWND window) {
    std::wstring text(512, L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

struct Search {
    HWND button = nullptr;
    std::wstring labels;
};

inline BOOL CALLBACK LookAtChild(HWND child, LPARAM parameter) {
    auto& search = *reinterpret_cast<Search*>(parameter);
    wchar_t className[16] = L"";
    GetClassNameW(child, className, 16);
    const int id = GetDlgCtrlID(child);
    // A message box with one button may number it as Cancel.
    if (lstrcmpiW(className, L"Button") == 0 && (id == IDOK || (id == IDCANCEL && search.button == nullptr))) {
        search.button = child;
    }
    if (lstrcmpiW(className, L"Static") == 0) search.labels += WindowText(child);
    return TRUE;
}

inline BOOL CALLBACK PressIn(HWND window, LPARAM) {
    if (!IsWindowVisible(window) || !IsWindowEnabled(window)) return TRUE;
    Search search;
    EnumChildWindows(window, &LookAtChild, reinterpret_cast<LPARAM>(&search));
    if (search.button == nullptr) return TRUE;
    ShownDialogs().push_back({WindowText(window), search.labels});
    SendMessageW(search.button, BM_CLICK, 0, 0);
    return FALSE;
}

inline void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD) {
    EnumThreadWindows(GetCurrentThreadId(), &PressIn, 0);
}

inline void Start() {
    SetTimer(nullptr, 0, 100, &OnTimer);
}

}  // namespace unattended
