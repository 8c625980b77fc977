#include "framework/check_list_box.h"

#include <algorithm>

#include "framework/gdi.h"

QV_RUNTIME_CLASS(CCheckListBox, CListBox)

namespace {

constexpr int kBoxSize = 13;  // at 96 dpi, as the platform draws its own check boxes
constexpr int kDesignDpi = 96;
constexpr int kMargin = 2;

}  // namespace

CCheckListBox::CCheckListBox() = default;

CCheckListBox::~CCheckListBox() {
    if (m_hWnd != nullptr) CWnd::DestroyWindow();
}

const MessageMap* CCheckListBox::GetThisMessageMap() {
    static const MessageMap map{CListBox::GetThisMessageMap(),
                                {
                                    on::Message<&CCheckListBox::OnInserted>(LB_ADDSTRING),
                                    on::Message<&CCheckListBox::OnInserted>(LB_INSERTSTRING),
                                    on::Message<&CCheckListBox::OnDeleteString>(LB_DELETESTRING),
                                    on::Message<&CCheckListBox::OnResetContent>(LB_RESETCONTENT),
                                    on::Message<&CCheckListBox::OnKeyDown>(WM_KEYDOWN),
                                    on::Message<&CCheckListBox::OnChar>(WM_CHAR),
                                    on::Message<&CCheckListBox::OnButtonDown>(WM_LBUTTONDOWN),
                                    on::Message<&CCheckListBox::OnButtonDown>(WM_LBUTTONDBLCLK),
                                    on::Message<&CCheckListBox::OnMouseWheel>(WM_MOUSEWHEEL),
                                    on::Message<&CCheckListBox::OnSetFont>(WM_SETFONT),
                                    on::Message<&CCheckListBox::OnEnabled>(WM_ENABLE),
                                    on::MessageReflect<&CCheckListBox::OnListColor>(WM_CTLCOLORLISTBOX),
                                }};
    return &map;
}

const MessageMap* CCheckListBox::GetMessageMap() const {
    return GetThisMessageMap();
}

bool CCheckListBox::Create(DWORD style, const RECT& rect, CWnd* parent, UINT id) {
    m_entries.clear();
    return CListBox::Create(style | LBS_OWNERDRAWFIXED | LBS_HASSTRINGS, rect, parent, id);
}

void CCheckListBox::PreSubclassWindow() {
    CListBox::PreSubclassWindow();
    m_entries.assign(static_cast<std::size_t>(GetCount()), Entry{});
}

const CCheckListBox::Entry* CCheckListBox::Find(int index) const {
    return index >= 0 && static_cast<std::size_t>(index) < m_entries.size()
               ? &m_entries[static_cast<std::size_t>(index)]
               : nullptr;
}

void CCheckListBox::SetCheck(int index, int check) {
    if (Find(index) == nullptr || GetCheck(index) == check) return;
    m_entries[static_cast<std::size_t>(index)].check = check;
    InvalidateEntry(index);
}

int CCheckListBox::GetCheck(int index) const {
    const Entry* entry = Find(index);
    return entry != nullptr ? entry->check : 0;
}

void CCheckListBox::Enable(int index, bool enable) {
    if (Find(index) == nullptr || IsEnabled(index) == enable) return;
    const bool wasGrey = IsGrey();
    m_entries[static_cast<std::size_t>(index)].enabled = enable;
    if (IsGrey() == wasGrey) return InvalidateEntry(index);
    if (m_hWnd != nullptr) Invalidate();
}

bool CCheckListBox::IsEnabled(int index) const {
    const Entry* entry = Find(index);
    return entry != nullptr && entry->enabled;
}

bool CCheckListBox::IsGrey() const {
    if (m_hWnd != nullptr && !IsWindowEnabled()) return true;
    return !m_entries.empty() && std::ranges::none_of(m_entries, &Entry::enabled);
}

void CCheckListBox::InvalidateEntry(int index) {
    if (m_hWnd == nullptr) return;
    const CRect rect = GetItemRect(index);
    ::InvalidateRect(m_hWnd, &rect, FALSE);
}

// --- the entries' states follow the list's entries ----------------------------------------------------------------

LRESULT CCheckListBox::OnInserted(WPARAM, LPARAM) {
    const LRESULT index = Default();
    if (index >= 0 && static_cast<std::size_t>(index) <= m_entries.size()) {
        m_entries.insert(m_entries.begin() + static_cast<std::ptrdiff_t>(index), Entry{});
    }
    return index;
}

LRESULT CCheckListBox::OnDeleteString(WPARAM wParam, LPARAM) {
    const LRESULT left = Default();
    if (left != LB_ERR && wParam < m_entries.size()) {
        m_entries.erase(m_entries.begin() + static_cast<std::ptrdiff_t>(wParam));
    }
    return left;
}

LRESULT CCheckListBox::OnResetContent(WPARAM, LPARAM) {
    m_entries.clear();
    return Default();
}

// --- the user -------------------------------------------------------------------------------------------------------

bool CCheckListBox::IsMultipleSelection() const {
    return (GetStyle() & (LBS_MULTIPLESEL | LBS_EXTENDEDSEL)) != 0;
}

bool CCheckListBox::IsSelected(int index) const {
    return IsMultipleSelection() && SendMessage(LB_GETSEL, static_cast<WPARAM>(index)) > 0;
}

void CCheckListBox::Toggle(int index) {
    const Entry* entry = Find(index);
    if (entry == nullptr) return;
    const int check = entry->check == 0 ? 1 : 0;
    const bool together = IsSelected(index);
    bool changed = false;
    for (int i = 0; i < static_cast<int>(m_entries.size()); ++i) {
        if ((i != index && !(together && IsSelected(i))) || !IsEnabled(i)) continue;
        changed = changed || GetCheck(i) != check;
        SetCheck(i, check);
    }
    if (!changed) return;
    HWND parent = ::GetParent(m_hWnd);
    ::SendMessageW(parent, WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(), CLBN_CHKCHANGE), reinterpret_cast<LPARAM>(m_hWnd));
}

LRESULT CCheckListBox::OnKeyDown(WPARAM wParam, LPARAM) {
    if (wParam != VK_SPACE) return Default();
    Toggle(IsMultipleSelection() ? static_cast<int>(SendMessage(LB_GETCARETINDEX)) : GetCurSel());
    return 0;
}

LRESULT CCheckListBox::OnChar(WPARAM wParam, LPARAM) {
    // The list would look for an entry that begins with a blank.
    return wParam == L' ' ? 0 : Default();
}

// The entry whose box lies under the point, -1 for none.
int CCheckListBox::BoxFromPoint(LPARAM point) const {
    const auto packed = static_cast<DWORD_PTR>(point);
    const POINT at{static_cast<SHORT>(LOWORD(packed)), static_cast<SHORT>(HIWORD(packed))};
    const auto found = SendMessage(LB_ITEMFROMPOINT, 0, point);
    const int index = static_cast<int>(LOWORD(static_cast<DWORD_PTR>(found)));
    if (HIWORD(static_cast<DWORD_PTR>(found)) != 0 || Find(index) == nullptr) return -1;
    const CRect item = GetItemRect(index);
    CRect box = BoxRect(item);
    box.left = item.left;
    box.top = item.top;
    box.bottom = item.bottom;
    return ::PtInRect(&box, at) != FALSE ? index : -1;
}

LRESULT CCheckListBox::OnButtonDown(WPARAM, LPARAM lParam) {
    const int index = BoxFromPoint(lParam);
    if (index < 0) return Default();
    if (!IsSelected(index)) {
        // The list selects the entry first; a click on a selected one's box leaves the selection alone.
        Default();
    } else {
        ::SetFocus(m_hWnd);
    }
    Toggle(index);
    return 0;
}

// A list that cannot scroll that way leaves the wheel to what is around it.
LRESULT CCheckListBox::OnMouseWheel(WPARAM wParam, LPARAM lParam) {
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_ALL;
    const bool scrolls = (GetStyle() & WS_VSCROLL) != 0 && ::GetScrollInfo(m_hWnd, SB_VERT, &info) != FALSE;
    const bool up = static_cast<SHORT>(HIWORD(wParam)) > 0;
    const int last = info.nMax - std::max(static_cast<int>(info.nPage) - 1, 0);
    if (scrolls && (up ? info.nPos > info.nMin : info.nPos < last)) return Default();
    return ::SendMessageW(::GetParent(m_hWnd), WM_MOUSEWHEEL, wParam, lParam);
}

// --- drawing --------------------------------------------------------------------------------------------------------

int CCheckListBox::Dpi() const {
    const CClientDC dc(*this);
    return dc.IsValid() ? ::GetDeviceCaps(dc.Get(), LOGPIXELSY) : kDesignDpi;
}

int CCheckListBox::BoxSize() const {
    return ::MulDiv(kBoxSize, Dpi(), kDesignDpi);
}

int CCheckListBox::ItemHeight() const {
    CClientDC dc(*this);
    dc.SelectFont(GetFont());
    TEXTMETRICW metrics{};
    if (dc.IsValid()) ::GetTextMetricsW(dc.Get(), &metrics);
    const int text = static_cast<int>(metrics.tmHeight);
    const int box = BoxSize() + kMargin;
    return text > box ? text : box;
}

CRect CCheckListBox::BoxRect(const RECT& item) const {
    const int size = BoxSize();
    const int left = static_cast<int>(item.left) + kMargin;
    const int top = static_cast<int>(item.top + (item.bottom - item.top - size) / 2);
    return {left, top, left + size, top + size};
}

LRESULT CCheckListBox::OnSetFont(WPARAM, LPARAM) {
    const LRESULT result = Default();
    // An owner-drawn list asks for the height only once, before it has its font.
    SendMessage(LB_SETITEMHEIGHT, 0, ItemHeight());
    return result;
}

LRESULT CCheckListBox::OnEnabled(WPARAM, LPARAM) {
    const LRESULT result = Default();
    Invalidate();
    return result;
}

// For what the entries leave free.
LRESULT CCheckListBox::OnListColor(WPARAM wParam, LPARAM) {
    const int background = IsGrey() ? COLOR_3DFACE : COLOR_WINDOW;
    ::SetBkColor(reinterpret_cast<HDC>(wParam), ::GetSysColor(background));
    return reinterpret_cast<LRESULT>(::GetSysColorBrush(background));
}

bool CCheckListBox::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
    if (CListBox::OnChildNotify(message, wParam, lParam, result)) return true;
    if (message == WM_DRAWITEM) {
        DrawItem(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
    } else if (message == WM_MEASUREITEM) {
        MeasureItem(*reinterpret_cast<MEASUREITEMSTRUCT*>(lParam));
    } else {
        return false;
    }
    *result = TRUE;
    return true;
}

void CCheckListBox::MeasureItem(MEASUREITEMSTRUCT& item) {
    item.itemHeight = static_cast<UINT>(ItemHeight());
}

void CCheckListBox::DrawItem(const DRAWITEMSTRUCT& item) {
    const auto index = static_cast<int>(item.itemID);
    CRect text = item.rcItem;
    const CRect box = BoxRect(item.rcItem);
    text.left = box.right + kMargin;
    if (Find(index) != nullptr) {
        const bool grey = IsGrey();
        const bool enabled = IsEnabled(index) && !grey;
        // Grey on the colour of a selection can hardly be read; where the keyboard is, the dotted frame says.
        const bool selected = (item.itemState & ODS_SELECTED) != 0 && !grey;
        const int background = grey ? COLOR_3DFACE : COLOR_WINDOW;
        CRect boxSide = item.rcItem;
        boxSide.right = text.left;
        ::FillRect(item.hDC, &boxSide, ::GetSysColorBrush(background));
        ::FillRect(item.hDC, &text, ::GetSysColorBrush(selected ? COLOR_HIGHLIGHT : background));

        UINT state = GetCheck(index) == 2 ? DFCS_BUTTON3STATE | DFCS_CHECKED : DFCS_BUTTONCHECK;
        if (GetCheck(index) == 1) state |= DFCS_CHECKED;
        if (!enabled) state |= DFCS_INACTIVE;
        CRect boxRect = box;
        ::DrawFrameControl(item.hDC, &boxRect, DFC_BUTTON, state);

        const int colour = !enabled ? COLOR_GRAYTEXT : selected ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT;
        const COLORREF oldColour = ::SetTextColor(item.hDC, ::GetSysColor(colour));
        const int oldMode = ::SetBkMode(item.hDC, TRANSPARENT);
        const std::wstring label = GetText(index);
        CRect labelArea = text;
        labelArea.left += kMargin;
        ::DrawTextW(item.hDC, label.c_str(), static_cast<int>(label.size()), &labelArea,
                    DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
        ::SetBkMode(item.hDC, oldMode);
        ::SetTextColor(item.hDC, oldColour);
    }
    if ((item.itemState & ODS_FOCUS) != 0) ::DrawFocusRect(item.hDC, &text);
}
