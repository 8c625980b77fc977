// The COMBOBOX class: a list with one chosen entry, shown as that entry or behind an edit. The list drops down as a
// state with its notifications and keys; it is no window of its own, so the mouse opens and closes it but cannot point
// into it.
#pragma once

#include "platform/headless/controls/control.h"
#include "platform/headless/controls/list_items.h"

namespace qv::headless {

class ComboBox final : public Control {
public:
    explicit ComboBox(HWND window) : Control(window) {}
    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    DWORD Type() const { return Style() & DWORD{CBS_DROPDOWNLIST}; }
    bool IsOwnerDrawn() const { return Has(CBS_OWNERDRAWFIXED | CBS_OWNERDRAWVARIABLE); }
    bool HasStrings() const { return !IsOwnerDrawn() || Has(CBS_HASSTRINGS); }
    int ClosedHeight() const { return m_fieldHeight + 2 * kBorder; }

    LRESULT HandleContent(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT HandleList(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT HandleText(UINT message, WPARAM wParam, LPARAM lParam);

    void OnCreate(const CREATESTRUCTW& create);
    void CreateEdit();
    UINT Measure(UINT item, int proposed) const;
    void OnFont(WPARAM font, bool redraw);
    void OnPositionChanging(WINDOWPOS& position);
    void PlaceEdit() const;
    void OnEditCommand(int code);
    bool OnKeyDown(UINT key, bool alt);
    void OnChar(wchar_t unit);
    void OnLeftDown(LPARAM position);
    void OnFocusLost();

    LRESULT Insert(LONG_PTR index, LPARAM item);
    LRESULT Delete(LONG_PTR index);
    void Reset();
    LRESULT GetItemText(LONG_PTR index, LPVOID buffer) const;
    LRESULT SetCurrent(LONG_PTR index);
    void MoveByKey(int index);
    // The current entry into the edit.
    void ShowCurrent();
    void SetEditText(LPCWSTR text);
    void MatchEditText();
    void Drop();
    void Close(bool chosen);
    LRESULT SetItemHeight(LONG_PTR index, int height);
    RECT ButtonRect() const;
    RECT ListRect() const;
    BOOL GetInfo(COMBOBOXINFO& info) const;

    static LRESULT CALLBACK EditProc(HWND edit, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

    static constexpr int kBorder = 2;

    ListItems m_items;
    HWND m_edit = nullptr;
    int m_current = CB_ERR;
    int m_fieldHeight = 0;
    int m_itemHeight = 1;
    int m_listHeight = 0;
    int m_droppedWidth = 0;
    bool m_dropped = false;
    // While the program sets the edit's text the parent is told nothing.
    bool m_silent = false;
};

}  // namespace qv::headless
