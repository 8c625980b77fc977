// The settings dialog as it can be seen from outside: the frame, its pages and rows, found through the windows on the
// screen and the layouts that are alive. A dialog without pages has no layouts, but the dialog's buttons. Knows nothing
// of the component's classes.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/libraries/layout.h"

namespace qv {

enum class RowKind { Text, Number, Check, Choice, CheckList, Password, Path, Colour, Button, Missing };

struct DialogRow {
    std::wstring item;    // KEY/NAME
    std::wstring prompt;  // as shown, without the mnemonic's mark
    RowKind kind;
    HWND control;  // null when it could not be created, and before the page of an ordinary row is shown
    std::optional<std::wstring> willShow;  // of a row that has no window before its page is shown
    const XLayout::Column* column;
    int page;         // tab index
    HWND pageWindow;  // visible while the page is in front
};

class DialogView {
public:
    // What stands on the screen now. Empty (IsOpen false) when no settings dialog is there.
    [[nodiscard]] static DialogView Look();
    // Sees to it that the item's row has its windows, which a page may keep for later.
    static void GiveWindows(std::wstring_view item);

    [[nodiscard]] bool IsOpen() const { return m_frame != nullptr; }
    [[nodiscard]] HWND Frame() const { return m_frame; }
    [[nodiscard]] HWND Tabs() const { return m_tabs; }
    [[nodiscard]] int PageCount() const;
    [[nodiscard]] int ActivePage() const;
    [[nodiscard]] std::wstring PageTitle(int page) const;
    // Tab index by title or number; nothing when there is no such page.
    [[nodiscard]] std::optional<int> FindPage(std::wstring_view titleOrNumber) const;
    [[nodiscard]] const std::vector<DialogRow>& Rows() const { return m_rows; }
    [[nodiscard]] const DialogRow* FindRow(std::wstring_view item) const;

private:
    HWND m_frame = nullptr;
    HWND m_tabs = nullptr;
    std::vector<DialogRow> m_rows;  // page by page, in display order
};

// What a row shows: a text, "1"/"0", the chosen entry's text, the ticked entries' texts joined with "|", a colour
// number. A password as its number of characters.
[[nodiscard]] std::wstring ShownValue(const DialogRow& row);
// False for a row without a control too.
[[nodiscard]] bool IsEnabled(const DialogRow& row);
[[nodiscard]] std::wstring_view NameOf(RowKind kind);

// A button of the dialog by its control id, searched below a top-level window; null when there is none.
[[nodiscard]] HWND FindButton(HWND top, int id);

// The whole dialog as a JSON document, UTF-8.
[[nodiscard]] std::string DumpDialog(const DialogView& view);

// A window's text by WM_GETTEXT.
[[nodiscard]] std::wstring TextOfWindow(HWND window);

}  // namespace qv
