#include "platform/headless/controls/combo_box.h"

#include <algorithm>
#include <utility>

namespace qv::headless {

LRESULT ComboBox::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_NCCREATE:
            // Scroll bars are meant for the list.
            SetStyle(Style() & ~DWORD{WS_VSCROLL | WS_HSCROLL});
            return Default(message, wParam, lParam);
        case WM_CREATE:
            OnCreate(*reinterpret_cast<const CREATESTRUCTW*>(lParam));
            return 0;
        case WM_DESTROY:
            Reset();
            return 0;
        case WM_WINDOWPOSCHANGING:
            OnPositionChanging(*reinterpret_cast<WINDOWPOS*>(lParam));
            return 0;
        case WM_SIZE:
            PlaceEdit();
            return 0;
        case WM_SETFONT:
            OnFont(wParam, lParam != 0);
            return 0;
        case WM_GETFONT:
            return reinterpret_cast<LRESULT>(Font());
        case WM_ENABLE:
            if (m_edit != nullptr) EnableWindow(m_edit, wParam != 0);
            return 0;
        case WM_GETDLGCODE: {
            LRESULT code = DLGC_WANTARROWS | DLGC_WANTCHARS;
            const auto* key = reinterpret_cast<const MSG*>(lParam);
            if (key != nullptr && m_dropped && key->message == WM_KEYDOWN &&
                (key->wParam == VK_RETURN || key->wParam == VK_ESCAPE)) {
                code |= DLGC_WANTMESSAGE;
            }
            return code;
        }
        case WM_COMMAND:
            if (m_edit != nullptr && reinterpret_cast<HWND>(lParam) == m_edit) OnEditCommand(HIWORD(wParam));
            return 0;
        case WM_SETFOCUS:
            if (m_edit != nullptr) {
                SetFocus(m_edit);
            } else {
                Notify(CBN_SETFOCUS);
            }
            return 0;
        case WM_KILLFOCUS:
            if (m_edit == nullptr) OnFocusLost();
            return 0;
        case WM_KEYDOWN:
        case WM_SYSKEYDOWN:
            if (OnKeyDown(static_cast<UINT>(wParam), message == WM_SYSKEYDOWN)) return 0;
            return Default(message, wParam, lParam);
        case WM_CHAR:
            OnChar(static_cast<wchar_t>(wParam));
            return 0;
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
            OnLeftDown(lParam);
            return 0;
        case WM_MOUSEWHEEL: {
            // Closed, it goes through its entries; an open list only scrolls, which nobody sees here.
            const int turned = static_cast<short>(HIWORD(wParam));
            if (!m_dropped && turned != 0) MoveByKey(m_current + (turned > 0 ? -1 : 1));
            return TRUE;
        }
        default:
            if (message >= CB_GETEDITSEL && message <= CB_GETCOMBOBOXINFO)
                return HandleContent(message, wParam, lParam);
            return HandleText(message, wParam, lParam);
    }
}

LRESULT ComboBox::HandleText(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_GETTEXT: {
            if (m_edit != nullptr) return SendMessageW(m_edit, message, wParam, lParam);
            auto* buffer = reinterpret_cast<LPWSTR>(lParam);
            if (wParam == 0 || buffer == nullptr) return 0;
            size_t length = 0;
            if (m_current != CB_ERR) length = m_items[m_current].text.copy(buffer, wParam - 1);
            buffer[length] = L'\0';
            return static_cast<LRESULT>(length);
        }
        case WM_GETTEXTLENGTH:
            if (m_edit != nullptr) return SendMessageW(m_edit, message, wParam, lParam);
            return m_current != CB_ERR ? static_cast<LRESULT>(m_items[m_current].text.size()) : 0;
        case WM_SETTEXT:
            if (m_edit == nullptr) return CB_ERR;
            SetEditText(reinterpret_cast<LPCWSTR>(lParam));
            return TRUE;
        case WM_CUT:
        case WM_COPY:
        case WM_PASTE:
        case WM_CLEAR:
            return m_edit != nullptr ? SendMessageW(m_edit, message, wParam, lParam) : 0;
        default:
            return Default(message, wParam, lParam);
    }
}

LRESULT ComboBox::HandleContent(UINT message, WPARAM wParam, LPARAM lParam) {
    const auto index = static_cast<int>(wParam);
    switch (message) {
        case CB_ADDSTRING: {
            const bool sorted = Has(CBS_SORT) && HasStrings();
            return Insert(sorted ? m_items.SortedPosition(reinterpret_cast<LPCWSTR>(lParam)) : -1, lParam);
        }
        case CB_INSERTSTRING:
            return Insert(index, lParam);
        case CB_DELETESTRING:
            return Delete(index);
        case CB_RESETCONTENT:
            Reset();
            if (m_edit != nullptr) SetEditText(L"");
            return CB_OKAY;
        case CB_GETCOUNT:
            return m_items.Count();
        case CB_GETLBTEXT:
            return GetItemText(index, reinterpret_cast<LPVOID>(lParam));
        case CB_GETLBTEXTLEN:
            if (!m_items.Holds(index)) return CB_ERR;
            return m_items[index].Length(HasStrings());
        case CB_FINDSTRING:
            return m_items.FindPrefix(index, reinterpret_cast<LPCWSTR>(lParam));
        case CB_FINDSTRINGEXACT:
            return m_items.FindExact(index, reinterpret_cast<LPCWSTR>(lParam));
        case CB_SELECTSTRING: {
            const int found = m_items.FindPrefix(index, reinterpret_cast<LPCWSTR>(lParam));
            return found == CB_ERR ? CB_ERR : SetCurrent(found);
        }
        case CB_SETCURSEL:
            return SetCurrent(index);
        case CB_GETCURSEL:
            return m_current;
        default:
            return HandleList(message, wParam, lParam);
    }
}

LRESULT ComboBox::HandleList(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case CB_SHOWDROPDOWN:
            if (wParam != 0 && !m_dropped) Drop();
            if (wParam == 0 && m_dropped) Close(false);
            return TRUE;
        case CB_GETDROPPEDSTATE:
            return m_dropped;
        case CB_GETDROPPEDCONTROLRECT:
            *reinterpret_cast<RECT*>(lParam) = ListRect();
            return CB_OKAY;
        case CB_SETDROPPEDWIDTH: {
            m_droppedWidth = static_cast<int>(wParam);
            const RECT list = ListRect();
            return list.right - list.left;
        }
        case CB_SETITEMHEIGHT:
            return SetItemHeight(static_cast<int>(wParam), static_cast<int>(lParam));
        case CB_GETITEMHEIGHT:
            return static_cast<int>(wParam) == -1 ? m_fieldHeight : m_itemHeight;
        case CB_LIMITTEXT:
            if (m_edit != nullptr) SendMessageW(m_edit, EM_LIMITTEXT, wParam, 0);
            return TRUE;
        case CB_GETEDITSEL:
            return m_edit != nullptr ? SendMessageW(m_edit, EM_GETSEL, wParam, lParam) : CB_ERR;
        case CB_SETEDITSEL: {
            if (m_edit == nullptr) return CB_ERR;
            const int first = GET_X_LPARAM(lParam);
            const int last = GET_Y_LPARAM(lParam);
            SendMessageW(m_edit, EM_SETSEL, static_cast<WPARAM>(first), last);
            return TRUE;
        }
        case CB_GETCOMBOBOXINFO:
            return GetInfo(*reinterpret_cast<COMBOBOXINFO*>(lParam));
        default:
            return Default(message, wParam, lParam);
    }
}

LRESULT ComboBox::Insert(LONG_PTR index, LPARAM item) {
    if (index == -1) index = m_items.Count();
    if (index < 0 || index > m_items.Count()) return CB_ERR;
    const auto place = static_cast<int>(index);
    m_items.Insert(place, ListItem::FromParameter(item, HasStrings()));
    if (m_current != CB_ERR && place <= m_current) ++m_current;
    return place;
}

LRESULT ComboBox::Delete(LONG_PTR index) {
    if (!m_items.Holds(index)) return CB_ERR;
    const auto place = static_cast<int>(index);
    m_items.Erase(place);
    // An edit keeps the text of an entry that goes.
    if (place == m_current) {
        m_current = CB_ERR;
    } else if (place < m_current) {
        --m_current;
    }
    return m_items.Count();
}

void ComboBox::Reset() {
    m_items.Clear();
    m_current = CB_ERR;
}

LRESULT ComboBox::GetItemText(LONG_PTR index, LPVOID buffer) const {
    if (!m_items.Holds(index)) return CB_ERR;
    return m_items[static_cast<int>(index)].CopyTo(buffer, HasStrings());
}

LRESULT ComboBox::SetCurrent(LONG_PTR index) {
    if (index != -1 && !m_items.Holds(index)) return CB_ERR;
    m_current = static_cast<int>(index);
    ShowCurrent();
    return m_current;
}

void ComboBox::ShowCurrent() {
    if (m_edit == nullptr) return;
    SetEditText(m_current != CB_ERR ? m_items[m_current].text.c_str() : L"");
    SendMessageW(m_edit, EM_SETSEL, 0, -1);
}

void ComboBox::SetEditText(LPCWSTR text) {
    const bool before = std::exchange(m_silent, true);
    SetWindowTextW(m_edit, text);
    m_silent = before;
}

// The first entry that begins with what was typed becomes the current one when the list opens.
void ComboBox::MatchEditText() {
    std::wstring typed(static_cast<size_t>(GetWindowTextLengthW(m_edit)) + 1, L'\0');
    typed.resize(static_cast<size_t>(GetWindowTextW(m_edit, typed.data(), static_cast<int>(typed.size()))));
    const int found = typed.empty() ? CB_ERR : m_items.FindPrefix(-1, typed);
    m_current = found;
    if (found != CB_ERR) ShowCurrent();
}

LRESULT ComboBox::SetItemHeight(LONG_PTR index, int height) {
    if (index == -1) {
        m_fieldHeight = height + 2;
        SetWindowPos(m_window, nullptr, 0, 0, ClientWidth(), ClosedHeight() + m_listHeight,
                     SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
        return CB_OKAY;
    }
    if (!IsOwnerDrawn()) return CB_ERR;
    m_itemHeight = std::max(1, height);
    return CB_OKAY;
}

RECT ComboBox::ButtonRect() const {
    RECT rect = {};
    GetClientRect(m_window, &rect);
    InflateRect(&rect, -kBorder, -kBorder);
    rect.left = std::max(rect.left, rect.right - static_cast<LONG>(GetSystemMetrics(SM_CXVSCROLL)));
    return rect;
}

RECT ComboBox::ListRect() const {
    RECT rect = {};
    GetWindowRect(m_window, &rect);
    const LONG width = std::max(rect.right - rect.left, static_cast<LONG>(m_droppedWidth));
    return {rect.left, rect.bottom, rect.left + width, rect.bottom + m_listHeight};
}

BOOL ComboBox::GetInfo(COMBOBOXINFO& info) const {
    if (info.cbSize < sizeof info) return FALSE;
    info.rcButton = ButtonRect();
    GetClientRect(m_window, &info.rcItem);
    InflateRect(&info.rcItem, -kBorder, -kBorder);
    info.rcItem.right = info.rcButton.left;
    info.stateButton = 0;
    info.hwndCombo = m_window;
    info.hwndItem = m_edit != nullptr ? m_edit : m_window;
    info.hwndList = nullptr;
    return TRUE;
}

}  // namespace qv::headless
