// The host's layout manager: turns groups of rows into prompts and controls on a page, keeps them fitted to the page
// and knows the current text of every row. It creates prompts and ordinary controls itself; a row whose window pointer
// is set by then shows that window (a special control) instead. Sizes that callers give are pixels at 96 dpi; the
// layout scales them. What it shows and hands out are the records of layout_rows.h.
//
// A dialog of many pages would spend nearly all of its time on windows that nobody looks at. So rows are only planned
// at first: measured, placed, and answering with the text that their window would show. Their windows are made all at
// once, in display order, when the page is about to be seen (WindowHook::OnShowing) or somebody asks for one of them.
// Of a page of more than kMadeWhole rows only those are made that the eye or the keyboard can come to next, at their
// place in the tab order: the rows around what is seen, the ends of every way that Tab can go, and those whose mnemonic
// is pressed. So the number of windows does not grow with the page.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "framework/controls.h"
#include "host/libraries/layout_rows.h"

namespace qv {
class LayoutMetrics;
}

class XLayout : public qv::LayoutRows {
public:
    // The lowest id that the layout gives to controls of its own; those below are the page's, from 20000 on.
    static constexpr UINT kFirstControlId = 30000;
    // Up to this number of rows a page has all its windows once it has been seen.
    static constexpr std::size_t kMadeWhole = 100;
    // mode: 1, a row below the other, is the one arrangement there is.
    explicit XLayout(int mode);
    ~XLayout();
    XLayout(const XLayout&) = delete;
    XLayout& operator=(const XLayout&) = delete;

    // Plans what is missing on the parent, which outlives the layout (its window need not). The groups are borrowed
    // and must outlive the layout. A control that cannot be created later leaves its row in place, without a control
    // and excluded from storing.
    void InitLayoutManager(CWnd* parent, std::vector<Group*> groups);
    // Tab order down the page, in display order (order number, ties in loading order).
    void SetDefaultTabOrder();
    // Fits the rows into the rectangle (parent client coordinates, pixels), whose distance from the client area's left
    // and top is the margin on all sides. Where the parent's window is too small for the rows at their least and the
    // margins, the parent gets scroll bars and the rows move under them: by bar, wheel, PgUp and PgDn, and so that the
    // control that gets the focus is seen. Bars change the parent's client area, which is told to it by WM_SIZE.
    void RecalcLayout(int x, int y, int cx, int cy);
    // Pixels, without the page's margins, at which no scroll bar is needed.
    [[nodiscard]] int GetMinWidth() const;
    [[nodiscard]] int GetMinHeight() const;
    [[nodiscard]] bool CanResizeWidth() const;
    [[nodiscard]] bool CanResizeHeight() const;

    [[nodiscard]] std::vector<ColumnReference> GetReferenceList() const override;
    [[nodiscard]] Column* GetColumn(std::wstring_view name) const override;
    void UpdateControl(std::wstring_view name, std::wstring_view text, void* data, std::wstring_view extra) override;

    // By name; of rows with one name the first. Null when there is none or it has no such window. Makes the windows,
    // of a long page the row's own; they stay from then on.
    [[nodiscard]] CWnd* GetColumnControl(std::wstring_view name);
    [[nodiscard]] CWnd* GetColumnPrompt(std::wstring_view name);

    // Every row in display order with its windows, for a host that inspects the dialog; a long page may take them away
    // again as it is scrolled. A row that is only planned has none, but says what it will show: a text, "1" or "0", the
    // chosen entry's text.
    struct RowView {
        const Column& column;
        CWnd* prompt;
        CWnd* control;
        std::optional<std::wstring> willShow;
    };
    [[nodiscard]] std::vector<RowView> GetRows() const;
    [[nodiscard]] CWnd* GetParent() const noexcept { return m_parent; }

private:
    struct Row;
    class PageScroll;
    class PageHook;
    // What the rows of a page have in common, in pixels.
    struct Measures {
        int promptWidth = 0;
        int columnGap = 0;
        int controlWidth = 0;  // the widest control's least width
        int lineHeight = 0;
        int comboFieldHeight = 0;   // as in qv::ControlMeasures
        int lineControlHeight = 0;  // of an ordinary row: every control of one line has room in it
        int rowGap = 0;
        int height = 0;  // of all rows at their least
        // Whoever frames the page leaves a number of pixels for tabs and buttons that is right at 96 dpi. What these
        // are higher at another resolution has to be asked for here, or the last row would be cut.
        int aroundPage = 0;
    };
    [[nodiscard]] Row* Find(std::wstring_view name) const;
    // The rows stand elsewhere now, or the focus does.
    void FollowView();
    // Makes the windows of the rows that are still planned; of a long page, of those that it needs now.
    void MakeWindows();
    // Once, before the first windows.
    void PlaceRows();
    // Gives the planned rows among them their windows; of a page that is made whole, in the tab order.
    void Make(const std::vector<Row*>& rows);
    // Of the row and, on a page that is made whole, of all others.
    Row* MakeAndLend(std::wstring_view name);
    [[nodiscard]] bool IsLong() const noexcept { return m_rows.size() > kMadeWhole; }
    using RowIterator = std::vector<std::unique_ptr<Row>>::const_iterator;
    // Those that are seen, and as much above and below them.
    [[nodiscard]] std::pair<RowIterator, RowIterator> RowsInSight() const;
    void PutBackLostRows() const;
    // The rows of a long page that need windows now, in ascending order.
    [[nodiscard]] std::vector<Row*> RowsInReach() const;
    // Takes the windows of the other rows away when there have come to be many.
    void DiscardOthers(const std::vector<Row*>& inReach);
    void MakeForMnemonic(wchar_t typed);
    // Behind the windows of the rows before it.
    void PutInTabOrder(const Row& row) const;
    [[nodiscard]] static bool IsStop(const std::unique_ptr<Row>& row);
    // The row whose control is or contains the window, or null.
    [[nodiscard]] Row* RowOf(HWND window) const;
    // Places the rows in the latest rectangle that RecalcLayout was given.
    void Arrange();
    void OrderTabs();
    void Measure(const qv::LayoutMetrics& metrics);
    // From the row's top. The line of text of rows of one line: all prompts and fields stand on it.
    [[nodiscard]] int TextLineTop() const;
    [[nodiscard]] int ControlTop(const Row& row) const;
    [[nodiscard]] int PromptTop(const Row& row) const;
    [[nodiscard]] int RowHeight(const Row& row, int controlHeight) const;

    CWnd* m_parent = nullptr;
    std::vector<std::unique_ptr<Row>> m_rows;  // in display order
    std::unordered_map<std::wstring_view, Row*> m_byName;
    Measures m_measures;
    CRect m_room;                // for the rows, in the page's client area; its left and top are the page's margins
    unsigned m_arrangement = 0;  // counts the calls that arrange the rows
    bool m_isPlanned = false;    // windows are still to be made
    bool m_isPlaced = false;     // the rows know where they are to stand
    bool m_isMaking = false;
    bool m_ordersTabs = false;
    std::size_t m_made = 0;  // own rows that have their windows
    std::unique_ptr<PageScroll> m_scroll;
    std::unique_ptr<PageHook> m_hook;
};

namespace qv {
// The layouts that are alive now, oldest first.
[[nodiscard]] std::vector<XLayout*> LiveLayouts();
}  // namespace qv
