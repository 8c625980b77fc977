// CDialog: a window made from a dialog template of the current module, modal (with a message loop of its own) or
// modeless.
#pragma once

#include "framework/wnd.h"

class CDialog : public CWnd {
    QV_DECLARE_RUNTIME_CLASS

    CDialog() = default;
    // For DoModal. The parent may be null: then the caller's active window's top-level ancestor owns the dialog.
    explicit CDialog(UINT templateId, CWnd* parent = nullptr);
    ~CDialog() override;

    using CWnd::Create;
    // Modeless, or a child dialog: creates the window and runs OnInitDialog. False when it could not be created.
    virtual bool Create(UINT templateId, CWnd* parent = nullptr);
    // Creates the window from the template, disables the owner, runs until EndDialog, gives the owner its state and
    // focus back and destroys the window. The code of EndDialog, or -1 when the window could not be created.
    virtual INT_PTR DoModal();
    void EndDialog(int result);

    // True lets the platform set the first focus.
    virtual bool OnInitDialog();
    virtual void OnOK();      // UpdateData, then EndDialog(IDOK)
    virtual void OnCancel();  // EndDialog(IDCANCEL)

    // Moves the focus as a dialog does: the control is also given the default-button frame or its text selected.
    void GotoDlgCtrl(CWnd* control);
    void NextDlgCtrl() const;
    [[nodiscard]] UINT GetTemplateId() const noexcept { return m_templateId; }

    bool PreTranslateMessage(MSG& message) override;
    const MessageMap* GetMessageMap() const override;
    static const MessageMap* GetThisMessageMap();

protected:
    // Creates the dialog window from the template in the current module's resources; not yet visible for DoModal.
    bool CreateFromTemplate(UINT templateId, HWND parent);

    UINT m_templateId = 0;
    CWnd* m_parent = nullptr;

private:
    bool m_inModalLoop = false;
    int m_modalResult = -1;
};
