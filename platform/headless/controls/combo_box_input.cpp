// A combo box's window, edit and input: creation and size, keys, mouse and focus, opening and closing.
#include <algorithm>
#include <utility>

#include "platform/headless/controls/combo_box.h"
#include "platform/headless/controls/edit.h"

namespace qv::headless {

namespace {

constexpr UINT_PTR kEditId = 1001;

}  // namespace

void ComboBox::OnCreate(const CREATESTRUCTW& create) {
    m_itemHeight = LineHeight();
    m_fieldHeight = m_itemHeight + 4;
    if (IsOwnerDrawn()) {
        m_fieldHeight = static_cast<int>(Measure(static_cast<UINT>(-1), m_fieldHeight));
        m_itemHeight = std::max(1, static_cast<int>(Measure(0, m_itemHeight)));
    }
    if (Type() != CBS_DROPDOWNLIST) CreateEdit();
    if (Type() == CBS_SIMPLE) {
        PlaceEdit();
        return;
    }
    // The height that the creator gives counts the open list.
    SetWindowPos(m_window, nullptr, 0, 0, create.cx, create.cy, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

UINT ComboBox::Measure(UINT item, int proposed) const {
    MEASUREITEMSTRUCT measure = {};
    measure.CtlType = ODT_COMBOBOX;
    measure.CtlID = static_cast<UINT>(GetDlgCtrlID(m_window));
    measure.itemID = item;
    measure.itemHeight = static_cast<UINT>(proposed);
    SendMessageW(Parent(), WM_MEASUREITEM, measure.CtlID, reinterpret_cast<LPARAM>(&measure));
    return measure.itemHeight;
}

void ComboBox::CreateEdit() {
    DWORD style = WS_CHILD | WS_VISIBLE | ES_NOHIDESEL;
    if (Has(CBS_AUTOHSCROLL)) style |= ES_AUTOHSCROLL;
    if (Has(CBS_UPPERCASE)) style |= ES_UPPERCASE;
    if (Has(CBS_LOWERCASE)) style |= ES_LOWERCASE;
    if (Has(WS_DISABLED)) style |= WS_DISABLED;
    const auto instance = reinterpret_cast<HINSTANCE>(GetWindowLongPtrW(m_window, GWLP_HINSTANCE));
    m_edit = CreateWindowExW(0, L"Edit", L"", style, 0, 0, 0, 0, m_window, reinterpret_cast<HMENU>(kEditId), instance,
                             nullptr);
    if (m_edit != nullptr) SetWindowLongPtrW(m_edit, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&ComboBox::EditProc));
}

// The edit of a combo box leaves to the combo what moves in the list, and what it would do in a dialog.
LRESULT CALLBACK ComboBox::EditProc(HWND edit, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    HWND combo = GetParent(edit);
    switch (message) {
        case WM_SYSKEYDOWN:
            if (wParam == VK_UP || wParam == VK_DOWN) return SendMessageW(combo, message, wParam, lParam);
            break;
        case WM_KEYDOWN:
            switch (wParam) {
                case VK_UP:
                case VK_DOWN:
                case VK_PRIOR:
                case VK_NEXT:
                case VK_F4:
                case VK_RETURN:
                case VK_ESCAPE:
                    return SendMessageW(combo, message, wParam, lParam);
                default:
                    break;
            }
            break;
        case WM_GETDLGCODE:
            return ControlProc<Edit>(edit, message, wParam, lParam) | SendMessageW(combo, message, wParam, lParam);
        case WM_SETTEXT: {
            auto* holder = reinterpret_cast<std::shared_ptr<ComboBox>*>(GetWindowLongPtrW(combo, 0));
            if (holder == nullptr) break;
            const std::shared_ptr<ComboBox> running = *holder;
            const bool before = std::exchange(running->m_silent, true);
            const LRESULT result = ControlProc<Edit>(edit, message, wParam, lParam);
            running->m_silent = before;
            return result;
        }
        default:
            break;
    }
    return ControlProc<Edit>(edit, message, wParam, lParam);
}

void ComboBox::OnFont(WPARAM font, bool redraw) {
    SetFont(font);
    if (m_edit != nullptr) SendMessageW(m_edit, WM_SETFONT, font, redraw);
    if (!IsOwnerDrawn()) {
        m_itemHeight = LineHeight();
        m_fieldHeight = m_itemHeight + 4;
    }
    if (Type() == CBS_SIMPLE) return PlaceEdit();
    RECT window = {};
    GetWindowRect(m_window, &window);
    SetWindowPos(m_window, nullptr, 0, 0, window.right - window.left, ClosedHeight() + m_listHeight,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

// A closed combo box is as high as its font makes it; a greater height is room for the list.
void ComboBox::OnPositionChanging(WINDOWPOS& position) {
    if ((position.flags & SWP_NOSIZE) != 0 || Type() == CBS_SIMPLE || m_fieldHeight == 0) return;
    const int closed = ClosedHeight();
    if (position.cy > closed) m_listHeight = position.cy - closed;
    position.cy = closed;
}

void ComboBox::PlaceEdit() const {
    if (m_edit == nullptr) return;
    const RECT button = ButtonRect();
    constexpr int kInset = 1;  // on all sides, of the frame
    const int right = Type() == CBS_SIMPLE ? ClientWidth() - kBorder - kInset : button.left;
    SetWindowPos(m_edit, nullptr, kBorder + kInset, kBorder + kInset, std::max(0, right - kBorder - kInset),
                 std::max(0, m_fieldHeight - 2 * kInset), SWP_NOZORDER | SWP_NOACTIVATE);
}

void ComboBox::OnEditCommand(int code) {
    switch (code) {
        case EN_SETFOCUS:
            Notify(CBN_SETFOCUS);
            return;
        case EN_KILLFOCUS:
            OnFocusLost();
            return;
        case EN_UPDATE:
            if (!m_silent) Notify(CBN_EDITUPDATE);
            return;
        case EN_CHANGE:
            if (m_silent) return;
            m_current = CB_ERR;
            Notify(CBN_EDITCHANGE);
            return;
        case EN_MAXTEXT:
            if (!m_silent) Notify(CBN_ERRSPACE);
            return;
        default:
            return;
    }
}

void ComboBox::OnFocusLost() {
    if (m_dropped) {
        Close(false);
    } else if (Type() != CBS_SIMPLE) {
        Notify(CBN_SELENDCANCEL);
    }
    if (IsWindow(m_window)) Notify(CBN_KILLFOCUS);
}

bool ComboBox::OnKeyDown(UINT key, bool alt) {
    const int page = std::max(1, m_listHeight / m_itemHeight - 1);
    const bool arrow = key == VK_UP || key == VK_DOWN;
    const bool opens = Type() != CBS_SIMPLE && ((alt && arrow) || (!alt && key == VK_F4));
    if (opens) {
        if (m_dropped) {
            Close(false);
        } else {
            Drop();
        }
        return true;
    }
    if (alt) return false;
    switch (key) {
        case VK_RETURN:
        case VK_ESCAPE:
            if (m_dropped) Close(key == VK_RETURN);
            return true;
        case VK_UP:
        case VK_LEFT:
            MoveByKey(m_current - 1);
            return true;
        case VK_DOWN:
        case VK_RIGHT:
            MoveByKey(m_current + 1);
            return true;
        case VK_PRIOR:
            MoveByKey(m_current - page);
            return true;
        case VK_NEXT:
            MoveByKey(m_current + page);
            return true;
        case VK_HOME:
            MoveByKey(0);
            return true;
        case VK_END:
            MoveByKey(m_items.Count() - 1);
            return true;
        default:
            return false;
    }
}

void ComboBox::MoveByKey(int index) {
    if (m_items.Count() == 0) return;
    if (m_current == CB_ERR) index = 0;
    if (!m_dropped && !Notify(CBN_SELENDOK)) return;
    SetCurrent(std::clamp(index, 0, m_items.Count() - 1));
    Notify(CBN_SELCHANGE);
}

void ComboBox::OnChar(wchar_t unit) {
    if (unit < L' ') return;
    const int found = m_items.FindPrefix(m_current, std::wstring_view(&unit, 1));
    if (found == CB_ERR) return;
    if (!m_dropped && !Notify(CBN_SELENDOK)) return;
    SetCurrent(found);
    Notify(CBN_SELCHANGE);
}

void ComboBox::OnLeftDown(LPARAM position) {
    if (Type() == CBS_SIMPLE) return;
    SetFocus(m_edit != nullptr ? m_edit : m_window);
    const RECT button = ButtonRect();
    const POINT point = {GET_X_LPARAM(position), GET_Y_LPARAM(position)};
    if (m_edit != nullptr && !PtInRect(&button, point)) return;
    if (m_dropped) {
        Close(true);
    } else {
        Drop();
    }
}

void ComboBox::Drop() {
    if (!Notify(CBN_DROPDOWN)) return;
    m_dropped = true;
    if (Type() == CBS_DROPDOWN) MatchEditText();
}

void ComboBox::Close(bool chosen) {
    m_dropped = false;
    if (Notify(chosen ? CBN_SELENDOK : CBN_SELENDCANCEL)) Notify(CBN_CLOSEUP);
}

}  // namespace qv::headless
