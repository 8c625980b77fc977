// The host's layout manager: turns groups of rows into prompts and controls on a page, keeps them fitted to the page
// and knows the current text of every row. It creates prompts and ordinary controls itself; a row whose window pointer
// is set by then shows that window (a special control) instead. Sizes that callers give are pixels at 96 dpi; the
// layout scales them.
#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "framework/controls.h"

namespace qv {
class LayoutMetrics;
}

class XLayout {
public:
    // The lowest id that the layout gives to controls of its own; those below are the page's, from 20000 on.
    static constexpr UINT kFirstControlId = 30000;
    // What a row holds and which control shows it. The pairs in use: (4, 4) check box, (3, 3) integer edit, (2, 3)
    // floating-point edit, (1, 3) text edit, (1, 2) combo box, (1, 6) check list.
    enum DataType : int { kText = 1, kDouble = 2, kInteger = 3, kBoolean = 4 };
    enum ControlType : int { kComboBox = 2, kEdit = 3, kCheckBox = 4, kCheckList = 6 };
    // How a control takes part when the page grows: not at all (its column's common width), fixed size, width only
    // within its bounds, and width and height within its bounds.
    enum ResizeMode : int { kResizeDefault = 0, kResizeFixed = 1, kResizeWidth = 2, kResizeBoth = 4 };

    // One entry of a combo box.
    struct ColumnItem {
        ColumnItem(std::wstring itemText, std::wstring itemData, int itemIndex, CWnd* itemWindow)
            : text(std::move(itemText)), data(std::move(itemData)), index(itemIndex), window(itemWindow) {}
        std::wstring text;  // what the list shows
        std::wstring data;  // what the row's text is while the entry is selected
        int index;          // the caller's own number; not the position in the list
        CWnd* window;
    };

    // One row: prompt and control.
    class Column {
    public:
        // The rows' list of arguments is the host's published one. Those named by their position alone (flag6, text19,
        // ...) are settings of other arrangements: this layout takes any value and reads none. companion may be null;
        // bounds that do not belong to the data type are not read.
        Column(CWnd* parentWindow, std::wstring rowName, std::wstring promptText, std::wstring valueText,
               int orderNumber, bool flag6, bool isDisabled, int dataTypeCode, int controlTypeCode, int resizeModeCode,
               CWnd* companion, int lowerInteger, int upperInteger, double lowerDouble, double upperDouble,
               int digitCount, int decimalPlaces, int groupNumber, std::wstring text19, bool flag20, void* pointer21,
               bool flag22, int number23, int number24, int number25, std::wstring text26, std::wstring text27,
               std::wstring text28);

        void SetColumnItemList(std::vector<ColumnItem> items);
        void SetControlWidth(int minimum, int maximum);   // pixels at 96 dpi
        void SetControlHeight(int minimum, int maximum);  // pixels at 96 dpi

        CWnd* parent;   // set by the page before InitLayoutManager
        CWnd* control;  // argument 11 or, set by the page, the special control; null for rows of the layout's own
        std::wstring name;
        std::wstring prompt;
        std::wstring value;
        int order;
        bool disabled;
        int dataType;
        int controlType;
        int resizeMode;
        int lower, upper;
        double lowerReal, upperReal;
        int limit;  // characters that an integer or text edit takes; a text edit of 0 or less takes none
        int decimals;
        std::vector<ColumnItem> items;
        int minWidth = 0, maxWidth = 0, minHeight = 0, maxHeight = 0;  // 0: the layout's own measure
    };

    // The rows of one block of a page, in loading order. Layout cells (row index, group index) count in this vector,
    // which the layout never reorders.
    class Group {
    public:
        // Takes the rows over. Arguments named by their position alone, and companion, are read by other arrangements.
        Group(CWnd* parentWindow, int groupNumber, std::wstring titleText, bool flag4, CWnd* companion,
              std::vector<std::unique_ptr<Column>> rows, std::wstring text7, bool flag8, bool flag9);
        CWnd* parent;
        int number;
        std::wstring title;
        std::vector<std::unique_ptr<Column>> columns;
    };

    // One row as storing and validation see it.
    struct ColumnReference {
        const std::wstring& name;  // of the row; valid as long as its group
        std::wstring text;
        bool excluded;  // not to be stored: a placeholder, a disabled row, a control that could not be created
    };

    // mode: 1, a row below the other, is the one arrangement there is.
    explicit XLayout(int mode);
    ~XLayout();
    XLayout(const XLayout&) = delete;
    XLayout& operator=(const XLayout&) = delete;

    // Creates what is missing on the parent, which outlives the layout (its window need not). The groups are borrowed
    // and must outlive the layout. A control that cannot be created leaves its row in place, without a control and
    // excluded from storing.
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

    // Rows in display order with their current texts: an edit's text, "1" or "0", the selected entry's data, empty for
    // a placeholder (whose window is never read).
    [[nodiscard]] std::vector<ColumnReference> GetReferenceList() const;
    // By name; of rows with one name the first. Null when there is none (or it has no such window).
    [[nodiscard]] Column* GetColumn(std::wstring_view name) const;
    [[nodiscard]] CWnd* GetColumnControl(std::wstring_view name) const;
    [[nodiscard]] CWnd* GetColumnPrompt(std::wstring_view name) const;
    // Shows text in the row's control: an edit's text, a check mark for "1", the entry with this data. Unknown names
    // and placeholders are passed over. The last two arguments are the host's own.
    void UpdateControl(std::wstring_view name, std::wstring_view text, void* data, std::wstring_view extra);

    // Every row in display order with its windows, for a host that inspects the dialog.
    struct RowView {
        const Column& column;
        CWnd* prompt;
        CWnd* control;
    };
    [[nodiscard]] std::vector<RowView> GetRows() const;
    [[nodiscard]] CWnd* GetParent() const noexcept { return m_parent; }

private:
    struct Row;
    class PageScroll;
    // What the rows of a page have in common, in pixels.
    struct Measures {
        int promptWidth = 0;
        int columnGap = 0;
        int controlWidth = 0;  // the widest control's least width
        int lineHeight = 0;
        int lineControlHeight = 0;  // of an ordinary row: every control of one line has room in it
        int rowGap = 0;
        int height = 0;  // of all rows at their least
        // Whoever frames the page leaves a number of pixels for tabs and buttons that is right at 96 dpi. What these
        // are higher at another resolution has to be asked for here, or the last row would be cut.
        int aroundPage = 0;
    };
    [[nodiscard]] Row* Find(std::wstring_view name) const;
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
    POINT m_origin{0, 0};        // of the rows in the page; the page's margins
    unsigned m_arrangement = 0;  // counts the calls that arrange the rows
    std::unique_ptr<PageScroll> m_scroll;
};

namespace qv {
// The layouts that are alive now, oldest first.
[[nodiscard]] std::vector<XLayout*> LiveLayouts();
}  // namespace qv
