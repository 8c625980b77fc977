// Controls of dialogs by identifier, and the next one in tab order or group.
#include <algorithm>
#include <cwchar>
#include <string>

#include "platform/headless/base/error.h"
#include "platform/headless/desktop/controls.h"
#include "platform/headless/desktop/dialog.h"
#include "platform/headless/desktop/window_table.h"

namespace qv::headless {
namespace {

bool IsUsable(const Window& window) {
    return (window.style & WS_VISIBLE) && !(window.style & WS_DISABLED);
}
bool IsContainer(const Window& window) {
    return (window.exStyle & WS_EX_CONTROLPARENT) != 0;
}

// The tab stops below a window in tab order, containers opened up. Hidden and disabled branches have none.
void CollectTabStops(const Window& parent, std::vector<const Window*>& stops, const Window* always) {
    for (const Window* child = parent.first; child; child = child->next) {
        const bool usable = IsUsable(*child);
        if (IsContainer(*child)) {
            if (usable || IsDescendant(child, always)) CollectTabStops(*child, stops, always);
            if (child == always) stops.push_back(child);
        } else if (child != always && IsDescendant(child, always)) {
            // The focus lies inside a composite control and stands in its place.
            stops.push_back(always);
        } else if ((usable && (child->style & WS_TABSTOP)) || child == always) {
            stops.push_back(child);
        }
    }
}

// All controls in order, with those of containers in the place of the container.
void CollectControls(const Window& parent, std::vector<const Window*>& controls) {
    for (const Window* child = parent.first; child; child = child->next) {
        if (IsContainer(*child) && child->first) {
            CollectControls(*child, controls);
        } else {
            controls.push_back(child);
        }
    }
}

// The controls of one group in order: from the one that begins it to the one before the next beginning. What stands
// before the first beginning belongs to the last group.
std::vector<const Window*> GroupOf(const Window& root, const Window& member) {
    std::vector<const Window*> controls;
    CollectControls(root, controls);
    const auto begins = [](const Window* window) { return (window->style & WS_GROUP) != 0; };
    const auto at = std::find(controls.begin(), controls.end(), &member);
    if (at == controls.end()) return {&member};
    // With the group's beginning in front, one ends where the next begins.
    const auto before = std::find_if(std::make_reverse_iterator(std::next(at)), controls.rend(), begins);
    const auto last = std::find_if(controls.rbegin(), controls.rend(), begins);
    if (last == controls.rend()) return controls;
    std::rotate(controls.begin(), std::prev((before != controls.rend() ? before : last).base()), controls.end());
    controls.erase(std::find_if(std::next(controls.begin()), controls.end(), begins), controls.end());
    return controls;
}

}  // namespace
}  // namespace qv::headless

using namespace qv::headless;

HWND GetDlgItem(HWND dialog, int id) {
    const Window* window = Find(dialog);
    if (!window) return nullptr;
    for (const Window* child = window->first; child; child = child->next) {
        if (static_cast<int>(child->id) == id) return child->handle;
    }
    SetLastError(ERROR_CONTROL_ID_NOT_FOUND);
    return nullptr;
}

int GetDlgCtrlID(HWND control) {
    return static_cast<int>(GetWindowLongPtrW(control, GWLP_ID));
}

HWND GetNextDlgTabItem(HWND dialog, HWND control, BOOL previous) {
    const Window* root = Find(dialog);
    if (!root) return nullptr;
    const Window* from = control && control != dialog ? Find(control) : nullptr;
    if (control && control != dialog && (!from || !IsDescendant(root, from))) return nullptr;
    std::vector<const Window*> stops;
    CollectTabStops(*root, stops, from);
    if (stops.empty()) return nullptr;
    const auto at = std::find(stops.begin(), stops.end(), from);
    if (!from || at == stops.end()) return HandleOf(previous ? stops.back() : stops.front());
    const auto count = static_cast<std::size_t>(stops.size());
    const auto index = static_cast<std::size_t>(at - stops.begin());
    return HandleOf(stops[(index + (previous ? count - 1 : 1)) % count]);
}

HWND GetNextDlgGroupItem(HWND dialog, HWND control, BOOL previous) {
    const Window* root = Find(dialog);
    if (!root) return nullptr;
    const Window* from = control && control != dialog ? Find(control) : nullptr;
    if (control && control != dialog && (!from || !IsDescendant(root, from))) return nullptr;
    // A part of a composite control stands for the whole.
    while (from && from->parent != root && !IsContainer(*from->parent))
        from = from->parent;
    if (!from) {
        from = root->first;
        while (from && IsContainer(*from) && from->first)
            from = from->first;
        if (!from) return nullptr;
        // Nothing to start from: the first usable control of the first group, or its last.
        std::vector<const Window*> group = GroupOf(*root, *from);
        std::rotate(group.begin(), std::find(group.begin(), group.end(), from), group.end());
        const auto usable = [](const Window* window) { return IsUsable(*window); };
        if (previous) {
            const auto last = std::find_if(group.rbegin(), group.rend(), usable);
            return last == group.rend() ? group.front()->handle : (*last)->handle;
        }
        const auto first = std::find_if(group.begin(), group.end(), usable);
        return first == group.end() ? group.front()->handle : (*first)->handle;
    }
    const std::vector<const Window*> group = GroupOf(*root, *from);
    const std::size_t count = group.size();
    const auto start = static_cast<std::size_t>(std::find(group.begin(), group.end(), from) - group.begin());
    for (std::size_t step = 1; step < count; ++step) {
        const Window* candidate = group[(start + (previous ? count - step : step)) % count];
        if (IsUsable(*candidate) && !IsContainer(*candidate)) return candidate->handle;
    }
    return from->handle;
}

UINT GetDlgItemTextW(HWND dialog, int id, LPWSTR buffer, int room) {
    const HWND control = GetDlgItem(dialog, id);
    if (!control) {
        if (buffer && room > 0) buffer[0] = L'\0';
        return 0;
    }
    return static_cast<UINT>(GetWindowTextW(control, buffer, room));
}

LRESULT SendDlgItemMessageW(HWND dialog, int id, UINT message, WPARAM wParam, LPARAM lParam) {
    const HWND control = GetDlgItem(dialog, id);
    return control ? SendMessageW(control, message, wParam, lParam) : 0;
}

UINT IsDlgButtonChecked(HWND dialog, int id) {
    return static_cast<UINT>(SendDlgItemMessageW(dialog, id, BM_GETCHECK, 0, 0));
}
