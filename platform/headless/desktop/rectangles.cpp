// Where windows are: coordinate spaces, and arithmetic on rectangles.
#include "platform/headless/desktop/rectangles.h"

#include <algorithm>

#include "platform/headless/desktop/window_table.h"

namespace qv::headless {

POINT ClientOrigin(const Window* window) noexcept {
    POINT origin{};
    for (; window && window != Windows().root; window = window->parent) {
        origin.x += window->place.left + window->client.left;
        origin.y += window->place.top + window->client.top;
    }
    return origin;
}

RECT ScreenRect(const Window& window) noexcept {
    RECT rect = window.place;
    const POINT origin = ClientOrigin(window.parent);
    OffsetRect(&rect, origin.x, origin.y);
    return rect;
}

}  // namespace qv::headless

using namespace qv::headless;

BOOL GetWindowRect(HWND handle, RECT* rect) {
    const Window* window = Find(handle);
    if (!window || !rect) return FALSE;
    *rect = ScreenRect(*window);
    return TRUE;
}

BOOL GetClientRect(HWND handle, RECT* rect) {
    const Window* window = Find(handle);
    if (!window || !rect) return FALSE;
    *rect = {0, 0, WidthOf(window->client), HeightOf(window->client)};
    return TRUE;
}

BOOL ClientToScreen(HWND handle, POINT* point) {
    const Window* window = Find(handle);
    if (!window || !point) return FALSE;
    const POINT origin = ClientOrigin(window);
    *point = {Sum(point->x, origin.x), Sum(point->y, origin.y)};
    return TRUE;
}

BOOL ScreenToClient(HWND handle, POINT* point) {
    const Window* window = Find(handle);
    if (!window || !point) return FALSE;
    const POINT origin = ClientOrigin(window);
    *point = {Difference(point->x, origin.x), Difference(point->y, origin.y)};
    return TRUE;
}

// The low word of the result is the horizontal distance, the high word the vertical one.
int MapWindowPoints(HWND from, HWND to, POINT* points, UINT count) {
    const Window* source = from ? Find(from) : Windows().root;
    const Window* target = to ? Find(to) : Windows().root;
    if (!source || !target) return 0;
    const POINT a = ClientOrigin(source);
    const POINT b = ClientOrigin(target);
    const POINT shift{a.x - b.x, a.y - b.y};
    for (UINT i = 0; i < count; ++i) {
        points[i] = {Sum(points[i].x, shift.x), Sum(points[i].y, shift.y)};
    }
    return MAKELONG(static_cast<std::uintptr_t>(shift.x), static_cast<std::uintptr_t>(shift.y));
}

namespace {

// The deepest visible window at the point, among disabled ones too, or not at all below the one given.
const Window* Hit(const Window& window, POINT point) {
    for (const Window* child = window.first; child; child = child->next) {
        if (!(child->style & WS_VISIBLE) || !PtInRect(&child->place, point)) continue;
        const POINT inside{point.x - child->place.left - child->client.left,
                           point.y - child->place.top - child->client.top};
        if (child->style & WS_DISABLED) {
            // A disabled child is passed over in favour of what lies below it; a disabled top-level window is not.
            if (IsTopLevel(*child)) return child;
            continue;
        }
        return Hit(*child, inside);
    }
    return &window;
}

}  // namespace

HWND WindowFromPoint(POINT point) {
    return Hit(*Windows().root, point)->handle;
}

BOOL IsRectEmpty(const RECT* rect) {
    return !rect || rect->left >= rect->right || rect->top >= rect->bottom;
}

BOOL EqualRect(const RECT* a, const RECT* b) {
    return a && b && a->left == b->left && a->top == b->top && a->right == b->right && a->bottom == b->bottom;
}

BOOL InflateRect(RECT* rect, int dx, int dy) {
    if (!rect) return FALSE;
    *rect = {Difference(rect->left, dx), Difference(rect->top, dy), Sum(rect->right, dx), Sum(rect->bottom, dy)};
    return TRUE;
}

BOOL OffsetRect(RECT* rect, int dx, int dy) {
    if (!rect) return FALSE;
    *rect = {Sum(rect->left, dx), Sum(rect->top, dy), Sum(rect->right, dx), Sum(rect->bottom, dy)};
    return TRUE;
}

BOOL IntersectRect(RECT* target, const RECT* a, const RECT* b) {
    if (!target || !a || !b) return FALSE;
    const RECT common{std::max(a->left, b->left), std::max(a->top, b->top), std::min(a->right, b->right),
                      std::min(a->bottom, b->bottom)};
    *target = IsRectEmpty(a) || IsRectEmpty(b) || IsRectEmpty(&common) ? RECT{} : common;
    return !IsRectEmpty(target);
}

BOOL UnionRect(RECT* target, const RECT* a, const RECT* b) {
    if (!target || !a || !b) return FALSE;
    if (IsRectEmpty(a)) {
        *target = IsRectEmpty(b) ? RECT{} : *b;
    } else if (IsRectEmpty(b)) {
        *target = *a;
    } else {
        *target = {std::min(a->left, b->left), std::min(a->top, b->top), std::max(a->right, b->right),
                   std::max(a->bottom, b->bottom)};
    }
    return !IsRectEmpty(target);
}

BOOL PtInRect(const RECT* rect, POINT point) {
    return rect && point.x >= rect->left && point.x < rect->right && point.y >= rect->top && point.y < rect->bottom;
}

// number * numerator / denominator rounded to nearest, halves away from zero; -1 for a zero denominator or an overflow.
int MulDiv(int number, int numerator, int denominator) {
    if (denominator == 0) return -1;
    const std::int64_t product = std::int64_t{number} * numerator;
    const std::int64_t divisor = denominator;
    const std::int64_t half = (divisor < 0 ? -divisor : divisor) / 2;
    const std::int64_t result = (product + (product < 0 ? -half : half)) / divisor;
    return result > INT32_MAX || result < INT32_MIN ? -1 : static_cast<int>(result);
}
