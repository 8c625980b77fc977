// A list box's keys and mouse: where they lead, what they select, and that the parent is told.
#include <algorithm>

#include "platform/headless/controls/list_box.h"

namespace qv::headless {

LRESULT ListBox::HandleInput(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_SETFOCUS:
            Notify(LBN_SETFOCUS);
            return 0;
        case WM_KILLFOCUS:
            Notify(LBN_KILLFOCUS);
            return 0;
        case WM_KEYDOWN:
            OnKeyDown(static_cast<UINT>(wParam));
            return 0;
        case WM_CHAR:
            OnChar(static_cast<wchar_t>(wParam));
            return 0;
        case WM_MOUSEWHEEL: {
            // Scrolls what is seen and leaves the selection where it is.
            constexpr int kLinesPerNotch = 3;
            if (PageSize() >= m_items.Count()) return Default(message, wParam, lParam);
            SetTop(m_top - static_cast<short>(HIWORD(wParam)) * kLinesPerNotch / WHEEL_DELTA);
            return 0;
        }
        case WM_LBUTTONDOWN:
            OnLeftDown(lParam, wParam);
            return 0;
        case WM_MOUSEMOVE:
            OnMouseMove(lParam);
            return 0;
        case WM_LBUTTONUP:
            OnLeftUp();
            return 0;
        case WM_CAPTURECHANGED:
            m_tracking = false;
            return 0;
        case WM_LBUTTONDBLCLK:
            if (Has(LBS_NOTIFY)) Notify(LBN_DBLCLK);
            return 0;
        default:
            return Default(message, wParam, lParam);
    }
}

void ListBox::OnKeyDown(UINT key) {
    LRESULT wanted = -1;
    if (Has(LBS_WANTKEYBOARDINPUT)) {
        wanted = SendMessageW(Parent(), WM_VKEYTOITEM, MAKEWPARAM(key, m_caret), reinterpret_cast<LPARAM>(m_window));
        if (wanted == -2) return;
    }
    if (!IsWindow(m_window) || m_items.Count() == 0) return;
    if (wanted >= 0) {
        MoveByKey(static_cast<int>(wanted));
        return;
    }
    const int page = std::max(1, PageSize() - 1);
    switch (key) {
        case VK_LEFT:
        case VK_UP:
            MoveByKey(m_caret - 1);
            return;
        case VK_RIGHT:
        case VK_DOWN:
            MoveByKey(m_caret + 1);
            return;
        case VK_PRIOR:
            MoveByKey(m_caret - page);
            return;
        case VK_NEXT:
            MoveByKey(m_caret + page);
            return;
        case VK_HOME:
            MoveByKey(0);
            return;
        case VK_END:
            MoveByKey(m_items.Count() - 1);
            return;
        case VK_SPACE:
            if (!IsMultiple()) {
                SetCurrent(m_caret);
            } else {
                m_items[m_caret].selected = !m_items[m_caret].selected;
                m_anchor = m_caret;
            }
            Changed();
            return;
        default:
            return;
    }
}

void ListBox::MoveByKey(int index) {
    // The first key in a list where nothing is selected selects the item that has the focus.
    if (!IsMultiple() && m_current == LB_ERR) index = m_caret;
    index = std::clamp(index, 0, m_items.Count() - 1);
    if (!IsMultiple()) {
        SetCurrent(index);
    } else {
        if (IsExtended()) {
            if (!KeyHeld(VK_SHIFT) || m_anchor == LB_ERR) m_anchor = index;
            MarkOnly(m_anchor, index);
        }
        m_caret = index;
        ShowItem(index);
    }
    Changed();
}

void ListBox::OnChar(wchar_t unit) {
    LRESULT wanted = -1;
    if (Has(LBS_WANTKEYBOARDINPUT)) {
        wanted = SendMessageW(Parent(), WM_CHARTOITEM, MAKEWPARAM(unit, m_caret), reinterpret_cast<LPARAM>(m_window));
        if (wanted == -2 || !IsWindow(m_window)) return;
    }
    // The space bar has done its work as a key.
    if (wanted == -1 && unit > L' ') wanted = m_items.FindPrefix(m_caret, std::wstring_view(&unit, 1));
    if (!m_items.Holds(wanted)) return;
    const auto index = static_cast<int>(wanted);
    if (!IsMultiple()) {
        SetCurrent(index);
        Changed();
    } else {
        MoveByKey(index);
    }
}

void ListBox::OnLeftDown(LPARAM position, WPARAM modifiers) {
    SetFocus(m_window);
    const int index = ItemAt(GET_Y_LPARAM(position));
    if (index == LB_ERR) return;
    const bool shift = (modifiers & MK_SHIFT) != 0;
    const bool control = (modifiers & MK_CONTROL) != 0;
    if (!IsMultiple()) {
        SetCurrent(index);
    } else if (!IsExtended() || (control && !shift)) {
        m_items[index].selected = !m_items[index].selected;
        m_anchor = m_caret = index;
    } else {
        if (!shift || m_anchor == LB_ERR) m_anchor = index;
        MarkOnly(m_anchor, index);
        m_caret = index;
    }
    m_tracking = true;
    SetCapture(m_window);
}

void ListBox::OnMouseMove(LPARAM position) {
    const int index = ItemAt(GET_Y_LPARAM(position));
    if (!m_tracking || index == LB_ERR || index == m_caret) return;
    if (!IsMultiple()) {
        SetCurrent(index);
    } else if (IsExtended()) {
        MarkOnly(m_anchor, index);
        m_caret = index;
    }
}

void ListBox::OnLeftUp() {
    if (!m_tracking) return;
    m_tracking = false;
    ReleaseCapture();
    Changed();
}

}  // namespace qv::headless
