// A page of very many rows: which of them have windows. A person sees a few dozen at a time and leaves them by Tab, by
// a mnemonic or by scrolling; what these come to next is there before they do.
#include <algorithm>
#include <cwctype>

#include "base/raised_flag.h"
#include "base/text.h"
#include "host/libraries/layout_row.h"
#include "host/libraries/layout_scroll.h"

namespace {

// Above it, windows are taken away again from rows that nobody can come to with one step.
constexpr std::size_t kMostMade = 2 * XLayout::kMadeWhole;

constexpr int kFarthest = 30000;  // pixels, well below what a window can stand away

wchar_t Upper(wchar_t unit) {
    return static_cast<wchar_t>(std::towupper(static_cast<std::wint_t>(unit)));
}

}  // namespace

// Does Tab come to the row's control? Special controls do not count: they have their windows in any case, but may have
// nothing in them that takes the focus.
bool XLayout::IsStop(const std::unique_ptr<Row>& row) {
    return !row->IsExcluded();
}

XLayout::Row* XLayout::RowOf(HWND window) const {
    while (window != nullptr && ::GetAncestor(window, GA_PARENT) != m_parent->m_hWnd)
        window = ::GetAncestor(window, GA_PARENT);
    if (window == nullptr) return nullptr;
    const auto found = std::find_if(m_rows.begin(), m_rows.end(), [window](const auto& row) {
        return row->HasControl() && row->control->m_hWnd == window;
    });
    return found != m_rows.end() ? found->get() : nullptr;
}

std::pair<XLayout::RowIterator, XLayout::RowIterator> XLayout::RowsInSight() const {
    const int height = m_parent->GetClientRect().Height();
    const int top = static_cast<int>(m_scroll->Position().y);
    const auto first = std::partition_point(m_rows.begin(), m_rows.end(),
                                            [&](const auto& row) { return row->place.bottom <= top - height; });
    const auto last =
        std::partition_point(first, m_rows.end(), [&](const auto& row) { return row->place.top < top + 2 * height; });
    return {first, last};
}

// Windows keep 16 bits of where they stand. One that was farther away than that from what is seen has lost its place.
void XLayout::PutBackLostRows() const {
    if (m_scroll == nullptr || m_measures.height <= kFarthest || !m_parent->IsLive()) return;
    const POINT scrolled = m_scroll->Position();
    const auto putBack = [&](const CWnd& window, const CRect& place) {
        CRect now = window.GetWindowRect();
        m_parent->ScreenToClient(now);
        const int x = static_cast<int>(place.left - scrolled.x), y = static_cast<int>(place.top - scrolled.y);
        if (now.left == x && now.top == y) return;
        ::SetWindowPos(window.m_hWnd, nullptr, x, y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    };
    const auto [first, last] = RowsInSight();
    for (auto row = first; row != last; ++row) {
        if ((*row)->HasPrompt()) putBack(*(*row)->prompt, (*row)->promptPlace);
        if ((*row)->HasControl()) putBack(*(*row)->control, (*row)->controlPlace);
    }
}

std::vector<XLayout::Row*> XLayout::RowsInReach() const {
    std::vector<Row*> rows;
    const auto addNextStop = [&](auto from, auto end) {
        const auto stop = std::find_if(from, end, &IsStop);
        if (stop != end) rows.push_back(stop->get());
    };
    // Where Tab comes to from outside the page,
    addNextStop(m_rows.begin(), m_rows.end());
    addNextStop(m_rows.rbegin(), m_rows.rend());
    // and from the focus.
    if (Row* focused = RowOf(::GetFocus())) {
        const auto at = m_rows.begin() + static_cast<std::ptrdiff_t>(focused->position);
        addNextStop(std::make_reverse_iterator(at), m_rows.rend());
        rows.push_back(focused);
        addNextStop(at + 1, m_rows.end());
    }
    const auto [first, last] = RowsInSight();
    for (auto row = first; row != last; ++row)
        rows.push_back(row->get());

    std::sort(rows.begin(), rows.end(), [](const Row* a, const Row* b) { return a->position < b->position; });
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    return rows;
}

void XLayout::DiscardOthers(const std::vector<Row*>& inReach) {
    if (m_made <= kMostMade) return;
    auto kept = inReach.begin();
    for (const auto& row : m_rows) {
        if (kept != inReach.end() && *kept == row.get()) {
            ++kept;
        } else if (row->Discard()) {
            --m_made;
        }
    }
}

// The platform goes to the next label behind the focus, else to the first one.
void XLayout::MakeForMnemonic(wchar_t typed) {
    if (!m_isPlanned || m_isMaking || !m_isPlaced || m_parent == nullptr || !m_parent->IsLive()) return;
    const auto matches = [typed](const auto& row) {
        return !row->column.disabled && Upper(qv::MnemonicOf(row->column.prompt)) == Upper(typed);
    };
    std::vector<Row*> rows;
    const auto addNext = [&](auto from) {
        const auto next = std::find_if(from, m_rows.end(), matches);
        if (next == m_rows.end()) return;
        rows.push_back(next->get());
        // The label hands the focus on to what Tab would come to behind it.
        const auto stop = std::find_if(next, m_rows.end(), &IsStop);
        if (stop != m_rows.end()) rows.push_back(stop->get());
    };
    addNext(m_rows.begin());
    if (const Row* focused = RowOf(::GetFocus())) {
        addNext(m_rows.begin() + static_cast<std::ptrdiff_t>(focused->position) + 1);
    }
    const qv::RaisedFlag making(m_isMaking);
    Make(rows);
}

void XLayout::PutInTabOrder(const Row& row) const {
    HWND previous = HWND_TOP;
    for (std::size_t i = row.position; i-- > 0;) {
        const Row& before = *m_rows[i];
        if (!before.HasControl() && !before.HasPrompt()) continue;
        previous = before.HasControl() ? before.control->m_hWnd : before.prompt->m_hWnd;
        break;
    }
    const auto put = [&previous](const CWnd& window) {
        ::SetWindowPos(window.m_hWnd, previous, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_NOREDRAW);
        previous = window.m_hWnd;
    };
    if (row.HasPrompt()) put(*row.prompt);
    if (row.HasControl()) put(*row.control);
}
