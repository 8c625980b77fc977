// Moving and sizing windows: position messages, client rectangles, z-order.
#include "platform/headless/desktop/placement.h"

#include <algorithm>
#include <unordered_map>

#include "platform/headless/base/error.h"
#include "platform/headless/desktop/rectangles.h"
#include "platform/headless/desktop/screen.h"
#include "platform/headless/desktop/update_region.h"
#include "platform/headless/desktop/window_table.h"

namespace qv::headless {

bool HasTrackSize(DWORD style) noexcept {
    return (style & WS_THICKFRAME) || !(style & (WS_POPUP | WS_CHILD));
}

// The limits the platform proposes, as the window changed them.
MINMAXINFO QueryMinMax(HWND handle) {
    MINMAXINFO limits{};
    const Window* window = Peek(handle);
    if (!window) return limits;
    RECT frame{};
    AdjustWindowRectEx(&frame, window->style, FALSE, window->exStyle);
    const LONG border = -frame.left;
    const ScreenState& screen = Screen();
    RECT space{0, 0, screen.size.cx, screen.size.cy};
    // With a maximise box and a caption a window keeps clear of the task bar.
    if ((window->style & WS_MAXIMIZEBOX) &&
        ((window->style & WS_CAPTION) == WS_CAPTION || !(window->style & (WS_CHILD | WS_POPUP)))) {
        space = screen.workArea;
    }
    if (IsChildStyle(*window) && window->parent) {
        space = {0, 0, WidthOf(window->parent->client), HeightOf(window->parent->client)};
    }
    limits.ptMaxSize = {WidthOf(space) + 2 * border, HeightOf(space) + 2 * border};
    limits.ptMaxPosition = {space.left - border, space.top - border};
    if (window->style & (WS_DLGFRAME | WS_BORDER)) {
        limits.ptMinTrackSize = {GetSystemMetrics(SM_CXMINTRACK), GetSystemMetrics(SM_CYMINTRACK)};
    } else {
        limits.ptMinTrackSize = {2 * border, 2 * border};
    }
    limits.ptMaxTrackSize = {GetSystemMetrics(SM_CXMAXTRACK), GetSystemMetrics(SM_CYMAXTRACK)};
    if (window->maximised.x != -1 || window->maximised.y != -1) limits.ptMaxPosition = window->maximised;
    SendMessageW(handle, WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&limits));
    limits.ptMaxTrackSize.x = std::max(limits.ptMaxTrackSize.x, limits.ptMinTrackSize.x);
    limits.ptMaxTrackSize.y = std::max(limits.ptMaxTrackSize.y, limits.ptMinTrackSize.y);
    return limits;
}

void CalculateClient(Window& window) {
    const HWND handle = window.handle;
    const RECT place = window.place;
    RECT rect = place;
    SendMessageW(handle, WM_NCCALCSIZE, FALSE, reinterpret_cast<LPARAM>(&rect));
    Window* again = Peek(handle);
    if (again)
        again->client = {rect.left - place.left, rect.top - place.top, rect.right - place.left,
                         rect.bottom - place.top};
}

namespace {

constexpr UINT kNothingMoved = SWP_NOSIZE | SWP_NOMOVE | kSwpNoClientSize | kSwpNoClientMove | SWP_NOZORDER;
constexpr UINT kStatusFlags = kNothingMoved | SWP_FRAMECHANGED | SWP_HIDEWINDOW | SWP_SHOWWINDOW;

// What will not change is marked as not changing, so that the window is told no more than happens.
void DropEmptyChanges(const Window& window, WINDOWPOS& position, const RECT& place) {
    if (window.style & WS_VISIBLE) {
        position.flags &= ~static_cast<UINT>(SWP_SHOWWINDOW);
    } else {
        position.flags &= ~static_cast<UINT>(SWP_HIDEWINDOW);
    }
    if (WidthOf(place) == WidthOf(window.place) && HeightOf(place) == HeightOf(window.place))
        position.flags |= SWP_NOSIZE;
    if (place.left == window.place.left && place.top == window.place.top) position.flags |= SWP_NOMOVE;
    if (!IsChildStyle(window) && !(position.flags & (SWP_NOACTIVATE | SWP_HIDEWINDOW)) &&
        position.hwndInsertAfter != HWND_TOPMOST && position.hwndInsertAfter != HWND_NOTOPMOST) {
        // A window that becomes active comes to the top.
        position.flags &= ~static_cast<UINT>(SWP_NOZORDER);
        position.hwndInsertAfter = HWND_TOP;
    }
    if (position.flags & SWP_NOZORDER) return;
    const HWND after = position.hwndInsertAfter;
    const Window* sibling = Peek(after);
    const bool stays = (after == HWND_TOP && !window.previous) || (after == HWND_BOTTOM && !window.next) ||
                       after == window.handle || (sibling && sibling->next == &window);
    const bool foreign = after != HWND_TOP && after != HWND_BOTTOM && after != HWND_TOPMOST &&
                         after != HWND_NOTOPMOST && (!sibling || sibling->parent != window.parent);
    if (stays || foreign) position.flags |= SWP_NOZORDER;
}

void Reorder(Window& window, HWND insertAfter) {
    Window* parent = window.parent;
    if (insertAfter == HWND_TOPMOST) window.exStyle |= WS_EX_TOPMOST;
    if (insertAfter == HWND_NOTOPMOST) window.exStyle &= ~static_cast<DWORD>(WS_EX_TOPMOST);
    Unlink(window);
    Link(window, *parent, insertAfter);
    if (!IsTopLevel(window)) return;
    // What a window owns stays above it.
    std::vector<Window*> owned;
    for (Window* below = window.next; below; below = below->next) {
        if (below->owner == window.handle) owned.push_back(below);
    }
    for (Window* popup : owned) {
        Unlink(*popup);
        Link(*popup, *parent, HandleOf(window.previous));
    }
}

// Returns the new client rectangle, relative to the new window rectangle, and marks what of it changed.
RECT NewClient(HWND handle, WINDOWPOS& position, const RECT& place) {
    Window* window = Peek(handle);
    RECT client = window->client;
    position.flags |= kSwpNoClientSize | kSwpNoClientMove;
    if ((position.flags & (SWP_NOSIZE | SWP_FRAMECHANGED)) != SWP_NOSIZE) {
        RECT oldClient = client;
        OffsetRect(&oldClient, window->place.left, window->place.top);
        NCCALCSIZE_PARAMS params{{place, window->place, oldClient}, &position};
        SendMessageW(handle, WM_NCCALCSIZE, TRUE, reinterpret_cast<LPARAM>(&params));
        window = Peek(handle);
        if (!window) return client;
        client = params.rgrc[0];
        if (client.left != oldClient.left || client.top != oldClient.top) {
            position.flags &= ~kSwpNoClientMove;
        }
        if (WidthOf(client) != WidthOf(oldClient) || HeightOf(client) != HeightOf(oldClient)) {
            position.flags &= ~kSwpNoClientSize;
        }
        OffsetRect(&client, -place.left, -place.top);
    } else if (!(position.flags & SWP_NOMOVE)) {
        position.flags &= ~kSwpNoClientMove;
    }
    return client;
}

}  // namespace

bool PlaceWindow(WINDOWPOS position) {
    const HWND handle = position.hwnd;
    Window* window = Find(handle);
    if (!window) return false;
    if (window == Windows().root) return false;
    if (!(position.flags & SWP_NOSENDCHANGING)) {
        SendMessageW(handle, WM_WINDOWPOSCHANGING, 0, reinterpret_cast<LPARAM>(&position));
        window = Peek(handle);
        if (!window) return false;
    }
    RECT place = window->place;
    if (!(position.flags & SWP_NOMOVE)) {
        // As far as the messages about it can tell.
        constexpr int kNearest = -32768;
        constexpr int kFarthest = 32767;
        OffsetRect(&place, std::clamp(position.x, kNearest, kFarthest) - place.left,
                   std::clamp(position.y, kNearest, kFarthest) - place.top);
    }
    if (!(position.flags & SWP_NOSIZE)) {
        constexpr int kLargest = 32767;
        place.right = place.left + std::clamp(position.cx, 0, kLargest);
        place.bottom = place.top + std::clamp(position.cy, 0, kLargest);
    }
    DropEmptyChanges(*window, position, place);

    const RECT client = NewClient(handle, position, place);
    window = Peek(handle);
    if (!window) return false;
    if (!(position.flags & SWP_NOZORDER)) Reorder(*window, position.hwndInsertAfter);
    window->place = place;
    window->client = client;
    if (!(window->style & (WS_MINIMIZE | WS_MAXIMIZE))) window->normal = place;
    if (position.flags & SWP_SHOWWINDOW) {
        window->style |= WS_VISIBLE;
    } else if (position.flags & SWP_HIDEWINDOW) {
        Validate(*window, true);
        window->style &= ~static_cast<DWORD>(WS_VISIBLE);
    }
    if (!(position.flags & SWP_NOREDRAW) &&
        ((position.flags & (SWP_SHOWWINDOW | SWP_FRAMECHANGED)) || !(position.flags & SWP_NOSIZE)) && IsShown(window)) {
        Invalidate(*window, nullptr, true, (position.flags & SWP_SHOWWINDOW) != 0);
    }
    if (!(position.flags & (SWP_NOACTIVATE | SWP_HIDEWINDOW))) {
        if (IsChildStyle(*window)) {
            SendMessageW(handle, WM_CHILDACTIVATE, 0, 0);
        } else {
            SetForegroundWindow(handle);
        }
        window = Peek(handle);
        if (!window) return true;
    }
    if ((position.flags & kStatusFlags) != kNothingMoved) {
        position.x = window->place.left;
        position.y = window->place.top;
        position.cx = WidthOf(window->place);
        position.cy = HeightOf(window->place);
        SendMessageW(handle, WM_WINDOWPOSCHANGED, 0, reinterpret_cast<LPARAM>(&position));
    }
    return true;
}

}  // namespace qv::headless

using namespace qv::headless;

BOOL SetWindowPos(HWND window, HWND insertAfter, int x, int y, int width, int height, UINT flags) {
    return PlaceWindow({window, insertAfter, x, y, width, height, flags});
}

BOOL MoveWindow(HWND window, int x, int y, int width, int height, BOOL repaint) {
    return SetWindowPos(window, nullptr, x, y, width, height,
                        SWP_NOZORDER | SWP_NOACTIVATE | (repaint ? 0u : static_cast<UINT>(SWP_NOREDRAW)));
}

// A batch is a list of positions until it is ended. Each call hands the batch on; a failing one frees it.
struct HDWP__ {
    std::vector<WINDOWPOS> positions;
    std::unordered_map<HWND, std::size_t> places;  // of the windows in it
};

HDWP BeginDeferWindowPos(int count) {
    if (count < 0) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    auto batch = std::make_unique<HDWP__>();
    batch->positions.reserve(static_cast<std::size_t>(count));
    return batch.release();
}

HDWP DeferWindowPos(HDWP info, HWND window, HWND insertAfter, int x, int y, int width, int height, UINT flags) {
    if (!info) return nullptr;
    if (!Find(window)) {
        const std::unique_ptr<HDWP__> freed(info);
        return nullptr;
    }
    WINDOWPOS fresh{window, insertAfter, x, y, width, height, flags};
    const auto [place, isNew] = info->places.try_emplace(window, info->positions.size());
    if (isNew) {
        info->positions.push_back(fresh);
        return info;
    }
    WINDOWPOS* const known = &info->positions[place->second];
    // A second request for a window adds to the first.
    if (!(flags & SWP_NOZORDER)) known->hwndInsertAfter = insertAfter;
    if (!(flags & SWP_NOMOVE)) {
        known->x = x;
        known->y = y;
    }
    if (!(flags & SWP_NOSIZE)) {
        known->cx = width;
        known->cy = height;
    }
    constexpr UINT kDenying =
        SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOREDRAW | SWP_NOACTIVATE | SWP_NOCOPYBITS | SWP_NOOWNERZORDER;
    constexpr UINT kAsking = SWP_SHOWWINDOW | SWP_HIDEWINDOW | SWP_FRAMECHANGED;
    known->flags &= flags | ~kDenying;
    known->flags |= flags & kAsking;
    return info;
}

BOOL EndDeferWindowPos(HDWP info) {
    if (!info) return FALSE;
    const std::unique_ptr<HDWP__> batch(info);
    bool done = true;
    for (const WINDOWPOS& position : batch->positions)
        done = PlaceWindow(position) && done;
    return done;
}
