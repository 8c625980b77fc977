// CCheckListBox: a list box with a check box in front of every entry. Owner drawn (fixed height, strings kept by the
// list); space and a click on the box toggle, disabled entries do not. A change of a check by the user is reported to
// the parent as WM_COMMAND with code CLBN_CHKCHANGE. A list that is disabled, or whose entries all are, is drawn grey
// as other disabled fields; in the latter case it can still be scrolled and read with the keyboard.
#pragma once

#include <vector>

#include "framework/controls.h"

// The notification code that the platform's conventions give to a check change.
inline constexpr UINT CLBN_CHKCHANGE = 40;

class CCheckListBox : public CListBox {
    QV_DECLARE_RUNTIME_CLASS
    CCheckListBox();
    ~CCheckListBox() override;

    // As CListBox::Create; owner drawing is required: LBS_OWNERDRAWFIXED and LBS_HASSTRINGS are added.
    bool Create(DWORD style, const RECT& rect, CWnd* parent, UINT id);
    // 0 unticked, 1 ticked, 2 indeterminate.
    void SetCheck(int index, int check);
    [[nodiscard]] int GetCheck(int index) const;
    void Enable(int index, bool enable = true);
    [[nodiscard]] bool IsEnabled(int index) const;
    // True when nothing in the list can be ticked; not for an empty list that is enabled.
    [[nodiscard]] bool IsGrey() const;

    const MessageMap* GetMessageMap() const override;
    static const MessageMap* GetThisMessageMap();

protected:
    bool OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override;
    virtual void DrawItem(const DRAWITEMSTRUCT& item);
    virtual void MeasureItem(MEASUREITEMSTRUCT& item);
    void PreSubclassWindow() override;

private:
    struct Entry {
        int check = 0;
        bool enabled = true;
    };
    [[nodiscard]] const Entry* Find(int index) const;
    [[nodiscard]] int Dpi() const;
    [[nodiscard]] int BoxSize() const;
    [[nodiscard]] int ItemHeight() const;
    [[nodiscard]] CRect BoxRect(const RECT& item) const;
    [[nodiscard]] int BoxFromPoint(LPARAM point) const;
    [[nodiscard]] bool IsMultipleSelection() const;
    [[nodiscard]] bool IsSelected(int index) const;
    // The user's toggle: the selected entries when this one is among them, else it alone.
    void Toggle(int index);
    void InvalidateEntry(int index);
    LRESULT OnInserted(WPARAM wParam, LPARAM lParam);
    LRESULT OnDeleteString(WPARAM wParam, LPARAM lParam);
    LRESULT OnResetContent(WPARAM wParam, LPARAM lParam);
    LRESULT OnKeyDown(WPARAM wParam, LPARAM lParam);
    LRESULT OnChar(WPARAM wParam, LPARAM lParam);
    LRESULT OnButtonDown(WPARAM wParam, LPARAM lParam);
    LRESULT OnMouseWheel(WPARAM wParam, LPARAM lParam);
    LRESULT OnSetFont(WPARAM wParam, LPARAM lParam);
    LRESULT OnEnabled(WPARAM wParam, LPARAM lParam);
    LRESULT OnListColor(WPARAM wParam, LPARAM lParam);

    std::vector<Entry> m_entries;  // one an entry of the list, in the list's order
};
