#include "platform/headless/controls/tab_control.h"

#include <algorithm>
#include <utility>

namespace qv::headless {

namespace {

// Pixels around the titles and around the area that the pages fill.
constexpr int kRowMargin = 2;
constexpr int kDisplayMargin = 4;

}  // namespace

LRESULT TabControl::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_CREATE:
            SetStyle(Style() | WS_CLIPSIBLINGS);
            return 0;
        case WM_SIZE:
            m_arranged = false;
            return 0;
        case WM_SETFONT:
            SetFont(wParam);
            m_arranged = false;
            return 0;
        case WM_GETFONT:
            return reinterpret_cast<LRESULT>(Font());
        case WM_GETDLGCODE:
            return DLGC_WANTARROWS | DLGC_WANTCHARS;
        case WM_KEYDOWN:
            OnKeyDown(wParam, lParam);
            return 0;
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
            OnLeftDown(lParam);
            return 0;
        case WM_LBUTTONUP:
            Tell(NM_CLICK);
            return 0;
        case WM_STYLECHANGED:
            m_arranged = false;
            return 0;
        default:
            if (message >= TCM_FIRST && message <= TCM_INSERTITEMW) return HandleItems(message, wParam, lParam);
            return Default(message, wParam, lParam);
    }
}

LRESULT TabControl::HandleItems(UINT message, WPARAM wParam, LPARAM lParam) {
    const auto index = static_cast<int>(wParam);
    switch (message) {
        case TCM_INSERTITEMW:
            return Insert(index, *reinterpret_cast<const TCITEMW*>(lParam));
        case TCM_DELETEITEM:
            return Delete(index);
        case TCM_DELETEALLITEMS:
            m_tabs.clear();
            m_current = -1;
            m_focus = 0;
            m_arranged = false;
            return TRUE;
        case TCM_SETITEMW:
            return SetItem(index, *reinterpret_cast<const TCITEMW*>(lParam));
        case TCM_GETITEMW:
            return GetItem(index, *reinterpret_cast<TCITEMW*>(lParam));
        case TCM_GETITEMCOUNT:
            return Count();
        case TCM_GETCURSEL:
            return m_current;
        case TCM_SETCURSEL:
            return SetCurrent(index);
        case TCM_GETCURFOCUS:
            return m_focus;
        case TCM_SETCURFOCUS:
            if (Holds(index)) Choose(index);
            return 0;
        case TCM_GETROWCOUNT:
            Arrange();
            return m_rows;
        case TCM_GETITEMRECT:
            Arrange();
            return ItemRect(index, reinterpret_cast<RECT*>(lParam));
        case TCM_HITTEST:
            Arrange();
            return HitTest(*reinterpret_cast<TCHITTESTINFO*>(lParam));
        case TCM_ADJUSTRECT:
            Arrange();
            Adjust(wParam != 0, *reinterpret_cast<RECT*>(lParam));
            return 0;
        case TCM_SETITEMSIZE: {
            const LRESULT before = MAKELONG(m_fixedWidth, TabHeight());
            m_fixedWidth = LOWORD(static_cast<DWORD>(lParam));
            m_fixedHeight = HIWORD(static_cast<DWORD>(lParam));
            m_arranged = false;
            return before;
        }
        case TCM_SETPADDING:
            m_horizontalPadding = LOWORD(static_cast<DWORD>(lParam));
            m_verticalPadding = HIWORD(static_cast<DWORD>(lParam));
            m_arranged = false;
            return 0;
        case TCM_SETMINTABWIDTH: {
            const int before = m_minimumWidth;
            m_minimumWidth = static_cast<int>(lParam);
            m_arranged = false;
            return before;
        }
        default:
            return Default(message, wParam, lParam);
    }
}

void TabControl::Take(Tab& tab, const TCITEMW& item) {
    if ((item.mask & TCIF_TEXT) != 0) tab.title = item.pszText != nullptr ? item.pszText : L"";
    if ((item.mask & TCIF_IMAGE) != 0) tab.image = item.iImage;
    if ((item.mask & TCIF_PARAM) != 0) tab.data = item.lParam;
    if ((item.mask & TCIF_STATE) != 0) {
        tab.state = (tab.state & ~item.dwStateMask) | (item.dwState & item.dwStateMask);
    }
}

LRESULT TabControl::Insert(LONG_PTR index, const TCITEMW& item) {
    if (index < 0) return -1;
    const int place = static_cast<int>(std::min<LONG_PTR>(index, Count()));
    Tab tab;
    Take(tab, item);
    m_tabs.insert(m_tabs.begin() + place, std::move(tab));
    if (Count() == 1) {
        m_current = 0;
    } else if (place <= m_current) {
        ++m_current;
    }
    m_arranged = false;
    return place;
}

LRESULT TabControl::Delete(LONG_PTR index) {
    if (!Holds(index)) return FALSE;
    const auto place = static_cast<int>(index);
    m_tabs.erase(m_tabs.begin() + place);
    if (place == m_current) {
        m_current = -1;
    } else if (place < m_current) {
        --m_current;
    }
    m_focus = std::max(0, std::min(m_focus, Count() - 1));
    m_arranged = false;
    return TRUE;
}

LRESULT TabControl::SetItem(LONG_PTR index, const TCITEMW& item) {
    if (!Holds(index)) return FALSE;
    Take(m_tabs[static_cast<size_t>(index)], item);
    m_arranged = false;
    return TRUE;
}

LRESULT TabControl::GetItem(LONG_PTR index, TCITEMW& item) const {
    if (!Holds(index)) return FALSE;
    const Tab& tab = m_tabs[static_cast<size_t>(index)];
    if ((item.mask & TCIF_TEXT) != 0 && item.pszText != nullptr && item.cchTextMax > 0) {
        const size_t length = tab.title.copy(item.pszText, static_cast<size_t>(item.cchTextMax) - 1);
        item.pszText[length] = L'\0';
    }
    if ((item.mask & TCIF_IMAGE) != 0) item.iImage = tab.image;
    if ((item.mask & TCIF_PARAM) != 0) item.lParam = tab.data;
    if ((item.mask & TCIF_STATE) != 0) item.dwState = tab.state & item.dwStateMask;
    return TRUE;
}

LRESULT TabControl::SetCurrent(LONG_PTR index) {
    if (index != -1 && !Holds(index)) return -1;
    const int before = std::exchange(m_current, static_cast<int>(index));
    m_focus = m_current;
    return before;
}

void TabControl::Choose(int index) {
    if (index == m_current) return;
    if (Tell(TCN_SELCHANGING) != 0 || !IsWindow(m_window) || !Holds(index)) return;
    m_current = m_focus = index;
    Tell(TCN_SELCHANGE);
}

void TabControl::OnKeyDown(WPARAM key, LPARAM flags) {
    NMTCKEYDOWN pressed = {};
    pressed.hdr = {m_window, static_cast<UINT_PTR>(GetDlgCtrlID(m_window)), TCN_KEYDOWN};
    pressed.wVKey = static_cast<WORD>(key);
    pressed.flags = static_cast<UINT>(flags);
    SendMessageW(Parent(), WM_NOTIFY, pressed.hdr.idFrom, reinterpret_cast<LPARAM>(&pressed));
    if (!IsWindow(m_window) || (key != VK_LEFT && key != VK_RIGHT)) return;
    const int target = m_focus + (key == VK_LEFT ? -1 : 1);
    if (Holds(target)) Choose(target);
}

void TabControl::OnLeftDown(LPARAM position) {
    TCHITTESTINFO info = {};
    info.pt = {GET_X_LPARAM(position), GET_Y_LPARAM(position)};
    Arrange();
    const LRESULT index = HitTest(info);
    if (index < 0) return;
    if (!Has(TCS_FOCUSNEVER)) SetFocus(m_window);
    Choose(static_cast<int>(index));
}

LRESULT TabControl::Tell(UINT code) const {
    NMHDR header = {m_window, static_cast<UINT_PTR>(GetDlgCtrlID(m_window)), code};
    return SendMessageW(Parent(), WM_NOTIFY, header.idFrom, reinterpret_cast<LPARAM>(&header));
}

int TabControl::TabHeight() const {
    return m_fixedHeight != 0 ? m_fixedHeight : LineHeight() + 2 + m_verticalPadding;
}

int TabControl::TabWidth(const Tab& tab) const {
    if (Has(TCS_FIXEDWIDTH)) return m_fixedWidth;
    return std::max(TextWidth(tab.title) + 2 * m_horizontalPadding, m_minimumWidth);
}

void TabControl::Arrange() {
    if (m_arranged) return;
    m_arranged = true;
    const int room = ClientWidth() - kRowMargin;
    int left = kRowMargin;
    int row = 0;
    for (Tab& tab : m_tabs) {
        tab.width = TabWidth(tab);
        if (Has(TCS_MULTILINE) && left > kRowMargin && left + tab.width > room) {
            left = kRowMargin;
            ++row;
        }
        tab.row = row;
        tab.left = left;
        left += tab.width;
    }
    m_rows = m_tabs.empty() ? 0 : row + 1;
    if (m_rows < 2 || Has(TCS_RAGGEDRIGHT)) return;
    for (size_t first = 0; first < m_tabs.size();) {
        size_t last = first;
        while (last < m_tabs.size() && m_tabs[last].row == m_tabs[first].row)
            ++last;
        StretchRow(first, last, room - kRowMargin);
        first = last;
    }
}

// Several rows end at the same edge: what is left of a row is shared out, the last title takes the rest.
void TabControl::StretchRow(size_t first, size_t last, int width) {
    const Tab& end = m_tabs[last - 1];
    const int spare = width - (end.left + end.width - kRowMargin);
    const int share = spare / static_cast<int>(last - first);
    int left = kRowMargin;
    for (size_t index = first; index < last; ++index) {
        Tab& tab = m_tabs[index];
        tab.left = left;
        tab.width += share;
        left += tab.width;
    }
    m_tabs[last - 1].width += kRowMargin + width - left;
}

// The row of the selected title stands next to the page, the others behind it in turn.
int TabControl::TopOf(const Tab& tab) const {
    const int front = Holds(m_current) ? m_tabs[static_cast<size_t>(m_current)].row : m_rows - 1;
    const int rows = std::max(m_rows, 1);  // there is a tab, so there is a row
    const int place = (tab.row - front - 1 + 2 * rows) % rows;
    return kRowMargin + place * TabHeight();
}

LRESULT TabControl::ItemRect(LONG_PTR index, RECT* rect) const {
    *rect = {};
    if (!Holds(index)) return FALSE;
    const Tab& tab = m_tabs[static_cast<size_t>(index)];
    const int top = TopOf(tab);
    *rect = {tab.left, top, tab.left + tab.width, top + TabHeight()};
    return TRUE;
}

LRESULT TabControl::HitTest(TCHITTESTINFO& info) const {
    for (int index = 0; index < Count(); ++index) {
        RECT rect = {};
        ItemRect(index, &rect);
        if (PtInRect(&rect, info.pt)) {
            info.flags = TCHT_ONITEM;
            return index;
        }
    }
    info.flags = TCHT_NOWHERE;
    return -1;
}

void TabControl::Adjust(bool larger, RECT& rect) const {
    const int aboveDisplay = kDisplayMargin + m_rows * TabHeight();
    const int sign = larger ? -1 : 1;
    rect.left += sign * kDisplayMargin;
    rect.top += sign * aboveDisplay;
    rect.right -= sign * kDisplayMargin;
    rect.bottom -= sign * kDisplayMargin;
}

}  // namespace qv::headless
