#include "qvclient/qvsettingsdialog/dialogs/dialog_for_view.h"

#include "qvclient/qvsettingsdialog/controls/settings_frame.h"
#include "qvclient/qvsettingsdialog/controls/settings_messages.h"
#include "qvclient/qvsettingsdialog/dialogs/placement_record.h"

QV_RUNTIME_CLASS(XDialogForView, XDynDialogModeless)

XDialogForView::XDialogForView(XConstructionSet& constructionSet, CWnd* parentView)
    : XDynDialogModeless(constructionSet, parentView) {}

XDialogForView::~XDialogForView() {
    if (m_hWnd != nullptr) CWnd::DestroyWindow();  // while this is still the dialog that saves its placement
}

const MessageMap* XDialogForView::GetThisMessageMap() {
    static const MessageMap map{XDynDialogModeless::GetThisMessageMap(),
                                {
                                    on::Destroy<&XDialogForView::OnDestroy>(),
                                }};
    return &map;
}

const MessageMap* XDialogForView::GetMessageMap() const {
    return GetThisMessageMap();
}

bool XDialogForView::Create(UINT templateId, CWnd* parent) {
    return CDialog::Create(templateId, parent);
}

// A slot of its own for what is derived from this class; there is nothing to exchange here.
void XDialogForView::DoDataExchange(CDataExchange& exchange) {
    XDynDialogModeless::DoDataExchange(exchange);
}

bool XDialogForView::OnInitDialog() {
    XDynDialogModeless::OnInitDialog();
    if (IsInitialised() && IsPlacementLoaded()) {
        if (SettingsFrame* frame = FindEnclosing<SettingsFrame>(*this)) {
            frame->FrameWindow().SendMessage(WM_DYN_SETPLACEMENT, 0, reinterpret_cast<LPARAM>(&StoredPlacement()));
        }
    }
    return true;
}

void XDialogForView::OnOK() {
    if (IsStoring()) return;
    XDynDialog::OnOK();
    if (!LastOkSucceeded()) return;
    if (SettingsFrame* frame = FindEnclosing<SettingsFrame>(*this)) frame->EndFrame(IDOK);
}

void XDialogForView::OnCancel() {
    if (IsStoring()) return;
    if (SettingsFrame* frame = FindEnclosing<SettingsFrame>(*this)) frame->EndFrame(IDCANCEL);
}

void XDialogForView::OnDestroy() {
    SettingsFrame* frame = FindEnclosing<SettingsFrame>(*this);
    if (frame != nullptr && !m_framePlacement) {
        // The dialog goes by itself, and nobody has handed the placement down.
        WINDOWPLACEMENT placement{};
        placement.length = sizeof placement;
        if (frame->FrameWindow().GetWindowPlacement(placement)) m_framePlacement = placement;
    }
    if (frame != nullptr) frame->OnDialogGone();

    XDynDialogModeless::OnDestroy();
    ISessionDataManager* sessionData = ConstructionSet().SessionData();
    if (!IsInitialised() || !m_framePlacement || sessionData == nullptr) return;
    if (!IsPlacementSwitchedOn(ConstructionSet())) return;
    // Written over the dialog's own: it is the frame that the next launch restores. Deliberate: "flags" is the show
    // state here.
    WritePlacementRecord(*sessionData, *m_framePlacement, static_cast<int>(m_framePlacement->showCmd));
}
