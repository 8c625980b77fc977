#include "host/libraries/layout.h"

#include <algorithm>

#include "base/raised_flag.h"
#include "framework/window_hook.h"
#include "host/libraries/layout_probe.h"
#include "host/libraries/layout_row.h"
#include "host/libraries/layout_scroll.h"

namespace {

std::vector<XLayout*>& Alive() {
    static std::vector<XLayout*> layouts;
    return layouts;
}

// Ids of the layout's own controls lie above those that pages give to special controls (from 20000) and, where there
// are more rows than that, between those and the dialog's buttons. Rows are told apart by their windows, not their ids.
UINT ControlId(std::size_t index) {
    constexpr std::size_t kFirst = XLayout::kFirstControlId, kAbove = 0xFFFF - kFirst, kFirstBelow = 1000,
                          kBelow = 19000;
    return static_cast<UINT>(index < kAbove ? kFirst + index : kFirstBelow + (index - kAbove) % kBelow);
}

}  // namespace

// What the layout hears of its page.
class XLayout::PageHook final : public WindowHook {
public:
    // Both outlive it; the page's window may go before.
    PageHook(XLayout& layout, CWnd& page) : m_layout(layout), m_page(page), m_window(page.m_hWnd) {
        page.SetHook(this);
    }
    ~PageHook() {
        if (CWnd* page = CWnd::FromHandlePermanent(m_window); page == &m_page && page->GetHook() == this) {
            page->SetHook(nullptr);
        }
    }
    PageHook(const PageHook&) = delete;
    PageHook& operator=(const PageHook&) = delete;

    bool OnHookedMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override {
        // Drawn before it was told: whatever shows the page is none of ours.
        if (message == WM_ERASEBKGND || message == WM_PAINT) m_layout.MakeWindows();
        // What controls say while they are made is no change of anything.
        const bool isSilenced = message == WM_COMMAND && m_layout.m_isMaking;
        const bool isScroll = !isSilenced && m_layout.m_scroll->HandleMessage(message, wParam, lParam);
        if (isScroll) m_layout.FollowView();
        if (isSilenced || isScroll) *result = 0;
        return isSilenced || isScroll;
    }
    void OnDescendantFocused(HWND descendant) override {
        m_layout.m_scroll->BringIntoView(descendant);
        m_layout.FollowView();
    }
    void OnShowing() override { m_layout.MakeWindows(); }
    void OnMnemonic(wchar_t typed) override { m_layout.MakeForMnemonic(typed); }

private:
    XLayout& m_layout;
    CWnd& m_page;
    HWND m_window;
};

XLayout::XLayout(int) {
    Alive().push_back(this);
}

XLayout::~XLayout() {
    std::erase(Alive(), this);
    if (Alive().empty()) qv::ForgetControlMeasures();
}

void XLayout::InitLayoutManager(CWnd* parent, std::vector<Group*> groups) {
    m_hook.reset();
    m_scroll.reset();
    m_byName.clear();
    m_rows.clear();
    m_parent = parent;
    m_isPlanned = false;
    m_isPlaced = false;
    m_made = 0;
    if (parent == nullptr || !parent->IsLive()) return;
    m_scroll = std::make_unique<PageScroll>(*this, *parent);
    m_hook = std::make_unique<PageHook>(*this, *parent);

    for (Group* group : groups) {
        const auto first = static_cast<std::ptrdiff_t>(m_rows.size());
        for (const auto& column : group->columns)
            m_rows.push_back(std::make_unique<Row>(*column));
        std::stable_sort(m_rows.begin() + first, m_rows.end(),
                         [](const auto& a, const auto& b) { return a->column.order < b->column.order; });
    }
    m_byName.reserve(m_rows.size());
    const qv::LayoutMetrics metrics(*parent);
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        Row& row = *m_rows[i];
        row.position = i;
        m_byName.try_emplace(row.column.name, &row);
        row.Plan(metrics);
    }
    m_isPlanned = true;
    Measure(metrics);
}

void XLayout::MakeWindows() {
    if (!m_isPlanned || m_isMaking || m_parent == nullptr || !m_parent->IsLive()) return;
    const qv::RaisedFlag making(m_isMaking);
    PlaceRows();
    if (IsLong()) {
        const std::vector<Row*> inReach = RowsInReach();
        Make(inReach);
        DiscardOthers(inReach);
        return;
    }
    std::vector<Row*> all;
    all.reserve(m_rows.size());
    for (const auto& row : m_rows)
        all.push_back(row.get());
    Make(all);
    m_isPlanned = false;
    if (m_ordersTabs) OrderTabs();
}

void XLayout::FollowView() {
    MakeWindows();
    PutBackLostRows();
}

void XLayout::PlaceRows() {
    if (m_isPlaced) return;
    Arrange();
    m_isPlaced = true;
    // Before the first of a long page's windows, each of which finds its place among those that are there.
    if (IsLong()) OrderTabs();
}

void XLayout::Make(const std::vector<Row*>& rows) {
    const Row::Surroundings page{*m_parent, m_parent->GetFont(), m_measures.comboFieldHeight,
                                 m_scroll != nullptr ? m_scroll->Position() : POINT{0, 0}};
    for (Row* row : rows) {
        if (!m_parent->IsLive()) return;
        // Some are made already: of a long page, or where an earlier time ended early, for want of memory.
        if (!row->isPlanned) continue;
        row->Make(page, ControlId(row->position));
        if (!row->isPlaceholder) ++m_made;
        if (IsLong()) PutInTabOrder(*row);
    }
}

XLayout::Row* XLayout::MakeAndLend(std::wstring_view name) {
    Row* const row = Find(name);
    if (row == nullptr) return nullptr;
    row->isLent = true;
    if (!IsLong()) {
        MakeWindows();
    } else if (row->isPlanned && !m_isMaking && m_parent != nullptr && m_parent->IsLive()) {
        const qv::RaisedFlag making(m_isMaking);
        PlaceRows();
        Make({row});
    }
    return row;
}

void XLayout::SetDefaultTabOrder() {
    m_ordersTabs = true;
    if (!m_isPlanned) OrderTabs();
}

void XLayout::OrderTabs() {
    // Prompts and ordinary controls were created in display order, each at the end of the tab order. Only the windows
    // that were there before them are out of place.
    HWND previous = nullptr;
    for (const auto& row : m_rows) {
        if (row->HasPrompt()) previous = row->prompt->m_hWnd;
        if (!row->HasControl()) continue;
        if (row->isPlaceholder) {
            row->control->SetWindowPos(previous != nullptr ? previous : HWND_TOP, 0, 0, 0, 0,
                                       SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
        }
        previous = row->control->m_hWnd;
    }
}

std::vector<XLayout::ColumnReference> XLayout::GetReferenceList() const {
    std::vector<ColumnReference> references;
    references.reserve(m_rows.size());
    for (const auto& row : m_rows)
        references.push_back({row->column, row->column.name, row->GetText(), row->IsExcluded()});
    return references;
}

XLayout::Row* XLayout::Find(std::wstring_view name) const {
    const auto found = m_byName.find(name);
    return found != m_byName.end() ? found->second : nullptr;
}

XLayout::Column* XLayout::GetColumn(std::wstring_view name) const {
    Row* const row = Find(name);
    return row != nullptr ? &row->column : nullptr;
}

CWnd* XLayout::GetColumnControl(std::wstring_view name) {
    const Row* const row = MakeAndLend(name);
    return row != nullptr && row->HasControl() ? row->control : nullptr;
}

CWnd* XLayout::GetColumnPrompt(std::wstring_view name) {
    const Row* const row = MakeAndLend(name);
    return row != nullptr && row->HasPrompt() ? row->prompt.get() : nullptr;
}

void XLayout::UpdateControl(std::wstring_view name, std::wstring_view text, void*, std::wstring_view) {
    if (Row* const row = Find(name)) row->SetText(text);
}

std::vector<XLayout::RowView> XLayout::GetRows() const {
    std::vector<RowView> views;
    views.reserve(m_rows.size());
    for (const auto& row : m_rows) {
        const bool isPlanned = row->isPlanned && row->CanHaveControl();
        views.push_back({row->column, row->HasPrompt() ? row->prompt.get() : nullptr,
                         row->HasControl() ? row->control : nullptr,
                         isPlanned ? std::optional(row->GetShownText()) : std::nullopt});
    }
    return views;
}

namespace qv {

std::vector<XLayout*> LiveLayouts() {
    return Alive();
}

}  // namespace qv
