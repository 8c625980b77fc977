// The rows of a page as records: what its owner describes, the layout manager shows and storing and validation ask for.
// Making, reading and checking them takes no window.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

class CWnd;

namespace qv {

class LayoutRows {
public:
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
        // A row to be filled in: a text edit without bounds.
        explicit Column(std::wstring rowName);
        // The rows' list of arguments is the host's published one. Those named by their position alone (flag6, text19,
        // ...) are settings of other arrangements: this layout takes any value and reads none. companion may be null;
        // bounds that do not belong to the data type are not read.
        Column(CWnd* parentWindow, std::wstring rowName, std::wstring promptText, std::wstring valueText,
               int orderNumber, bool flag6, bool isDisabled, int dataTypeCode, int controlTypeCode, int resizeModeCode,
               CWnd* companion, int lowerInteger, int upperInteger, double lowerDouble, double upperDouble,
               int digitCount, int decimalPlaces, int groupNumber, std::wstring text19, bool flag20, void* pointer21,
               bool flag22, int number23, int number24, int number25, std::wstring text26, std::wstring text27,
               std::wstring text28);

        // Whatever the user writes is the text: decimal separators in it are the user's own.
        [[nodiscard]] bool IsFreeText() const noexcept { return dataType == kText && controlType == kEdit; }

        void SetColumnItemList(std::vector<ColumnItem> items);
        void SetControlWidth(int minimum, int maximum);   // pixels at 96 dpi
        void SetControlHeight(int minimum, int maximum);  // pixels at 96 dpi

        // Set by the page before InitLayoutManager.
        CWnd* parent = nullptr;
        // Argument 11 or, set by the page, the special control; null for rows of the layout's own.
        CWnd* control = nullptr;
        std::wstring name;
        std::wstring prompt;
        std::wstring value;
        int order = 0;
        bool disabled = false;
        int dataType = kText;
        int controlType = kEdit;
        int resizeMode = kResizeDefault;
        int lower = 0, upper = 0;
        double lowerReal = 0, upperReal = 0;
        int limit = 0;  // characters that an integer or text edit takes; a text edit of 0 or less takes none
        int decimals = 0;
        std::vector<ColumnItem> items;
        int minWidth = 0, maxWidth = 0, minHeight = 0, maxHeight = 0;  // 0: the layout's own measure
        std::size_t index = 0;                                         // the owner's own number of the row
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
        const Column& row;  // valid as long as its group
        const std::wstring& name;
        std::wstring text;
        bool excluded;  // not to be stored: a placeholder, a disabled row, a control that could not be created
    };

    // Rows in display order with their current texts: an edit's text, "1" or "0", the selected entry's data, empty for
    // a placeholder (whose window is never read).
    [[nodiscard]] virtual std::vector<ColumnReference> GetReferenceList() const = 0;
    // By name; of rows with one name the first. Null when there is none.
    [[nodiscard]] virtual Column* GetColumn(std::wstring_view name) const = 0;
    // Shows text in the row's control: an edit's text, a check mark for "1", the entry with this data. Unknown names
    // and placeholders are passed over. The last two arguments are the host's own.
    virtual void UpdateControl(std::wstring_view name, std::wstring_view text, void* data, std::wstring_view extra) = 0;

protected:
    LayoutRows() = default;
    ~LayoutRows() = default;
};

}  // namespace qv
