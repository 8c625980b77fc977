// Scroll bars of windows. A bar takes its room from the client area while its style is set; range, page and position
// stay with the window when it is hidden.
#include <algorithm>

#include "platform/headless/base/error.h"
#include "platform/headless/desktop/gdi.h"
#include "platform/headless/desktop/rectangles.h"
#include "platform/headless/desktop/window_table.h"

namespace qv::headless {

ScrollBar* BarOf(Window& window, int bar) noexcept {
    return bar == SB_HORZ || bar == SB_VERT ? &window.bars[bar] : nullptr;
}

namespace {

DWORD StyleOf(int bar) noexcept {
    return bar == SB_HORZ ? WS_HSCROLL : WS_VSCROLL;
}

// The position may go no further than where the last page begins.
int LastPosition(const ScrollBar& bar) noexcept {
    return bar.maximum - std::max(static_cast<int>(bar.page) - 1, 0);
}

void Clamp(ScrollBar& bar) noexcept {
    const std::int64_t span = std::int64_t{bar.maximum} - bar.minimum + 1;
    bar.page = static_cast<UINT>(std::clamp<std::int64_t>(bar.page, 0, std::max<std::int64_t>(span, 0)));
    bar.position = std::max(std::min(bar.position, LastPosition(bar)), bar.minimum);
}

// Shows and hides by style; the frame is worked out again only when something changed.
void Show(HWND handle, DWORD bars, bool show) {
    Window* window = Peek(handle);
    const DWORD wanted = show ? window->style | bars : window->style & ~bars;
    if (wanted == window->style) return;
    window->style = wanted;
    SetWindowPos(handle, nullptr, 0, 0, 0, 0,
                 SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
}

int ApplyInfo(HWND handle, int which, const SCROLLINFO& info) {
    Window* window = Peek(handle);
    ScrollBar& bar = window->bars[which];
    bar.known = true;
    const ScrollBar before = bar;
    if (info.fMask & SIF_PAGE) bar.page = info.nPage;
    if (info.fMask & SIF_POS) bar.position = info.nPos;
    if (info.fMask & SIF_RANGE) {
        // A range that ends before it begins is none.
        const bool valid = info.nMin <= info.nMax;
        bar.minimum = valid ? info.nMin : 0;
        bar.maximum = valid ? info.nMax : 0;
    }
    Clamp(bar);
    const int position = bar.position;
    // Numbers that stay as they are neither hide nor show a bar.
    const bool changed = bar.minimum != before.minimum || bar.maximum != before.maximum || bar.page != before.page ||
                         bar.position != before.position;
    if (info.fMask & (SIF_RANGE | SIF_PAGE | SIF_DISABLENOSCROLL)) {
        const bool nothingToScroll = bar.minimum >= LastPosition(bar);
        const bool onlyDisables = (info.fMask & SIF_DISABLENOSCROLL) != 0;
        bar.disabled = nothingToScroll && onlyDisables;
        // A change of the page alone may hide a bar, but does not bring it back.
        const bool onlyPage = info.fMask == SIF_PAGE;
        if (changed && (nothingToScroll ? !onlyDisables : !onlyPage)) Show(handle, StyleOf(which), !nothingToScroll);
    }
    return position;
}

}  // namespace
}  // namespace qv::headless

using namespace qv::headless;

int SetScrollInfo(HWND handle, int bar, const SCROLLINFO* info, BOOL) {
    if (!info || !Find(handle)) return 0;
    if (bar != SB_HORZ && bar != SB_VERT) return 0;
    return ApplyInfo(handle, bar, *info);
}

BOOL GetScrollInfo(HWND handle, int which, SCROLLINFO* info) {
    Window* window = Find(handle);
    if (!window || !info) return FALSE;
    const ScrollBar* bar = BarOf(*window, which);
    if (!bar || (!bar->known && !(window->style & StyleOf(which)))) {
        SetLastError(ERROR_NO_SCROLLBARS);
        return FALSE;
    }
    if (info->fMask & SIF_PAGE) info->nPage = bar->page;
    if (info->fMask & SIF_POS) info->nPos = bar->position;
    if (info->fMask & SIF_TRACKPOS) info->nTrackPos = bar->position;
    if (info->fMask & SIF_RANGE) {
        info->nMin = bar->minimum;
        info->nMax = bar->maximum;
    }
    return (info->fMask & SIF_ALL) != 0;
}

int SetScrollPos(HWND handle, int which, int position, BOOL) {
    Window* window = Find(handle);
    if (!window) return 0;
    ScrollBar* bar = BarOf(*window, which);
    if (!bar) return 0;
    const int old = bar->position;
    const SCROLLINFO info{sizeof(SCROLLINFO), SIF_POS, 0, 0, 0, position, 0};
    ApplyInfo(handle, which, info);
    return old;
}

int GetScrollPos(HWND handle, int which) {
    Window* window = Find(handle);
    if (!window) return 0;
    const ScrollBar* bar = BarOf(*window, which);
    return bar ? bar->position : 0;
}

BOOL ShowScrollBar(HWND handle, int which, BOOL show) {
    if (!Find(handle)) return FALSE;
    switch (which) {
        case SB_HORZ:
        case SB_VERT:
            Show(handle, StyleOf(which), show != FALSE);
            return TRUE;
        case SB_BOTH:
            Show(handle, WS_HSCROLL | WS_VSCROLL, show != FALSE);
            return TRUE;
        default:
            return FALSE;
    }
}

int ScrollWindowEx(HWND handle, int dx, int dy, const RECT* area, const RECT* clip, HRGN, RECT* updateRect,
                   UINT flags) {
    Window* window = Find(handle);
    if (!window) return 0;
    RECT scrolled{0, 0, WidthOf(window->client), HeightOf(window->client)};
    if (area) IntersectRect(&scrolled, &scrolled, area);
    if (clip) IntersectRect(&scrolled, &scrolled, clip);
    if (updateRect) *updateRect = scrolled;
    if (flags & SW_INVALIDATE) InvalidateRect(handle, &scrolled, (flags & SW_ERASE) != 0);
    if ((flags & SW_SCROLLCHILDREN) && (dx || dy)) {
        for (const HWND child : ChildrenOf(*window)) {
            const Window* moved = Peek(child);
            if (!moved) continue;
            RECT common{};
            if (area && !IntersectRect(&common, &moved->place, area)) continue;
            SetWindowPos(child, nullptr, moved->place.left + dx, moved->place.top + dy, 0, 0,
                         SWP_NOZORDER | SWP_NOSIZE | SWP_NOACTIVATE | SWP_NOREDRAW | SWP_DEFERERASE);
        }
    }
    return 2;  // SIMPLEREGION
}

BOOL ScrollWindow(HWND handle, int dx, int dy, const RECT* area, const RECT* clip) {
    const UINT children = area ? 0u : static_cast<UINT>(SW_SCROLLCHILDREN);
    return ScrollWindowEx(handle, dx, dy, area, clip, nullptr, nullptr, SW_INVALIDATE | SW_ERASE | children) != 0;
}
