// XDynDialogScroll: the top-level frame of the settings dialog, run modally by the manager. It has no buttons; a
// scrolling view with the dialog fills it. The keys of everything inside are its own: Enter is OK, Escape is Cancel.
#pragma once

#include <string>

#include "framework/dialog.h"
#include "qvclient/qvsettingsdialog/controls/settings_frame.h"
#include "qvclient/qvsettingsdialog/dialogs/form_view_dlg.h"

class XDynDialogScroll : public CDialog, public SettingsFrame {
    QV_DECLARE_RUNTIME_CLASS
    // The caption is translated when it is shown. constructionSet must outlive the frame. isModal: DoModal will be
    // called, not Create. parent may be null.
    XDynDialogScroll(std::wstring caption, XConstructionSet& constructionSet, bool isModal, CWnd* parent);
    ~XDynDialogScroll() override;

    [[nodiscard]] bool IsModal() const override { return m_isModal; }
    void EndFrame(int result) override;
    void OnDialogGone() override;
    [[nodiscard]] CWnd& FrameWindow() override { return *this; }
    // Null while there is no view or no dialog in it.
    [[nodiscard]] XDialogForView* GetInnerDialog() const noexcept;

    bool OnInitDialog() override;
    void DoDataExchange(CDataExchange& exchange) override;
    // OK and Cancel are passed over while the dialog stores.
    void OnOK() override;
    void OnCancel() override;

    const MessageMap* GetMessageMap() const override;
    static const MessageMap* GetThisMessageMap();

protected:
    void OnSize(UINT type, int cx, int cy);
    void OnClose();
    void OnDestroy();
    LRESULT OnSetPlacement(WPARAM wParam, LPARAM lParam);
    void OnNotShown() override;

private:
    // False when the view or the dialog in it could not be created, or went again.
    bool CreateView();
    void FitAroundDialog(const XDialogForView& dialog);
    [[nodiscard]] XFormViewDlg* View() const noexcept;
    [[nodiscard]] bool IsStoring() const noexcept;

    HWND m_view = nullptr;  // the object belongs to the window and may go with it at any time
    XConstructionSet& m_constructionSet;
    bool m_isModal;
    std::wstring m_caption;
};
