#include "qvclient/qvsettingsdialog/dialogs/dyn_dialog_modeless.h"

#include <array>

#include "framework/data_exchange.h"
#include "qvclient/qvsettingsdialog/controls/settings_messages.h"
#include "qvclient/qvsettingsdialog/resources/resource_ids.h"

QV_RUNTIME_CLASS(XDynDialogModeless, XDynDialog)

namespace {

constexpr int kGapDivisor = 5;
// Deliberate: other than in the four-button dialog, the sheet gets nothing back from the button row.
constexpr int kSheetHeightKept = 0;
constexpr std::array kButtonsFromRight{IDC_DEFAULT_BUTTON, IDC_HELP_BUTTON, IDC_APPLY_BUTTON, IDCANCEL, IDOK};

}  // namespace

XDynDialogModeless::XDynDialogModeless(XConstructionSet& constructionSet, CWnd* parent)
    : XDynDialog(constructionSet, parent) {}

XDynDialogModeless::~XDynDialogModeless() = default;

const MessageMap* XDynDialogModeless::GetThisMessageMap() {
    static const MessageMap map{XDynDialog::GetThisMessageMap(),
                                {
                                    on::Size<&XDynDialogModeless::OnSize>(),
                                    on::Close<&XDynDialogModeless::OnClose>(),
                                    on::Message<&XDynDialogModeless::OnSettingsModified>(WM_SETTINGS_MODIFIED),
                                    on::Command<&XDynDialogModeless::OnApply>(IDC_APPLY_BUTTON),
                                    on::Command<&XDynDialogModeless::OnDefaults>(IDC_DEFAULT_BUTTON),
                                }};
    return &map;
}

const MessageMap* XDynDialogModeless::GetMessageMap() const {
    return GetThisMessageMap();
}

void XDynDialogModeless::DoDataExchange(CDataExchange& exchange) {
    XDynDialog::DoDataExchange(exchange);
    if (GetDlgItem(IDC_APPLY_BUTTON) != nullptr) DDX_Control(exchange, IDC_APPLY_BUTTON, m_apply);
}

bool XDynDialogModeless::OnInitDialog() {
    SetButtonGapDivisor(kGapDivisor);
    XDynDialog::OnInitDialog();
    if (m_apply.IsLive()) m_apply.EnableWindow(false);
    return true;
}

void XDynDialogModeless::OnSize(UINT type, int cx, int cy) {
    CDialog::OnSize(type, cx, cy);
    Arrange(cx, kSheetHeightKept, kButtonsFromRight);
}

void XDynDialogModeless::OnOK() {
    if (IsStoring()) return;
    XDynDialog::OnOK();
    DestroyWindow();
}

void XDynDialogModeless::OnCancel() {
    if (IsStoring()) return;
    XDynDialog::OnCancel();
    DestroyWindow();
}

void XDynDialogModeless::OnClose() {
    if (IsStoring()) return;
    Default();
    DestroyWindow();
}

void XDynDialogModeless::SetModified(bool modified) {
    m_modified = modified;
    // A refused value has taken the focus by now; otherwise it would end with nobody, and the keyboard with it.
    if (!modified && m_apply.IsLive() && ::GetFocus() == m_apply.m_hWnd) GotoDlgCtrl(GetDlgItem(IDOK));
    if (m_apply.IsLive()) m_apply.EnableWindow(modified);
}

void XDynDialogModeless::OnApply() {
    if (IsStoring() || Sheet() == nullptr || !m_modified) return;
    // Deliberate: Apply goes grey even when a page was refused. The message that the page showed is the answer.
    ValidateAndStore();
    Sheet()->ResetModifiedNotice();
    SetModified(false);
}

// Deliberate: Default counts as a change whether or not any value differs from its default.
void XDynDialogModeless::OnDefaults() {
    if (IsStoring()) return;
    XDynDialog::OnDefaults();
    SetModified(true);
}

LRESULT XDynDialogModeless::OnSettingsModified(WPARAM /*wParam*/, LPARAM /*lParam*/) {
    SetModified(true);
    return 0;
}
