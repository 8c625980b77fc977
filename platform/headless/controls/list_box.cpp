#include "platform/headless/controls/list_box.h"

#include <algorithm>

namespace qv::headless {

LRESULT ListBox::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_CREATE:
            OnCreate();
            return 0;
        case WM_DESTROY:
            Reset();
            return 0;
        case WM_SIZE:
            OnSize();
            return 0;
        case WM_SETFONT:
            OnFont(wParam);
            return 0;
        case WM_GETFONT:
            return reinterpret_cast<LRESULT>(Font());
        case WM_GETDLGCODE:
            return DLGC_WANTARROWS | DLGC_WANTCHARS;
        default:
            if (message >= LB_ADDSTRING && message <= LB_ITEMFROMPOINT) return HandleContent(message, wParam, lParam);
            return HandleInput(message, wParam, lParam);
    }
}

LRESULT ListBox::HandleContent(UINT message, WPARAM wParam, LPARAM lParam) {
    const auto index = static_cast<int>(wParam);
    switch (message) {
        case LB_ADDSTRING:
            return Add(lParam);
        case LB_INSERTSTRING:
            return Insert(index, lParam);
        case LB_DELETESTRING:
            return Delete(index);
        case LB_RESETCONTENT:
            Reset();
            return LB_OKAY;
        case LB_GETCOUNT:
            return m_items.Count();
        case LB_GETTEXT:
            return GetText(index, reinterpret_cast<LPVOID>(lParam));
        case LB_GETTEXTLEN:
            return GetTextLength(index);
        case LB_FINDSTRING:
            return m_items.FindPrefix(index, reinterpret_cast<LPCWSTR>(lParam));
        case LB_FINDSTRINGEXACT:
            return m_items.FindExact(index, reinterpret_cast<LPCWSTR>(lParam));
        default:
            return HandleSelection(message, wParam, lParam);
    }
}

LRESULT ListBox::HandleSelection(UINT message, WPARAM wParam, LPARAM lParam) {
    const auto index = static_cast<int>(wParam);
    switch (message) {
        case LB_SETCURSEL:
            return SetCurrent(index);
        case LB_GETCURSEL:
            if (m_items.Count() == 0) return LB_ERR;
            return IsMultiple() ? m_caret : m_current;
        case LB_SELECTSTRING:
            return SelectText(index, reinterpret_cast<LPCWSTR>(lParam));
        case LB_SETSEL:
            return SetMark(static_cast<int>(lParam), wParam != 0);
        case LB_GETSEL:
            return m_items.Holds(index) ? LRESULT{m_items[index].selected} : LB_ERR;
        case LB_GETSELCOUNT:
            return IsMultiple() ? SelectedItems(nullptr, m_items.Count()) : LB_ERR;
        case LB_GETSELITEMS:
            return IsMultiple() ? SelectedItems(reinterpret_cast<int*>(lParam), index) : LB_ERR;
        case LB_SELITEMRANGE:
            return MarkRange(LOWORD(static_cast<DWORD>(lParam)), HIWORD(static_cast<DWORD>(lParam)), wParam != 0);
        case LB_SELITEMRANGEEX: {
            const auto last = static_cast<int>(lParam);
            return index <= last ? MarkRange(index, last, true) : MarkRange(last, index, false);
        }
        case LB_SETCARETINDEX:
            return SetCaret(index);
        case LB_GETCARETINDEX:
            return m_caret;
        default:
            return HandleGeometry(message, wParam, lParam);
    }
}

LRESULT ListBox::HandleGeometry(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case LB_GETTOPINDEX:
            return m_top;
        case LB_SETTOPINDEX:
            if (m_items.Count() != 0 && !m_items.Holds(static_cast<int>(wParam))) return LB_ERR;
            SetTop(static_cast<int>(wParam));
            return LB_OKAY;
        case LB_GETITEMRECT:
            return ItemRect(static_cast<int>(wParam), reinterpret_cast<RECT*>(lParam));
        case LB_ITEMFROMPOINT:
            return ItemFromPoint(lParam);
        case LB_GETITEMHEIGHT:
            return m_itemHeight;
        case LB_SETITEMHEIGHT:
            if (lParam <= 0 || lParam > 255) return LB_ERR;
            m_itemHeight = static_cast<int>(lParam);
            SetTop(m_top);
            return LB_OKAY;
        case LB_SETHORIZONTALEXTENT:
            m_horizontalExtent = static_cast<int>(wParam);
            return LB_OKAY;
        case LB_GETHORIZONTALEXTENT:
            return m_horizontalExtent;
        default:
            return Default(message, wParam, lParam);
    }
}

void ListBox::OnCreate() {
    m_itemHeight = LineHeight();
    m_scrolls = Has(WS_VSCROLL);
    if (!IsOwnerDrawn()) return;
    MEASUREITEMSTRUCT measure = {};
    measure.CtlType = ODT_LISTBOX;
    measure.CtlID = static_cast<UINT>(GetDlgCtrlID(m_window));
    measure.itemID = static_cast<UINT>(-1);
    measure.itemHeight = static_cast<UINT>(m_itemHeight);
    SendMessageW(Parent(), WM_MEASUREITEM, measure.CtlID, reinterpret_cast<LPARAM>(&measure));
    m_itemHeight = std::max(1, static_cast<int>(measure.itemHeight));
}

void ListBox::OnFont(WPARAM font) {
    SetFont(font);
    if (IsOwnerDrawn()) return;
    m_itemHeight = LineHeight();
    SetTop(m_top);
}

// Without the style that forbids it, the window shrinks until its last item is whole.
void ListBox::OnSize() {
    const int height = ClientHeight();
    const int rest = height % m_itemHeight;
    if (!Has(LBS_NOINTEGRALHEIGHT | LBS_OWNERDRAWVARIABLE) && height > m_itemHeight && rest != 0) {
        RECT window = {};
        GetWindowRect(m_window, &window);
        SetWindowPos(m_window, nullptr, 0, 0, window.right - window.left, window.bottom - window.top - rest,
                     SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOMOVE);
        return;
    }
    SetTop(m_top);
}

LRESULT ListBox::Add(LPARAM item) {
    int index = m_items.Count();
    if (Has(LBS_SORT) && HasStrings()) index = m_items.SortedPosition(reinterpret_cast<LPCWSTR>(item));
    return Insert(index, item);
}

LRESULT ListBox::Insert(LONG_PTR index, LPARAM item) {
    if (index == -1) index = m_items.Count();
    if (index < 0 || index > m_items.Count()) return LB_ERR;
    const auto place = static_cast<int>(index);
    m_items.Insert(place, ListItem::FromParameter(item, HasStrings()));
    // The caret stays where it was, the selection moves with its item: so does the platform.
    if (m_current != LB_ERR && place <= m_current) ++m_current;
    UpdateScrollBar();
    return place;
}

LRESULT ListBox::Delete(LONG_PTR index) {
    if (!m_items.Holds(index)) return LB_ERR;
    const auto place = static_cast<int>(index);
    TellDeleted(place);
    m_items.Erase(place);
    if (place == m_current) {
        m_current = LB_ERR;
    } else if (place < m_current) {
        --m_current;
    }
    m_caret = std::max(0, std::min(m_caret, m_items.Count() - 1));
    SetTop(m_top);
    return m_items.Count();
}

void ListBox::Reset() {
    for (int index = m_items.Count() - 1; index >= 0; --index)
        TellDeleted(index);
    m_items.Clear();
    m_current = LB_ERR;
    m_anchor = LB_ERR;
    m_caret = 0;
    SetTop(0);
}

void ListBox::TellDeleted(int index) const {
    if (!IsOwnerDrawn() && m_items[index].data == 0) return;
    DELETEITEMSTRUCT deleted = {};
    deleted.CtlType = ODT_LISTBOX;
    deleted.CtlID = static_cast<UINT>(GetDlgCtrlID(m_window));
    deleted.itemID = static_cast<UINT>(index);
    deleted.hwndItem = m_window;
    deleted.itemData = m_items[index].data;
    SendMessageW(Parent(), WM_DELETEITEM, deleted.CtlID, reinterpret_cast<LPARAM>(&deleted));
}

LRESULT ListBox::GetText(LONG_PTR index, LPVOID buffer) const {
    if (!m_items.Holds(index)) return LB_ERR;
    return m_items[static_cast<int>(index)].CopyTo(buffer, HasStrings());
}

LRESULT ListBox::GetTextLength(LONG_PTR index) const {
    if (!m_items.Holds(index)) return LB_ERR;
    return m_items[static_cast<int>(index)].Length(HasStrings());
}

LRESULT ListBox::SetCurrent(LONG_PTR index) {
    if (IsMultiple() || (index != -1 && !m_items.Holds(index))) return LB_ERR;
    if (m_items.Holds(m_current)) m_items[m_current].selected = false;
    m_current = static_cast<int>(index);
    if (m_current == LB_ERR) return LB_ERR;
    m_items[m_current].selected = true;
    m_caret = m_anchor = m_current;
    ShowItem(m_current);
    return m_current;
}

LRESULT ListBox::SelectText(LONG_PTR after, LPCWSTR text) {
    const int found = m_items.FindPrefix(after, text);
    if (found == LB_ERR) return LB_ERR;
    if (IsMultiple()) {
        SetMark(found, true);
    } else {
        SetCurrent(found);
    }
    return found;
}

LRESULT ListBox::SetMark(LONG_PTR index, bool on) {
    if (!IsMultiple()) return SetCurrent(on ? index : -1) == LB_ERR && on ? LB_ERR : LB_OKAY;
    if (index == -1) return MarkRange(0, m_items.Count() - 1, on);
    if (!m_items.Holds(index)) return LB_ERR;
    const auto place = static_cast<int>(index);
    m_items[place].selected = on;
    if (on) {
        m_caret = m_anchor = place;
        ShowItem(place);
    }
    return LB_OKAY;
}

LRESULT ListBox::MarkRange(int first, int last, bool on) {
    if (!IsMultiple()) return LB_ERR;
    last = std::min(last, m_items.Count() - 1);
    for (int index = std::max(0, first); index <= last; ++index)
        m_items[index].selected = on;
    return LB_OKAY;
}

void ListBox::MarkOnly(int first, int last) {
    MarkRange(0, m_items.Count() - 1, false);
    MarkRange(std::min(first, last), std::max(first, last), true);
}

LRESULT ListBox::SelectedItems(int* indexes, int room) const {
    int found = 0;
    for (int index = 0; index < m_items.Count() && found < room; ++index) {
        if (!m_items[index].selected) continue;
        if (indexes != nullptr) indexes[found] = index;
        ++found;
    }
    return found;
}

LRESULT ListBox::SetCaret(LONG_PTR index) {
    if (!m_items.Holds(index)) return LB_ERR;
    m_caret = static_cast<int>(index);
    ShowItem(m_caret);
    return LB_OKAY;
}

void ListBox::Changed() const {
    if (Has(LBS_NOTIFY)) Notify(LBN_SELCHANGE);
}

int ListBox::PageSize() const {
    return std::max(1, ClientHeight() / m_itemHeight);
}

void ListBox::SetTop(int index) {
    m_top = std::max(0, std::min(index, m_items.Count() - PageSize()));
    UpdateScrollBar();
}

void ListBox::ShowItem(int index) {
    const int page = PageSize();
    if (index < m_top) SetTop(index);
    if (index >= m_top + page) SetTop(index - page + 1);
}

void ListBox::UpdateScrollBar() {
    if (!m_scrolls) return;
    SCROLLINFO info = {};
    info.cbSize = sizeof info;
    info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
    info.nMax = std::max(0, m_items.Count() - 1);
    info.nPage = static_cast<UINT>(PageSize());
    info.nPos = m_top;
    if (Has(LBS_DISABLENOSCROLL)) info.fMask |= SIF_DISABLENOSCROLL;
    SetScrollInfo(m_window, SB_VERT, &info, FALSE);
}

int ListBox::ItemAt(int y) const {
    if (y < 0) return LB_ERR;
    const int index = m_top + y / m_itemHeight;
    return m_items.Holds(index) ? index : LB_ERR;
}

LRESULT ListBox::ItemFromPoint(LPARAM position) const {
    const int y = GET_Y_LPARAM(position);
    const int x = GET_X_LPARAM(position);
    const bool outside = x < 0 || y < 0 || x >= ClientWidth() || y >= ClientHeight();
    int index = m_top + std::max(0, y) / m_itemHeight;
    const bool below = index >= m_items.Count();
    if (below) index = m_items.Count() - 1;
    return MAKELONG(index, outside || below);
}

LRESULT ListBox::ItemRect(LONG_PTR index, RECT* rect) const {
    *rect = {};
    if (!m_items.Holds(index)) return LB_ERR;
    rect->right = ClientWidth();
    rect->top = (static_cast<int>(index) - m_top) * m_itemHeight;
    rect->bottom = rect->top + m_itemHeight;
    return LB_OKAY;
}

}  // namespace qv::headless
