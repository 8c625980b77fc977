#include "platform/headless/desktop/update_region.h"

#include "platform/headless/desktop/rectangles.h"

namespace qv::headless {

std::deque<HWND>& DirtyWindows() {
    static auto& s_windows = *new std::deque<HWND>;
    return s_windows;
}

// Only what can be seen becomes invalid: hidden windows are painted whole when they are shown.
void Invalidate(Window& window, const RECT* rect, bool erase, bool children) {
    const RECT client{0, 0, WidthOf(window.client), HeightOf(window.client)};
    RECT area = rect ? *rect : client;
    IntersectRect(&area, &area, &client);
    if (!window.dirty) {
        window.dirty = true;
        window.update = area;
        DirtyWindows().push_back(window.handle);
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

}  // namespace qv::headless
