#include "qvclient/qvsettingsdialog/dialogs/dyn_property_sheet.h"

#include <algorithm>

#include "framework/call_scope.h"
#include "framework/gdi.h"
#include "qvclient/qvsettingsdialog/controls/settings_messages.h"

QV_RUNTIME_CLASS(XDynPropertySheet, CPropertySheet)

namespace {

// Pixels around the pages.
constexpr int kExtraWidth = 75;
constexpr int kExtraHeight = 50;
constexpr int kMargin = 10;
constexpr int kPageInset = 5;

}  // namespace

XDynPropertySheet::XDynPropertySheet(std::wstring_view caption, XConstructionSet& constructionSet, CWnd* parent,
                                     UINT firstPage)
    : CPropertySheet(caption, parent, firstPage), m_constructionSet(constructionSet), m_parentDialog(parent) {
    BuildPages();
}

XDynPropertySheet::~XDynPropertySheet() {
    if (m_hWnd != nullptr) CWnd::DestroyWindow();  // before what its windows refer to
}

const MessageMap* XDynPropertySheet::GetThisMessageMap() {
    static const MessageMap map{CPropertySheet::GetThisMessageMap(),
                                {
                                    on::Create<&XDynPropertySheet::OnCreate>(),
                                    on::Size<&XDynPropertySheet::OnSize>(),
                                    on::GetMinMaxInfo<&XDynPropertySheet::OnGetMinMaxInfo>(),
                                    on::Message<&XDynPropertySheet::OnSettingsModified>(WM_SETTINGS_MODIFIED),
                                }};
    return &map;
}

const MessageMap* XDynPropertySheet::GetMessageMap() const {
    return GetThisMessageMap();
}

// A failing model leaves a sheet without pages: an empty tab row.
void XDynPropertySheet::BuildPages() {
    std::list<PageEntry> entries;
    if (!m_constructionSet.LoadPages(entries)) return;
    // Nobody is left to see what is loaded once the dialog's window is gone.
    const bool isForWindow = m_parentDialog != nullptr && m_parentDialog->IsLive();
    const auto goesOn = [&] { return !isForWindow || m_parentDialog->IsLive(); };
    if (!m_constructionSet.LoadItems(m_items, goesOn)) return;

    UINT index = 0;
    std::size_t previousLength = 0;
    for (const PageEntry& entry : entries) {
        PageRecord* record = FindRecord(entry.number);
        // A page without items gets no tab and uses up no index; nor does a second title for the same number.
        if (record == nullptr || m_pages.contains(entry.number)) continue;
        auto page = std::make_unique<XDynPropertyPage>(*record, entry.title, index, *this);
        // Deliberate: a title is compared with the one before it, not with the widest so far, so 10, 3 and 5 characters
        // give the one of 5. The tab row's least width has always been measured so.
        if (entry.title.size() > previousLength) m_widestTitle = entry.title;
        previousLength = entry.title.size();
        AddPage(page.get());
        m_pages.emplace(entry.number, std::move(page));
        ++index;
    }
}

PageRecord* XDynPropertySheet::FindRecord(std::int32_t pageNumber) const {
    const auto found = m_items.find(pageNumber);
    return found != m_items.end() ? found->second : nullptr;
}

// In the map for what is derived from this class: creation ends with the base's answer.
int XDynPropertySheet::OnCreate(CREATESTRUCTW* cs) {
    return CPropertySheet::OnCreate(cs) == -1 ? -1 : 0;
}

bool XDynPropertySheet::OnInitDialog() {
    const bool result = CPropertySheet::OnInitDialog();
    int index = 0;
    for (const auto& [number, page] : m_pages) {
        SetActivePage(index++);  // creates the page's window, which lays its controls out
        if (!IsLive()) return result;
        m_requiredWidth = std::max(m_requiredWidth, page->GetMinWidth());
        m_requiredHeight = std::max(m_requiredHeight, page->GetMinHeight());
        m_canResizeWidth = m_canResizeWidth || page->CanResizeWidth();
        m_canResizeHeight = m_canResizeHeight || page->CanResizeHeight();
    }
    SetActivePage(0);
    m_requiredWidth += kExtraWidth;
    m_requiredHeight += kExtraHeight;
    m_baseHeight = m_requiredHeight;
    m_initialised = true;
    return result;
}

int XDynPropertySheet::LargestMinWidth() const {
    int largest = 0;
    for (const auto& [number, page] : m_pages)
        largest = std::max(largest, page->GetMinWidth());
    return largest;
}

int XDynPropertySheet::LargestMinHeight() const {
    int largest = 0;
    for (const auto& [number, page] : m_pages)
        largest = std::max(largest, page->GetMinHeight());
    return largest;
}

int XDynPropertySheet::GetRequiredWidth() {
    const int largest = LargestMinWidth();
    if (largest > m_requiredWidth) m_requiredWidth = largest + kExtraWidth;
    return m_requiredWidth;
}

int XDynPropertySheet::GetRequiredHeight() {
    if (!m_pageRectValid) {
        // The dialog lays itself out, and with it the sheet, which then knows the height of its tab row.
        if (CWnd* parent = GetParent(); parent != nullptr && parent->IsLive()) parent->SendMessage(WM_SIZE);
    }
    const int largest = LargestMinHeight();
    // Deliberate: added, where the width is replaced. A page that outgrew the sheet gets room for its tabs this way.
    if (largest > m_requiredHeight) m_requiredHeight += largest;
    return m_requiredHeight;
}

void XDynPropertySheet::OnSize(UINT type, int cx, int cy) {
    CPropertySheet::OnSize(type, cx, cy);
    if (m_initialised) FitPage(cx, cy);
}

void XDynPropertySheet::FitPage(int cx, int cy) {
    CTabCtrl* tab = GetTabControl();
    if (tab == nullptr || !tab->IsLive()) return;
    tab->SetWindowPos(nullptr, 0, 0, cx - kMargin, cy - kMargin, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    CRect tabRect = tab->GetWindowRect();
    ScreenToClient(tabRect);
    if (GetPageCount() == 0) return;

    CRect item;
    if (!tab->GetItemRect(GetActiveIndex(), item)) item = CRect();
    const int rowsHeight = tab->GetRowCount() * item.Height() + kPageInset;
    m_requiredHeight = rowsHeight + m_baseHeight;
    {
        CClientDC dc(*this);
        if (dc.IsValid()) {
            dc.SelectFont(tab->GetFont());
            m_requiredWidth = static_cast<int>(dc.GetTextExtent(m_widestTitle).cx);
        }
    }
    CPropertyPage* page = GetActivePage();
    if (page == nullptr) return;
    m_pageRect = CRect(static_cast<int>(tabRect.left) + kPageInset, static_cast<int>(tabRect.top) + rowsHeight,
                       cx - kMargin, cy - kMargin);
    page->MoveWindow(m_pageRect);
    m_pageRectValid = true;
}

bool XDynPropertySheet::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) {
    const bool handled = CPropertySheet::OnNotify(wParam, lParam, result);
    const auto* header = reinterpret_cast<const NMHDR*>(lParam);
    if (header == nullptr || header->code != static_cast<UINT>(TCN_SELCHANGE)) return handled;
    if (!handled) {
        const LRESULT standard = Default();
        if (result != nullptr) *result = standard;
    }
    if (CPropertyPage* page = GetActivePage()) page->MoveWindow(m_pageRect);
    return true;
}

// The dialog around the sheet limits its size; the sheet itself has no limits once it is set up.
void XDynPropertySheet::OnGetMinMaxInfo(MINMAXINFO* info) {
    if (!m_initialised) CPropertySheet::OnGetMinMaxInfo(info);
}

LRESULT XDynPropertySheet::OnSettingsModified(WPARAM /*wParam*/, LPARAM /*lParam*/) {
    if (!m_modifiedNotified) {
        m_modifiedNotified = true;
        if (m_parentDialog != nullptr) m_parentDialog->SendMessage(WM_SETTINGS_MODIFIED);
    }
    return 0;
}

void XDynPropertySheet::ResetModifiedNotice() {
    m_modifiedNotified = false;
}

bool XDynPropertySheet::AreAllPagesRefused() const {
    return !m_pages.empty() &&
           std::none_of(m_pages.begin(), m_pages.end(), [](const auto& entry) { return entry.second->IsLive(); });
}

bool XDynPropertySheet::ValidateAndStore() {
    const qv::CallScope call(m_hWnd);
    // A page that the platform refused has nothing to store. One that a message's answer or the host took away in the
    // middle had.
    const auto forEachPage = [this](const auto& action) {
        for (const auto& [number, page] : m_pages) {
            PageRecord* record = FindRecord(number);
            const bool wasLive = page->IsLive();
            if (record != nullptr && !action(*page, *record)) return false;
            if (!IsLive() || page->IsLive() != wasLive) return false;
        }
        return true;
    };
    return forEachPage([this](XDynPropertyPage& page, PageRecord& record) {
               return m_constructionSet.ValidateInputs(page, record);
           }) &&
           forEachPage([this](XDynPropertyPage& page, PageRecord& record) {
               return m_constructionSet.StoreSettings(page, record);
           });
}

void XDynPropertySheet::ResetToDefaults() {
    const qv::CallScope call(m_hWnd);
    for (const auto& [number, page] : m_pages) {
        if (!IsLive()) return;
        if (PageRecord* record = FindRecord(number)) m_constructionSet.SetDefaults(page->GetLayout(), *record);
    }
}
