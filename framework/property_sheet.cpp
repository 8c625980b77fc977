#include "framework/property_sheet.h"

#include <algorithm>

#include "framework/window_creation.h"

QV_RUNTIME_CLASS(CPropertySheet, CWnd)

namespace {

constexpr UINT kTabControlId = 0x3020;  // as the platform's own sheets number theirs

}  // namespace

CPropertySheet::CPropertySheet(std::wstring_view caption, CWnd* parent, UINT firstPage)
    : m_caption(caption), m_parent(parent), m_firstPage(firstPage) {}

CPropertySheet::~CPropertySheet() {
    if (m_hWnd != nullptr) CWnd::DestroyWindow();
    for (CPropertyPage* page : m_pages)
        page->m_sheet = nullptr;
}

const MessageMap* CPropertySheet::GetThisMessageMap() {
    static const MessageMap map{CWnd::GetThisMessageMap(),
                                {
                                    on::Create<&CPropertySheet::OnCreate>(),
                                    on::Message<&CPropertySheet::OnSetFont>(WM_SETFONT),
                                    on::Message<&CPropertySheet::OnGetFont>(WM_GETFONT),
                                    on::Message<&CPropertySheet::OnSetFocus>(WM_SETFOCUS),
                                }};
    return &map;
}

const MessageMap* CPropertySheet::GetMessageMap() const {
    return GetThisMessageMap();
}

bool CPropertySheet::Create(CWnd* parent, DWORD style, DWORD exStyle) {
    if (parent == nullptr) parent = m_parent;
    if (parent == nullptr || parent->m_hWnd == nullptr) return false;
    // As large as it can become, so that pages are never laid out in nothing; whoever made the sheet places it.
    m_font = parent->GetFont();
    const qv::detail::CreationHold hold(*this);
    if (!CreateEx(exStyle, nullptr, m_caption, style | WS_CHILD, parent->GetClientRect(), parent->m_hWnd, 0))
        return false;
    OnInitDialog();
    if (m_hWnd != nullptr && !m_tab.IsLive()) DestroyWindow();  // without tabs nobody gets at the pages
    return m_hWnd != nullptr;
}

int CPropertySheet::OnCreate(CREATESTRUCTW* cs) {
    return CWnd::OnCreate(cs);
}

bool CPropertySheet::OnInitDialog() {
    constexpr DWORD kStyle = WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_GROUP | WS_CLIPSIBLINGS | TCS_MULTILINE;
    // Users size the tab control to the sheet less ten pixels and never move it: half of them stay on each side.
    constexpr int kMargin = 5;
    const CRect client = GetClientRect();
    const CRect tabs(kMargin, kMargin, client.Width() - kMargin, client.Height() - kMargin);
    if (!m_tab.Create(kStyle, tabs, this, kTabControlId)) return true;
    m_tab.SetFont(m_font, false);
    m_tab.SetAccessibleName(m_caption);
    for (int i = 0; i < GetPageCount(); ++i)
        m_tab.InsertItem(i, L"");
    SetActivePage(static_cast<int>(m_firstPage));
    return true;
}

void CPropertySheet::AddPage(CPropertyPage* page) {
    if (page == nullptr || page->m_sheet != nullptr) return;
    page->m_sheet = this;
    m_pages.push_back(page);
    if (m_tab.m_hWnd != nullptr) m_tab.InsertItem(GetPageCount() - 1, L"");
}

int CPropertySheet::GetPageCount() const noexcept {
    return static_cast<int>(m_pages.size());
}

CPropertyPage* CPropertySheet::GetPage(int index) const {
    return index >= 0 && index < GetPageCount() ? m_pages[static_cast<std::size_t>(index)] : nullptr;
}

int CPropertySheet::GetPageIndex(const CPropertyPage* page) const {
    const auto found = std::find(m_pages.begin(), m_pages.end(), page);
    return found != m_pages.end() ? static_cast<int>(found - m_pages.begin()) : -1;
}

CPropertyPage* CPropertySheet::GetActivePage() const {
    return GetPage(m_active);
}

int CPropertySheet::GetActiveIndex() const noexcept {
    return m_active;
}

CTabCtrl* CPropertySheet::GetTabControl() noexcept {
    return &m_tab;
}

bool CPropertySheet::SetActivePage(CPropertyPage* page) {
    return SetActivePage(GetPageIndex(page));
}

bool CPropertySheet::SetActivePage(int index) {
    CPropertyPage* current = GetActivePage();
    const bool leaves = index != m_active && current != nullptr && current->m_hWnd != nullptr;
    if (leaves && !current->OnKillActive()) return false;
    return ShowPage(index);
}

// The part after the current page has agreed to be left. The tab row shows the active page in every case.
bool CPropertySheet::ShowPage(int index) {
    CPropertyPage* page = GetPage(index);
    CPropertyPage* before = GetActivePage();
    const bool shown = page != nullptr && m_hWnd != nullptr && (page->m_hWnd != nullptr || page->CreateIn(*this)) &&
                       (page == before || page->OnSetActive());
    if (shown && page != before) {
        const bool hadFocus = before != nullptr && before->m_hWnd != nullptr && ::IsChild(before->m_hWnd, ::GetFocus());
        // On top: later siblings lie below, and the tab control covers the same area.
        const CRect place = PageRect();
        page->SetWindowPos(HWND_TOP, static_cast<int>(place.left), static_cast<int>(place.top), place.Width(),
                           place.Height(), SWP_SHOWWINDOW | SWP_NOACTIVATE);
        m_active = index;
        if (hadFocus) {
            HWND first = ::GetNextDlgTabItem(page->m_hWnd, nullptr, FALSE);
            // As Tab would get there, which selects a field's text.
            if (first != nullptr) {
                page->SendMessage(WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(first), TRUE);
            } else {
                m_tab.SetFocus();
            }
        }
        if (before != nullptr && before->m_hWnd != nullptr) before->ShowWindow(SW_HIDE);
    }
    if (m_tab.m_hWnd != nullptr && m_active >= 0 && m_tab.GetCurSel() != m_active) m_tab.SetCurSel(m_active);
    return shown;
}

// Where the active page lies, or, for the first one, the room that the tab row leaves.
CRect CPropertySheet::PageRect() const {
    if (const CPropertyPage* active = GetActivePage(); active != nullptr && active->m_hWnd != nullptr) {
        CRect rect = active->GetWindowRect();
        ScreenToClient(rect);
        return rect;
    }
    CRect rect = m_tab.GetWindowRect();
    ScreenToClient(rect);
    m_tab.AdjustRect(false, rect);
    return rect;
}

void CPropertySheet::Forget(const CPropertyPage* page) {
    const int index = GetPageIndex(page);
    if (index < 0) return;
    m_pages.erase(m_pages.begin() + index);
    if (m_tab.m_hWnd != nullptr) m_tab.SendMessage(TCM_DELETEITEM, static_cast<WPARAM>(index));
    if (index == m_active) {
        m_active = -1;
    } else if (index < m_active) {
        --m_active;
    }
}

bool CPropertySheet::OnSwitchPage(int step) {
    const int count = GetPageCount();
    if (count < 2) return false;
    HWND focus = ::GetFocus();
    const bool focusInPage = GetActivePage() != nullptr && ::IsChild(GetActivePage()->m_hWnd, focus) != FALSE;
    // After the end of the active page there is none, and either way leads to the nearest end.
    const int from = m_active >= 0 || step > 0 ? m_active : 0;
    SetActivePage((from + step + count) % count);
    if (!focusInPage && focus != ::GetFocus() && ::IsWindow(focus) != FALSE) ::SetFocus(focus);
    return true;
}

bool CPropertySheet::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) {
    if (CWnd::OnNotify(wParam, lParam, result)) return true;
    const auto* header = reinterpret_cast<const NMHDR*>(lParam);
    if (header->hwndFrom == nullptr || header->hwndFrom != m_tab.m_hWnd) return false;
    const auto answer = [result](LRESULT value) {
        if (result != nullptr) *result = value;
        return true;
    };
    if (header->code == static_cast<UINT>(TCN_SELCHANGING)) {
        CPropertyPage* active = GetActivePage();
        const bool leave = active == nullptr || active->m_hWnd == nullptr || active->OnKillActive();
        return answer(leave ? FALSE : TRUE);
    }
    if (header->code == static_cast<UINT>(TCN_SELCHANGE)) {
        ShowPage(m_tab.GetCurSel());
        return answer(0);
    }
    return false;
}

LRESULT CPropertySheet::OnSetFont(WPARAM wParam, LPARAM lParam) {
    m_font = reinterpret_cast<HFONT>(wParam);
    if (m_tab.m_hWnd != nullptr) m_tab.SendMessage(WM_SETFONT, wParam, lParam);
    return 0;
}

LRESULT CPropertySheet::OnGetFont(WPARAM, LPARAM) {
    return reinterpret_cast<LRESULT>(m_font);
}

LRESULT CPropertySheet::OnSetFocus(WPARAM, LPARAM) {
    if (m_tab.m_hWnd != nullptr) ::SetFocus(m_tab.m_hWnd);
    return 0;
}
