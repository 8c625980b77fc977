// Where the rows of a layout stand: prompts in one column, controls beside them, growth where a row allows it.
#include <algorithm>

#include "host/libraries/layout_probe.h"
#include "host/libraries/layout_row.h"
#include "host/libraries/layout_scroll.h"

namespace {

constexpr int kAroundPage = 44;     // pixels at 96 dpi: a row of tabs and a row of buttons
constexpr int kRowGapUnits = 4;     // dialog units between rows, as the platform spaces related controls
constexpr int kColumnGapUnits = 6;  // between prompts and controls
constexpr int kCommonWidth = 200;   // pixels at 96 dpi: the usual bound of special controls, whose edges then align
constexpr int kCommonCharacters = 30;
constexpr int kCommonHeight = 24;  // pixels at 96 dpi: theirs too, so that rows have one distance on every page

// Shares extra height among rows that may grow: evenly, but none beyond its own maximum. What nobody takes is left.
std::vector<int> ShareHeight(int extra, const std::vector<int>& rooms) {
    std::vector<std::size_t> order(rooms.size());
    for (std::size_t i = 0; i < order.size(); ++i)
        order[i] = i;
    // Whoever can take the least is served first, so that its rest goes to the others.
    std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) { return rooms[a] < rooms[b]; });
    std::vector<int> shares(rooms.size(), 0);
    int left = std::max(extra, 0);
    for (std::size_t i = 0; i < order.size(); ++i) {
        const int fair = left / static_cast<int>(order.size() - i);
        shares[order[i]] = std::min(fair, rooms[order[i]]);
        left -= shares[order[i]];
    }
    return shares;
}

// Windows are moved together, and only those that have to move.
class Mover {
public:
    // scrolled: how far the rows stand above and to the left of their places.
    Mover(std::size_t windows, const CWnd* page, POINT scrolled) : m_windows(windows), m_scrolled(scrolled) {
        // What nobody sees is drawn as a whole when it is shown.
        if (page != nullptr && !page->IsWindowVisible()) m_flags |= SWP_NOREDRAW | SWP_NOCOPYBITS;
    }
    ~Mover() {
        if (m_batch != nullptr) ::EndDeferWindowPos(m_batch);
    }
    Mover(const Mover&) = delete;
    Mover& operator=(const Mover&) = delete;

    // The window may be null: not made yet, or refused.
    void Move(const CWnd* window, CRect& place, const CRect& target) {
        if (::EqualRect(&place, &target) != FALSE) return;
        place = target;
        if (window == nullptr) return;
        const int x = static_cast<int>(target.left - m_scrolled.x), y = static_cast<int>(target.top - m_scrolled.y);
        const int cx = target.Width(), cy = target.Height();
        if (!m_hasBegun) m_batch = ::BeginDeferWindowPos(static_cast<int>(m_windows));
        m_hasBegun = true;
        if (m_batch != nullptr) m_batch = ::DeferWindowPos(m_batch, window->m_hWnd, nullptr, x, y, cx, cy, m_flags);
        if (m_batch == nullptr) ::SetWindowPos(window->m_hWnd, nullptr, x, y, cx, cy, m_flags);
    }

private:
    std::size_t m_windows;
    POINT m_scrolled;
    bool m_hasBegun = false;  // most pages are arranged without anything to move
    HDWP m_batch = nullptr;
    UINT m_flags = SWP_NOZORDER | SWP_NOACTIVATE;
};

}  // namespace

void XLayout::Measure(const qv::LayoutMetrics& metrics) {
    m_measures = {};
    m_measures.lineHeight = metrics.LineHeight();
    m_measures.rowGap = metrics.Y(kRowGapUnits);
    m_measures.aroundPage = metrics.Scale(kAroundPage) - kAroundPage;

    const int usual = std::max(metrics.Scale(kCommonWidth), kCommonCharacters * metrics.AverageWidth());
    int common = usual;
    for (const auto& row : m_rows) {
        common = std::max(common, row->EntriesWidth(metrics));
        m_measures.promptWidth = std::max(m_measures.promptWidth, static_cast<int>(row->promptSize.cx));
    }
    common = std::min(common, 2 * usual);
    m_measures.columnGap = m_measures.promptWidth > 0 ? metrics.X(kColumnGapUnits) : 0;

    const qv::ControlMeasures controls = qv::MeasureControls(*m_parent, metrics);
    m_measures.comboFieldHeight = controls.comboFieldHeight;
    int lineControls = 0;
    for (const auto& row : m_rows) {
        row->Measure(metrics, controls, common);
        m_measures.controlWidth = std::max(m_measures.controlWidth, row->minWidth);
        if (row->isTall) continue;
        // The line of text is in the middle of the row, whatever its control has above and below it; a pixel that is
        // left over is below it.
        const int below = row->minHeight - m_measures.lineHeight - row->textTop;
        lineControls = std::max(lineControls, m_measures.lineHeight + std::max(2 * row->textTop, 2 * below - 1));
    }
    m_measures.lineControlHeight = std::max({lineControls, m_measures.lineHeight, metrics.Scale(kCommonHeight)});
    for (const auto& row : m_rows)
        m_measures.height += RowHeight(*row, row->minHeight);
    if (!m_rows.empty()) m_measures.height += static_cast<int>(m_rows.size() - 1) * m_measures.rowGap;
}

int XLayout::TextLineTop() const {
    return (m_measures.lineControlHeight - m_measures.lineHeight) / 2;
}

int XLayout::ControlTop(const Row& row) const {
    return row.isTall ? 0 : TextLineTop() - row.textTop;
}

int XLayout::PromptTop(const Row& row) const {
    return row.isTall ? row.textTop : TextLineTop();
}

int XLayout::RowHeight(const Row& row, int controlHeight) const {
    return std::max({ControlTop(row) + controlHeight, m_measures.lineControlHeight,
                     PromptTop(row) + static_cast<int>(row.promptSize.cy)});
}

int XLayout::GetMinWidth() const {
    return m_measures.promptWidth + m_measures.columnGap + m_measures.controlWidth;
}

int XLayout::GetMinHeight() const {
    return m_measures.height + m_measures.aroundPage;
}

bool XLayout::CanResizeWidth() const {
    return std::any_of(m_rows.begin(), m_rows.end(),
                       [](const auto& row) { return row->GrowsInWidth() && row->maxWidth > row->minWidth; });
}

bool XLayout::CanResizeHeight() const {
    return std::any_of(m_rows.begin(), m_rows.end(),
                       [](const auto& row) { return row->GrowsInHeight() && row->maxHeight > row->minHeight; });
}

void XLayout::RecalcLayout(int x, int y, int cx, int cy) {
    m_room = CRect(x, y, x + cx, y + cy);
    if (m_isPlaced || m_isMaking) {
        Arrange();
    } else if (m_parent == nullptr || !m_parent->IsWindowVisible()) {
        // Nobody can see yet where the rows stand, and the page's size will change until somebody can.
        return;
    }
    FollowView();
}

void XLayout::Arrange() {
    const int x = static_cast<int>(m_room.left), y = static_cast<int>(m_room.top);
    if (m_scroll != nullptr) {
        // A page whose bars come or go has another size and arranges its rows for that one before this goes on.
        const unsigned turn = ++m_arrangement;
        const int rowDistance = m_measures.lineControlHeight + m_measures.rowGap;
        m_scroll->SetContent({GetMinWidth() + 2 * x, m_measures.height + 2 * y}, rowDistance);
        if (turn != m_arrangement) return;
    }
    std::vector<int> rooms;
    for (const auto& row : m_rows) {
        if (row->isTall) rooms.push_back(row->maxHeight - row->minHeight);
    }
    const std::vector<int> shares = ShareHeight(m_room.Height() - m_measures.height, rooms);

    Mover mover(2 * m_rows.size(), m_parent, m_scroll != nullptr ? m_scroll->Position() : POINT{0, 0});
    const int controlLeft = x + m_measures.promptWidth + m_measures.columnGap;
    const int room = m_room.Width() - m_measures.promptWidth - m_measures.columnGap;
    int top = y;
    std::size_t tall = 0;
    for (const auto& row : m_rows) {
        const int width = std::clamp(room, row->minWidth, row->maxWidth);
        const int height = row->minHeight + (row->isTall ? shares[tall++] : 0);
        const int promptTop = top + PromptTop(*row);
        mover.Move(row->HasPrompt() ? row->prompt.get() : nullptr, row->promptPlace,
                   {x - row->promptOutdent, promptTop, x + m_measures.promptWidth,
                    promptTop + static_cast<int>(row->promptSize.cy)});
        const int controlTop = top + ControlTop(*row);
        mover.Move(row->HasControl() ? row->control : nullptr, row->controlPlace,
                   {controlLeft, controlTop, controlLeft + width, controlTop + height});
        row->place = CRect(x, top, controlLeft + width, top + RowHeight(*row, height));
        top += row->place.Height() + m_measures.rowGap;
    }
}
