// CDialog: a window made from a dialog template of the current module, modal (with a message loop of its own) or
// modeless.
#pragma once

#include <cstddef>
#include <span>

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
    // The same from a template in memory, laid out as in the resources.
    bool CreateIndirect(std::span<const std::byte> dialogTemplate, CWnd* parent = nullptr);
    // Says what DoModal will use; the bytes must stay until it returns.
    void InitModalIndirect(std::span<const std::byte> dialogTemplate, CWnd* parent = nullptr);
    // Creates the window from the template, disables the owner, runs until EndDialog, gives the owner its state and
    // focus back and destroys the window. The code of EndDialog; IDCANCEL when the window was destroyed before anybody
    // ended it, during OnInitDialog too, or the thread is to quit; -1, after OnNotShown, when the platform refused the
    // window or a control, or OnInitDialog threw or gave up. Objects that belong to windows and were made meanwhile are
    // gone with these when it returns.
    virtual INT_PTR DoModal();
    // Ends the modal loop with this result. A dialog that runs no loop stays as it is.
    void EndDialog(int result);

    // True lets the platform set the first focus. May find its window destroyed after whatever it called.
    virtual bool OnInitDialog();
    virtual void OnOK();      // EndDialog(IDOK)
    virtual void OnCancel();  // EndDialog(IDCANCEL)

    // Moves the focus as a dialog does: the control is also given the default-button frame or its text selected.
    void GotoDlgCtrl(CWnd* control);

    // Keys are translated by a top-level dialog, for everything inside it: a focused push button is pressed by Enter in
    // its own dialog, otherwise Enter is this dialog's default button or OnOK and Escape its OnCancel. Child dialogs
    // leave keys alone. Arrows never stop at a label, PgUp and PgDn scroll where the focused control has no use for
    // them, and the wheel scrolls what lies under the pointer.
    bool PreTranslateMessage(MSG& message) override;
    // Of all push buttons in a top-level dialog, nested ones included, the one that Enter presses is framed, and no
    // other: the one with the focus, else the default button. From the first focus on, however the focus moves.
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    const MessageMap* GetMessageMap() const override;
    static const MessageMap* GetThisMessageMap();

protected:
    // Creates the dialog window from the template in the current module's resources, or from the one in memory when
    // there is one, with these changes to its styles; not yet visible for DoModal.
    bool CreateFromTemplate(HWND parent, DWORD removeStyle = 0, DWORD addStyle = 0, DWORD addExStyle = 0);
    // For OnInitDialog, when the dialog lacks what it cannot do without: the window is destroyed again, Create answers
    // false and DoModal -1.
    void GiveUpInit() noexcept { m_gaveUp = true; }
    // DoModal shows no dialog and is about to answer -1; everything is put back. The place to tell the user.
    virtual void OnNotShown();
    // EndDialog was called, and the loop has still to end.
    [[nodiscard]] bool IsEnding() const noexcept { return m_inModalLoop && m_ended; }

    UINT m_templateId = 0;
    std::span<const std::byte> m_template;  // in memory; empty for one in the resources
    CWnd* m_parent = nullptr;

private:
    enum class Init { NotReached, Failed, Done };
    class Modality;

    [[nodiscard]] HWND FindOwner() const;
    INT_PTR RunModal();
    void RunModalLoop();
    LRESULT OnInitDialogMessage(WPARAM wParam, LPARAM lParam);
    void FollowFocus();
    void StopFollowing();
    bool TakeKeyOfNobody(MSG& message);
    bool TranslateEnterOrEscape(const MSG& message);
    bool TranslatePageKey(const MSG& message);
    bool TranslateScrollKey(const MSG& message);
    void LeadWheelToPointer(MSG& message) const;
    bool TranslateArrow(const MSG& message);

    bool m_inModalLoop = false;
    bool m_ended = false;
    Init m_init = Init::NotReached;
    bool m_gaveUp = false;
    bool m_followsFocus = false;
    int m_modalResult = -1;
};
