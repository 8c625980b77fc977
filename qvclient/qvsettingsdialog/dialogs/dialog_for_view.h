// XDialogForView: the settings dialog that people see, a child of the form view inside the frame. OK and Cancel end the
// frame; the placement record is the frame's.
#pragma once

#include <optional>

#include "qvclient/qvsettingsdialog/dialogs/dyn_dialog_modeless.h"

class XDialogForView : public XDynDialogModeless {
    QV_DECLARE_RUNTIME_CLASS
    XDialogForView(XConstructionSet& constructionSet, CWnd* parentView);
    ~XDialogForView() override;

    using XDynDialogModeless::Create;
    bool Create(UINT templateId, CWnd* parent) override;
    // The frame's placement at its end; the view hands it in while the windows are being destroyed.
    void SetFramePlacement(const WINDOWPLACEMENT& placement) noexcept { m_framePlacement = placement; }

    bool OnInitDialog() override;
    void DoDataExchange(CDataExchange& exchange) override;
    void OnOK() override;
    void OnCancel() override;

    const MessageMap* GetMessageMap() const override;
    static const MessageMap* GetThisMessageMap();

protected:
    void OnDestroy();

private:
    std::optional<WINDOWPLACEMENT> m_framePlacement;
};
