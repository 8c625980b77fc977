// The ordinary controls as objects: thin, typed access to the messages of the platform's control classes. Each Create
// adds WS_CHILD to the style.
#pragma once

#include <string>
#include <string_view>

#include "framework/wnd.h"

class CStatic : public CWnd {
    QV_DECLARE_RUNTIME_CLASS
    bool Create(std::wstring_view text, DWORD style, const RECT& rect, CWnd* parent, UINT id = 0xFFFF);
};

class CButton : public CWnd {
    QV_DECLARE_RUNTIME_CLASS
    bool Create(std::wstring_view caption, DWORD style, const RECT& rect, CWnd* parent, UINT id);
    [[nodiscard]] int GetCheck() const;
    void SetCheck(int check);
};

class CEdit : public CWnd {
    QV_DECLARE_RUNTIME_CLASS
    bool Create(DWORD style, const RECT& rect, CWnd* parent, UINT id);
    // Characters from 0; (0, -1) selects everything. Without noScroll the caret is scrolled into view.
    void SetSel(int start, int end, bool noScroll = false);
    void GetSel(int& start, int& end) const;
    void LimitText(UINT characters);  // 0: the platform's own largest limit
    [[nodiscard]] UINT GetLimitText() const;
    bool SetReadOnly(bool readOnly = true);
    [[nodiscard]] wchar_t GetPasswordChar() const;

    const MessageMap* GetMessageMap() const override;
    static const MessageMap* GetThisMessageMap();

private:
    LRESULT OnMouseWheel(WPARAM wParam, LPARAM lParam);
};

class CListBox : public CWnd {
    QV_DECLARE_RUNTIME_CLASS
    bool Create(DWORD style, const RECT& rect, CWnd* parent, UINT id);
    // Indices count from 0 in display order; LB_ERR (-1) reports failure.
    int AddString(const std::wstring& text);
    void ResetContent();
    [[nodiscard]] int GetCount() const;
    [[nodiscard]] std::wstring GetText(int index) const;
    [[nodiscard]] int FindStringExact(int startAfter, const std::wstring& text) const;  // ignores case
    [[nodiscard]] int GetCurSel() const;
    int SetCurSel(int index);
    [[nodiscard]] CRect GetItemRect(int index) const;
};

class CComboBox : public CWnd {
    QV_DECLARE_RUNTIME_CLASS
    bool Create(DWORD style, const RECT& rect, CWnd* parent, UINT id);
    int AddString(const std::wstring& text);
    void ResetContent();
    [[nodiscard]] int GetCount() const;
    [[nodiscard]] std::wstring GetLBText(int index) const;
    [[nodiscard]] int FindStringExact(int startAfter, const std::wstring& text) const;
    [[nodiscard]] int GetCurSel() const;
    int SetCurSel(int index);
};

// A tab row. Item rectangles are in the control's client coordinates.
class CTabCtrl : public CWnd {
    QV_DECLARE_RUNTIME_CLASS
    bool Create(DWORD style, const RECT& rect, CWnd* parent, UINT id);
    int InsertItem(int index, const std::wstring& text);
    bool SetItemText(int index, const std::wstring& text);  // TCM_SETITEM with the text flag only
    [[nodiscard]] std::wstring GetItemText(int index) const;
    [[nodiscard]] int GetItemCount() const;
    [[nodiscard]] int GetCurSel() const;
    int SetCurSel(int index);
    [[nodiscard]] bool GetItemRect(int index, RECT& rect) const;
    [[nodiscard]] int GetRowCount() const;
    void AdjustRect(bool larger, RECT& rect) const;
};
