// What a window carries: its longs, extra bytes, and text.
#include <algorithm>
#include <cstring>
#include <cwchar>

#include "platform/headless/base/error.h"
#include "platform/headless/desktop/update_region.h"
#include "platform/headless/desktop/window_table.h"

using namespace qv::headless;

namespace {

void SetStyle(HWND handle, int index, DWORD value) {
    Window* window = Peek(handle);
    const bool isStyle = index == GWL_STYLE;
    STYLESTRUCT styles{isStyle ? window->style : window->exStyle, value};
    // Minimised and child state of a window follow from what it is, not from this call; the edge from the frame.
    SendMessageW(handle, WM_STYLECHANGING, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&styles));
    window = Peek(handle);
    if (!window) return;
    if (isStyle) {
        const bool shown = (styles.styleNew & ~window->style & WS_VISIBLE) != 0;
        const bool hidden = (window->style & ~styles.styleNew & WS_VISIBLE) != 0;
        if (!IsChildStyle(*window) || !(styles.styleNew & WS_CHILD)) styles.styleNew |= WS_CLIPSIBLINGS;
        if (hidden) Validate(*window, true);
        window->style = styles.styleNew;
        if (shown && IsShown(window)) Invalidate(*window, nullptr, true, true);
    } else {
        window->exStyle = styles.styleNew;
    }
    if ((window->exStyle & WS_EX_DLGMODALFRAME) ||
        (!(window->exStyle & WS_EX_STATICEDGE) && (window->style & (WS_DLGFRAME | WS_THICKFRAME)))) {
        window->exStyle |= WS_EX_WINDOWEDGE;
    } else {
        window->exStyle &= ~static_cast<DWORD>(WS_EX_WINDOWEDGE);
    }
    SendMessageW(handle, WM_STYLECHANGED, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&styles));
}

LONG_PTR ReadExtra(const Window& window, int index, std::size_t size) {
    if (index < 0 || static_cast<std::size_t>(index) + size > window.extra.size()) {
        SetLastError(ERROR_INVALID_INDEX);
        return 0;
    }
    if (size == sizeof(LONG)) {
        LONG value = 0;
        std::memcpy(&value, window.extra.data() + index, size);
        return value;
    }
    LONG_PTR value = 0;
    std::memcpy(&value, window.extra.data() + index, size);
    return value;
}

LONG_PTR WriteExtra(Window& window, int index, LONG_PTR value, std::size_t size) {
    if (index < 0 || static_cast<std::size_t>(index) + size > window.extra.size()) {
        SetLastError(ERROR_INVALID_INDEX);
        return 0;
    }
    const LONG_PTR old = ReadExtra(window, index, size);
    if (size == sizeof(LONG)) {
        const LONG narrow = static_cast<LONG>(value);
        std::memcpy(window.extra.data() + index, &narrow, size);
    } else {
        std::memcpy(window.extra.data() + index, &value, size);
    }
    return old;
}

LONG_PTR ReadLong(HWND handle, int index, std::size_t size) {
    const Window* window = Find(handle);
    if (!window) return 0;
    if (index >= 0) return ReadExtra(*window, index, size);
    switch (index) {
        case GWLP_WNDPROC:
            return reinterpret_cast<LONG_PTR>(window->procedure);
        case GWLP_HINSTANCE:
            return reinterpret_cast<LONG_PTR>(window->instance);
        case GWLP_HWNDPARENT:
            return reinterpret_cast<LONG_PTR>(IsTopLevel(*window) ? window->owner : HandleOf(window->parent));
        case GWLP_ID:
            return IsChildStyle(*window) ? window->id : reinterpret_cast<LONG_PTR>(window->menu);
        case GWL_STYLE:
            return static_cast<LONG>(window->style);
        case GWL_EXSTYLE:
            return static_cast<LONG>(window->exStyle);
        case GWLP_USERDATA:
            return window->userData;
        default:
            SetLastError(ERROR_INVALID_INDEX);
            return 0;
    }
}

LONG_PTR WriteLong(HWND handle, int index, LONG_PTR value, std::size_t size) {
    Window* window = Find(handle);
    if (!window) return 0;
    if (index >= 0) return WriteExtra(*window, index, value, size);
    const LONG_PTR old = ReadLong(handle, index, size);
    switch (index) {
        case GWLP_WNDPROC:
            window->procedure = reinterpret_cast<WNDPROC>(value);
            return old;
        case GWLP_HINSTANCE:
            window->instance = reinterpret_cast<HINSTANCE>(value);
            return old;
        case GWLP_HWNDPARENT:
            if (!IsTopLevel(*window))
                return reinterpret_cast<LONG_PTR>(SetParent(handle, reinterpret_cast<HWND>(value)));
            window->owner = HandleOf(TopLevelOf(Peek(reinterpret_cast<HWND>(value))));
            return old;
        case GWLP_ID:
            if (IsChildStyle(*window)) {
                window->id = value;
            } else {
                window->menu = reinterpret_cast<HMENU>(value);
            }
            return old;
        case GWL_STYLE:
        case GWL_EXSTYLE:
            SetStyle(handle, index, static_cast<DWORD>(value));
            return old;
        case GWLP_USERDATA:
            window->userData = value;
            return old;
        default:
            return 0;
    }
}

}  // namespace

LONG_PTR GetWindowLongPtrW(HWND window, int index) {
    return ReadLong(window, index, sizeof(LONG_PTR));
}
LONG GetWindowLongW(HWND window, int index) {
    return static_cast<LONG>(ReadLong(window, index, sizeof(LONG)));
}
LONG_PTR SetWindowLongPtrW(HWND window, int index, LONG_PTR value) {
    return WriteLong(window, index, value, sizeof(LONG_PTR));
}
LONG SetWindowLongW(HWND window, int index, LONG value) {
    return static_cast<LONG>(WriteLong(window, index, value, sizeof(LONG)));
}

BOOL SetWindowTextW(HWND window, LPCWSTR text) {
    if (!Find(window)) return FALSE;
    return SendMessageW(window, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text)) > 0;
}

int GetWindowTextW(HWND window, LPWSTR buffer, int room) {
    if (!buffer || room <= 0) return 0;
    buffer[0] = L'\0';
    if (!Find(window)) return 0;
    return static_cast<int>(
        SendMessageW(window, WM_GETTEXT, static_cast<WPARAM>(room), reinterpret_cast<LPARAM>(buffer)));
}

int GetWindowTextLengthW(HWND window) {
    return Find(window) ? static_cast<int>(SendMessageW(window, WM_GETTEXTLENGTH, 0, 0)) : 0;
}
