// XFormViewDlg: the form view that fills the frame and scrolls the settings dialog when the frame is smaller than it.
// The platform's view rules apply: the object belongs to its window.
#pragma once

#include <memory>
#include <optional>

#include "framework/view.h"
#include "qvclient/qvsettingsdialog/controls/settings_frame.h"
#include "qvclient/qvsettingsdialog/dialogs/dialog_for_view.h"

class XFormViewDlg : public CFormView, public SettingsHostView {
    QV_DECLARE_RUNTIME_CLASS
    XFormViewDlg();
    ~XFormViewDlg() override;

    // Before the initial update; must outlive the view.
    void SetConstructionSet(XConstructionSet& constructionSet) noexcept { m_constructionSet = &constructionSet; }
    // Null before the initial update, and after one that could not create the dialog.
    [[nodiscard]] XDialogForView* GetInnerDialog() const noexcept { return m_dialog.get(); }
    // The frame's placement, handed in while the windows are being destroyed.
    void SetFramePlacement(const WINDOWPLACEMENT& placement) noexcept { m_framePlacement = placement; }

    bool Create(const wchar_t* className, std::wstring_view title, DWORD style, const RECT& rect, CWnd* parent,
                UINT id) override;
    void OnInitialUpdate() override;
    void DoDataExchange(CDataExchange& exchange) override;

    HRESULT get_accChildCount(LONG* count) override;
    HRESULT get_accChild(VARIANT child, IDispatch** dispatch) override;
    HRESULT get_accName(VARIANT child, BSTR* name) override;
    HRESULT accLocation(LONG* left, LONG* top, LONG* width, LONG* height, VARIANT child) override;
    HRESULT accHitTest(LONG left, LONG top, VARIANT* child) override;

    const MessageMap* GetMessageMap() const override;
    static const MessageMap* GetThisMessageMap();

protected:
    void OnSize(UINT type, int cx, int cy);
    void OnDestroy();
    int OnMouseActivate(CWnd* topLevel, UINT hitTest, UINT message);

private:
    std::unique_ptr<XDialogForView> m_dialog;
    XConstructionSet* m_constructionSet = nullptr;
    std::optional<WINDOWPLACEMENT> m_framePlacement;
};
