#include "qvclient/qvsettingsdialog/dialogs/dyn_dialog_scroll.h"

#include <algorithm>
#include <memory>

#include "framework/call_scope.h"
#include "host/libraries/translation.h"
#include "qvclient/qvsettingsdialog/controls/settings_messages.h"
#include "qvclient/qvsettingsdialog/dialogs/failed_opening.h"
#include "qvclient/qvsettingsdialog/dialogs/placement_record.h"
#include "qvclient/qvsettingsdialog/dialogs/window_icon.h"
#include "qvclient/qvsettingsdialog/resources/resource_ids.h"

QV_RUNTIME_CLASS(XDynDialogScroll, CDialog)

namespace {

constexpr UINT kViewId = 134;
constexpr int kAroundDialog = 30;  // pixels that the frame is larger than the dialog in it, where its borders fit in

}  // namespace

XDynDialogScroll::XDynDialogScroll(std::wstring caption, XConstructionSet& constructionSet, bool isModal, CWnd* parent)
    : CDialog(IDD_SETTINGS_FRAME, parent),
      m_constructionSet(constructionSet),
      m_isModal(isModal),
      m_caption(std::move(caption)) {}

XDynDialogScroll::~XDynDialogScroll() {
    if (m_hWnd != nullptr) CWnd::DestroyWindow();  // while this is still the frame that hands its placement down
}

const MessageMap* XDynDialogScroll::GetThisMessageMap() {
    static const MessageMap map{CDialog::GetThisMessageMap(),
                                {
                                    on::Size<&XDynDialogScroll::OnSize>(),
                                    on::Close<&XDynDialogScroll::OnClose>(),
                                    on::Destroy<&XDynDialogScroll::OnDestroy>(),
                                    on::Message<&XDynDialogScroll::OnSetPlacement>(WM_DYN_SETPLACEMENT),
                                }};
    return &map;
}

const MessageMap* XDynDialogScroll::GetMessageMap() const {
    return GetThisMessageMap();
}

// A slot of its own for what is derived from this class; there is nothing to exchange here.
void XDynDialogScroll::DoDataExchange(CDataExchange& exchange) {
    CDialog::DoDataExchange(exchange);
}

XFormViewDlg* XDynDialogScroll::View() const noexcept {
    return DynamicDownCast<XFormViewDlg>(CWnd::FromHandlePermanent(m_view));
}

XDialogForView* XDynDialogScroll::GetInnerDialog() const noexcept {
    const XFormViewDlg* view = View();
    return view != nullptr ? view->GetInnerDialog() : nullptr;
}

bool XDynDialogScroll::IsStoring() const noexcept {
    const XDialogForView* dialog = GetInnerDialog();
    return dialog != nullptr && dialog->IsStoring();
}

void XDynDialogScroll::EndFrame(int result) {
    if (m_isModal) {
        EndDialog(result);
    } else {
        DestroyWindow();
    }
}

// An end code that was set before stays.
void XDynDialogScroll::OnDialogGone() {
    if (!IsEnding()) EndDialog(IDCANCEL);
}

bool XDynDialogScroll::OnInitDialog() {
    CDialog::OnInitDialog();
    if (m_isModal) ModifyStyle(0, WS_MAXIMIZEBOX);
    SetSettingsIcon(*this);
    SetWindowText(CoTranslateText(m_caption));
    const bool hasDialog = CreateView();
    if (!IsLive()) return true;  // the host has taken it away while it was read
    if (!hasDialog) {
        GiveUpInit();
        return true;
    }
    if (const XDialogForView* dialog = GetInnerDialog(); !dialog->IsPlacementLoaded()) FitAroundDialog(*dialog);
    return true;
}

bool XDynDialogScroll::CreateView() {
    const qv::CallScope call(m_hWnd);
    auto view = std::make_unique<XFormViewDlg>();
    view->SetConstructionSet(m_constructionSet);
    if (!view->Create(nullptr, {}, WS_CHILD | WS_VISIBLE, GetClientRect(), this, kViewId)) return false;
    m_view = view->m_hWnd;
    XFormViewDlg& shown = *view.release();  // its window's from here on
    shown.ModifyStyleEx(0, WS_EX_CONTROLPARENT);
    shown.OnInitialUpdate();
    const XDialogForView* dialog = GetInnerDialog();
    return dialog != nullptr && dialog->IsLive();
}

void XDynDialogScroll::OnNotShown() {
    ReportFailedOpening(CoTranslateText(m_caption));
}

void XDynDialogScroll::FitAroundDialog(const XDialogForView& dialog) {
    const CRect frame = GetWindowRect();
    const CRect client = GetClientRect();
    const int width = dialog.GetViewWidth() + std::max(kAroundDialog, frame.Width() - client.Width());
    const int height = dialog.GetViewHeight() + std::max(kAroundDialog, frame.Height() - client.Height());
    MoveWindow(0, 0, width, height);
    MoveWindow((GetSystemMetrics(SM_CXSCREEN) - width) / 2, (GetSystemMetrics(SM_CYSCREEN) - height) / 2, width,
               height);
}

void XDynDialogScroll::OnSize(UINT type, int cx, int cy) {
    CDialog::OnSize(type, cx, cy);
    if (XFormViewDlg* view = View()) view->MoveWindow(0, 0, cx, cy);
}

// Null is passed over: the platform's dialog manager uses the same number for a message of its own.
LRESULT XDynDialogScroll::OnSetPlacement(WPARAM /*wParam*/, LPARAM lParam) {
    if (lParam == 0) return 0;
    const WINDOWPLACEMENT wanted = WithinWindowSpace(*reinterpret_cast<const WINDOWPLACEMENT*>(lParam));
    SetWindowPlacement(wanted);
    // Deliberate: a frame that was left off the screen comes back there, though the platform would pull one that is
    // wholly outside back in. Whoever stored the record meant a screen that may be plugged in again.
    WINDOWPLACEMENT actual{};
    actual.length = sizeof actual;
    if (wanted.showCmd != SW_SHOWNORMAL || !GetWindowPlacement(actual)) return 0;
    const int dx = static_cast<int>(wanted.rcNormalPosition.left - actual.rcNormalPosition.left);
    const int dy = static_cast<int>(wanted.rcNormalPosition.top - actual.rcNormalPosition.top);
    if (dx != 0 || dy != 0) {
        const CRect rect = GetWindowRect();
        SetWindowPos(nullptr, static_cast<int>(rect.left) + dx, static_cast<int>(rect.top) + dy, 0, 0,
                     SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    }
    return 0;
}

// The view and the dialog hear of the destruction after the frame, so that the placement reaches the dialog before it
// writes the record.
void XDynDialogScroll::OnDestroy() {
    CDialog::OnDestroy();
    XFormViewDlg* view = View();
    if (view == nullptr) return;
    WINDOWPLACEMENT placement{};
    placement.length = sizeof placement;
    if (GetWindowPlacement(placement)) view->SetFramePlacement(placement);
}

void XDynDialogScroll::OnClose() {
    if (IsStoring()) return;
    if (!m_isModal) {
        DestroyWindow();
        return;
    }
    CDialog::OnClose();
}

void XDynDialogScroll::OnOK() {
    if (CWnd* ok = GetDlgItem(IDOK)) ok->SetFocus();
    if (XDialogForView* dialog = GetInnerDialog()) dialog->OnOK();
}

void XDynDialogScroll::OnCancel() {
    if (!IsStoring()) CDialog::OnCancel();
}
