// The host's choosers: a text field with a browse button in one child window. XBaseSearchCtrl is the field and the
// button, XSearchFolderCtrl and XSearchFileCtrl add the dialog behind the button and the test of what was typed. The
// chooser's window text, font and focus are the field's. It does not store anything and refuses no input.
#pragma once

#include <string>
#include <string_view>

#include "framework/controls.h"

class XBaseSearchCtrl : public CWnd {
    QV_DECLARE_RUNTIME_CLASS
    XBaseSearchCtrl();
    ~XBaseSearchCtrl() override;

    using CWnd::Create;
    // Creates the chooser, visible, with its field and button. rect: parent client coordinates, pixels. font: borrowed,
    // null for the platform's. False when the platform refuses; nothing is left behind then.
    bool Create(std::wstring_view text, UINT id, const RECT& rect, HFONT font, CWnd* parent);
    // Live validation: a field whose text names nothing that exists is drawn in a warning colour. Works before Create
    // too, like the two texts.
    void SetValidation(bool validate);
    void SetDlgTitle(std::wstring_view title) { m_dialogTitle = title; }
    void SetDlgOkBtnText(std::wstring_view text) { m_dialogOkText = text; }
    // The field keeps its text and can be read and copied; the button is disabled.
    void MakeReadOnly();
    // Selects the field's whole text.
    void SelectDataInEditCtrl();
    // True while the field is drawn in the warning colour.
    [[nodiscard]] bool ShowsWarning() const noexcept { return m_showsWarning; }

    // The field goes by the chooser's name too, and the button by it with its own caption.
    void SetAccessibleName(std::wstring_view name) override;
    // Whoever shows the field shows the button with it.
    HWND OnDescendantFocused(HWND descendant) override;

    const MessageMap* GetMessageMap() const override;
    static const MessageMap* GetThisMessageMap();

protected:
    // True when the path names an existing object of the chooser's kind.
    [[nodiscard]] virtual bool CheckFileExist(const std::wstring& path) const = 0;
    // Runs the browse dialog. A choice becomes the field's text, which reports it as a change; a cancelled dialog
    // changes nothing.
    virtual void DoCallDialog() = 0;
    // For the browse dialogs: the top-level window of the chooser, or null.
    [[nodiscard]] HWND DialogOwner() const;
    [[nodiscard]] const std::wstring& DialogTitle() const noexcept { return m_dialogTitle; }
    [[nodiscard]] const std::wstring& DialogOkText() const noexcept { return m_dialogOkText; }

    bool OnCommand(WPARAM wParam, LPARAM lParam) override;

private:
    LRESULT OnSetText(WPARAM wParam, LPARAM lParam);
    LRESULT OnGetText(WPARAM wParam, LPARAM lParam);
    LRESULT OnGetTextLength(WPARAM wParam, LPARAM lParam);
    LRESULT OnSetFont(WPARAM wParam, LPARAM lParam);
    LRESULT OnGetFont(WPARAM wParam, LPARAM lParam);
    LRESULT OnSetFocus(WPARAM wParam, LPARAM lParam);
    LRESULT OnEnable(WPARAM wParam, LPARAM lParam);
    LRESULT OnColorEdit(WPARAM wParam, LPARAM lParam);
    void OnSize(UINT type, int cx, int cy);
    void LayOut(int cx, int cy);
    void Browse();
    void UpdateWarning();

    CEdit m_edit;
    CButton m_button;
    std::wstring m_dialogTitle;
    std::wstring m_dialogOkText;
    bool m_validate = false;
    bool m_readOnly = false;
    bool m_showsWarning = false;
    bool m_isBrowsing = false;
};

class XSearchFolderCtrl : public XBaseSearchCtrl {
    QV_DECLARE_RUNTIME_CLASS
protected:
    bool CheckFileExist(const std::wstring& path) const override;
    void DoCallDialog() override;
};

class XSearchFileCtrl : public XBaseSearchCtrl {
    QV_DECLARE_RUNTIME_CLASS
protected:
    bool CheckFileExist(const std::wstring& path) const override;
    void DoCallDialog() override;
};
