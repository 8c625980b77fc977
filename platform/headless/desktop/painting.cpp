// Update regions, kept as bounding rectangles, and the messages that empty them.
#include "platform/headless/desktop/desktop_state.h"

namespace qv::desk {

// Only what can be seen becomes invalid: hidden windows are painted whole when they are shown.
void Invalidate(Window& window, const RECT* rect, bool erase, bool children) {
    const RECT client{0, 0, WidthOf(window.client), HeightOf(window.client)};
    RECT area = rect ? *rect : client;
    IntersectRect(&area, &area, &client);
    if (!window.dirty) {
        window.dirty = true;
        window.update = area;
        Desk().dirtyWindows.push_back(window.handle);
    } else {
        UnionRect(&window.update, &window.update, &area);
    }
    window.erase = window.erase || erase;
    if (!children) return;
    for (Window* child = window.first; child; child = child->next) {
        RECT common{};
        if (!(child->style & WS_VISIBLE) || !IntersectRect(&common, &child->place, &area)) continue;
        OffsetRect(&common, -child->place.left - child->client.left, -child->place.top - child->client.top);
        Invalidate(*child, rect ? &common : nullptr, erase, true);
    }
}

void Validate(Window& window, bool children) {
    window.dirty = false;
    window.erase = false;
    window.update = {};
    if (!children) return;
    for (Window* child = window.first; child; child = child->next)
        Validate(*child, true);
}

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
}  // namespace qv::desk

using namespace qv::desk;

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
    Window* window = handle ? Find(handle) : Desk().root;
    if (!window) return FALSE;
    const bool children =
        (flags & RDW_ALLCHILDREN) || (!(flags & RDW_NOCHILDREN) && !(window->style & WS_CLIPCHILDREN));
    if (flags & RDW_INVALIDATE) {
        if (window != Desk().root && IsShown(window)) Invalidate(*window, rect, (flags & RDW_ERASE) != 0, children);
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
