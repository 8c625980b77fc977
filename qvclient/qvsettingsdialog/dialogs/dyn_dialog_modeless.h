// XDynDialogModeless: the settings dialog with an Apply button. It destroys its own window when it is closed.
#pragma once

#include "framework/controls.h"
#include "qvclient/qvsettingsdialog/dialogs/dyn_dialog.h"

class XDynDialogModeless : public XDynDialog {
    QV_DECLARE_RUNTIME_CLASS
    XDynDialogModeless(XConstructionSet& constructionSet, CWnd* parent);
    ~XDynDialogModeless() override;

    bool OnInitDialog() override;
    void DoDataExchange(CDataExchange& exchange) override;
    // Destroys the window even when a page was refused; XDialogForView does not. Passed over while storing.
    void OnOK() override;
    void OnCancel() override;

    const MessageMap* GetMessageMap() const override;
    static const MessageMap* GetThisMessageMap();

protected:
    void OnSize(UINT type, int cx, int cy);
    void OnClose();
    void OnApply();
    void OnDefaults();
    LRESULT OnSettingsModified(WPARAM wParam, LPARAM lParam);

private:
    void SetModified(bool modified);

    CButton m_apply;
    bool m_modified = false;
};
