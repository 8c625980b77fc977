// The calls about update regions, and the messages that empty them.
#include "platform/headless/desktop/gdi.h"
#include "platform/headless/desktop/update_region.h"
#include "platform/headless/desktop/window_table.h"

namespace qv::headless {

namespace {

void UpdateNow(HWND handle, bool children) {
    const Window* window = Peek(handle);
    if (!window) return;
    if (window->dirty && IsShown(window)) SendMessageW(handle, WM_PAINT, 0, 0);
    window = Peek(handle);
    if (!window || !children) return;
    for (const HWND child : ChildrenOf(*window))
        UpdateNow(child, true);
}

}  // namespace
}  // namespace qv::headless

using namespace qv::headless;

BOOL InvalidateRect(HWND handle, const RECT* rect, BOOL erase) {
    return RedrawWindow(handle, rect, nullptr, RDW_INVALIDATE | (erase ? static_cast<UINT>(RDW_ERASE) : 0u));
}

BOOL ValidateRect(HWND handle, const RECT*) {
    Window* window = Find(handle);
    if (!window) return FALSE;
    Validate(*window, false);
    return TRUE;
}

BOOL GetUpdateRect(HWND handle, RECT* rect, BOOL) {
    const Window* window = Find(handle);
    if (!window) return FALSE;
    if (rect) *rect = window->update;
    return window->dirty;
}

BOOL UpdateWindow(HWND handle) {
    if (!Find(handle)) return FALSE;
    UpdateNow(handle, false);
    return TRUE;
}

BOOL RedrawWindow(HWND handle, const RECT* rect, HRGN, UINT flags) {
    Window* window = handle ? Find(handle) : Windows().root;
    if (!window) return FALSE;
    const bool children =
        (flags & RDW_ALLCHILDREN) || (!(flags & RDW_NOCHILDREN) && !(window->style & WS_CLIPCHILDREN));
    if (flags & RDW_INVALIDATE) {
        if (window != Windows().root && IsShown(window)) Invalidate(*window, rect, (flags & RDW_ERASE) != 0, children);
    } else if (flags & RDW_VALIDATE) {
        Validate(*window, children);
    }
    if (flags & RDW_UPDATENOW) UpdateNow(window->handle, children);
    return TRUE;
}

HDC BeginPaint(HWND handle, PAINTSTRUCT* paint) {
    Window* window = Find(handle);
    if (!window || !paint) return nullptr;
    HideCaret(handle);
    const bool erase = window->erase;
    const RECT update = window->update;
    // Valid before the background is asked for: what is invalidated from now on needs another pass.
    Validate(*window, false);
    *paint = {};
    paint->hdc = GetDC(handle);
    paint->rcPaint = update;
    if (erase) {
        paint->fErase = SendMessageW(handle, WM_ERASEBKGND, reinterpret_cast<WPARAM>(paint->hdc), 0) == 0;
    }
    return paint->hdc;
}

BOOL EndPaint(HWND handle, const PAINTSTRUCT* paint) {
    if (!paint) return FALSE;
    ReleaseDC(handle, paint->hdc);
    return TRUE;
}
