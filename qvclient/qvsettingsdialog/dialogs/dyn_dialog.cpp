#include "qvclient/qvsettingsdialog/dialogs/dyn_dialog.h"

#include <algorithm>
#include <array>

#include "base/module_state.h"
#include "base/raised_flag.h"
#include "framework/app.h"
#include "framework/call_scope.h"
#include "host/libraries/translation.h"
#include "qvclient/qvsettingsdialog/controls/settings_frame.h"
#include "qvclient/qvsettingsdialog/controls/settings_messages.h"
#include "qvclient/qvsettingsdialog/dialogs/failed_opening.h"
#include "qvclient/qvsettingsdialog/dialogs/placement_record.h"
#include "qvclient/qvsettingsdialog/dialogs/settings_manual.h"
#include "qvclient/qvsettingsdialog/dialogs/window_icon.h"
#include "qvclient/qvsettingsdialog/resources/resource_ids.h"

QV_RUNTIME_CLASS(XDynDialog, CDialog)

namespace {

// Pixels.
constexpr int kDefaultWidth = 470;
constexpr int kDefaultHeight = 360;
constexpr int kBorder = 10;
constexpr int kAroundSheetX = 50;
constexpr int kAroundSheetY = 75;
constexpr int kLeastAroundSheetY = 95;
constexpr int kFreeScreenRight = 280;
constexpr int kFreeScreenBottom = 200;
constexpr int kNarrow = 800;
constexpr int kLow = 600;
constexpr int kSheetLeft = 8;
constexpr int kSheetTop = 25;
constexpr int kButtonInset = 3;

constexpr int kSheetHeightKept = 3;
constexpr std::array kButtonsFromRight{IDC_DEFAULT_BUTTON, IDC_HELP_BUTTON, IDCANCEL, IDOK};

}  // namespace

XDynDialog::XDynDialog(XConstructionSet& constructionSet, CWnd* parent)
    : CDialog(IDD_SETTINGS, parent),
      m_constructionSet(constructionSet),
      m_restoreEnabled(IsPlacementSwitchedOn(constructionSet)),
      m_storedPlacement(InitialPlacement()) {}

XDynDialog::~XDynDialog() {
    if (m_hWnd != nullptr) CWnd::DestroyWindow();  // before what its windows refer to
}

const MessageMap* XDynDialog::GetThisMessageMap() {
    static const MessageMap map{CDialog::GetThisMessageMap(),
                                {
                                    on::Create<&XDynDialog::OnCreate>(),
                                    on::Destroy<&XDynDialog::OnDestroy>(),
                                    on::Size<&XDynDialog::OnSize>(),
                                    on::GetMinMaxInfo<&XDynDialog::OnGetMinMaxInfo>(),
                                    on::Message<&XDynDialog::OnHelpKey>(WM_HELP),
                                    on::Message<&XDynDialog::OnInitFocus>(WM_DYN_INITFOCUS),
                                    on::Command<&XDynDialog::OnHelp>(IDC_HELP_BUTTON),
                                    on::Command<&XDynDialog::OnDefaults>(IDC_DEFAULT_BUTTON),
                                }};
    return &map;
}

const MessageMap* XDynDialog::GetMessageMap() const {
    return GetThisMessageMap();
}

// A slot of its own for what is derived from this class; there is nothing to exchange here.
void XDynDialog::DoDataExchange(CDataExchange& exchange) {
    CDialog::DoDataExchange(exchange);
}

int XDynDialog::OnCreate(CREATESTRUCTW* cs) {
    if (CDialog::OnCreate(cs) == -1) return -1;
    if (!m_restoreEnabled) return 0;
    ISessionDataManager* sessionData = m_constructionSet.SessionData();
    if (sessionData == nullptr) return -1;
    // Deliberate: a rectangle off the screen is used as stored, and a record that cannot be read counts as loaded.
    ReadPlacementRecord(*sessionData, m_storedPlacement);
    m_placementLoaded = true;
    if (IsLive()) return 0;
    EndDialog(IDCANCEL);  // not refused, but taken away by the host
    return -1;
}

bool XDynDialog::OnInitDialog() {
    CDialog::OnInitDialog();
    const bool hosted = dynamic_cast<SettingsHostView*>(GetParent()) != nullptr;
    int defaultWidth = kDefaultWidth;
    int defaultHeight = kDefaultHeight;
    CRect rect = GetWindowRect();
    const bool restored = !hosted && m_restoreEnabled && m_placementLoaded;
    if (restored) {
        const CRect normal(WithinWindowSpace(m_storedPlacement).rcNormalPosition);
        defaultWidth = normal.Width();
        defaultHeight = normal.Height();
    }
    SetSettingsIcon(*this);
    MeasureButtons();
    const std::wstring caption = CoTranslateText(L"Settings");
    const bool hasSheet = CreateSheet(caption);
    if (!IsLive()) return true;
    if (!hasSheet) {
        GiveUpInit();
        return true;
    }

    rect = FitAroundSheet(rect, hosted, defaultWidth, defaultHeight);
    MoveWindow(rect);
    if (hosted) {
        m_viewWidth = rect.Width();
        m_viewHeight = rect.Height();
    } else if (m_storedPlacement.showCmd != SW_SHOWNORMAL) {
        SetWindowPlacement(m_storedPlacement);
    }
    m_initialised = true;
    SetWindowText(caption);
    PostMessage(WM_DYN_INITFOCUS);
    TranslateButtons();
    return true;
}

void XDynDialog::MeasureButtons() {
    const CWnd* ok = GetDlgItem(IDOK);
    const CWnd* cancel = GetDlgItem(IDCANCEL);
    if (ok == nullptr || cancel == nullptr) return;
    const CRect okRect = ok->GetWindowRect();
    const CRect cancelRect = cancel->GetWindowRect();
    m_buttonWidth = okRect.Width();
    m_buttonGap = static_cast<int>(cancelRect.left - okRect.right) / m_buttonGapDivisor;
    m_buttonHeight = okRect.Height();
    m_halfButtonHeight = m_buttonHeight / 2;
}

bool XDynDialog::CreateSheet(std::wstring_view caption) {
    m_sheet = std::make_unique<XDynPropertySheet>(caption, m_constructionSet, this, 0);
    if (!IsLive() || !m_sheet->Create(this, WS_CHILD | WS_VISIBLE | WS_TABSTOP) || m_sheet->AreAllPagesRefused())
        return false;
    m_sheet->ModifyStyleEx(0, WS_EX_CONTROLPARENT);  // Tab passes into the pages
    return IsLive() && m_sheet->IsLive();
}

void XDynDialog::OnNotShown() {
    ReportFailedOpening(CoTranslateText(L"Settings"));
}

CRect XDynDialog::FitAroundSheet(CRect rect, bool hosted, int defaultWidth, int defaultHeight) {
    const int width = std::max(m_sheet->GetRequiredWidth() + kAroundSheetX, defaultWidth - kBorder);
    rect.right = rect.left + width + kBorder;
    const int height = std::max(m_sheet->GetRequiredHeight() + kAroundSheetY, defaultHeight - kBorder);
    rect.bottom = rect.top + height + kBorder;
    if (!m_placementLoaded && !hosted) rect.bottom += 2 * m_halfButtonHeight;

    if (m_placementLoaded) {
        if (hosted) return rect;
        const RECT normal = WithinWindowSpace(m_storedPlacement).rcNormalPosition;
        CRect stored(static_cast<int>(normal.left), static_cast<int>(normal.top), 0, 0);
        stored.right = stored.left + std::max(defaultWidth, rect.Width());
        stored.bottom = stored.top + std::max(defaultHeight, rect.Height());
        return stored;
    }
    // Deliberate: a narrow or low dialog grows until it leaves just this much of the screen free.
    const int screenRight = GetSystemMetrics(SM_CXSCREEN) - kFreeScreenRight;
    const int screenBottom = GetSystemMetrics(SM_CYSCREEN) - kFreeScreenBottom;
    if (rect.right > screenRight || rect.Width() < kNarrow) rect.right = screenRight;
    if (rect.bottom > screenBottom || rect.Height() < kLow) rect.bottom = screenBottom;
    return rect;
}

void XDynDialog::TranslateButtons() {
    for (const int id : {IDC_HELP_BUTTON, IDC_DEFAULT_BUTTON, IDCANCEL, IDOK, IDC_APPLY_BUTTON}) {
        CWnd* button = GetDlgItem(id);
        if (button == nullptr) continue;
        const std::wstring caption = button->GetWindowText();
        // The old caption is wiped first: a shorter translation left its ends standing on some displays.
        button->SetWindowText(std::wstring(caption.size(), L' '));
        button->Invalidate(true);
        button->SetWindowText(CoTranslateText(caption));
    }
}

LRESULT XDynDialog::OnInitFocus(WPARAM /*wParam*/, LPARAM /*lParam*/) {
    // Of several buttons with the default style a template makes the last one the default; Enter means OK here. Not
    // sent to the dialog: this handler's own message has the same number.
    DefWindowProc(DM_SETDEFID, IDOK, 0);
    if (CWnd* button = GetDlgItem(IDC_DEFAULT_BUTTON)) {
        if (CWnd* next = GetNextDlgTabItem(button)) GotoDlgCtrl(next);
    }
    return 0;
}

void XDynDialog::OnSize(UINT type, int cx, int cy) {
    CDialog::OnSize(type, cx, cy);
    Arrange(cx, kSheetHeightKept, kButtonsFromRight);
}

void XDynDialog::Arrange(int cx, int heightKept, std::span<const int> buttons) {
    if (m_sheet != nullptr && m_sheet->IsLive()) {
        const CRect window = GetWindowRect();
        CRect sheet;
        sheet.left = window.left + kSheetLeft;
        sheet.top = window.top + kSheetTop;
        sheet.right = sheet.left + cx - kSheetLeft;
        sheet.bottom = window.bottom - (m_buttonHeight + 2 * m_halfButtonHeight - heightKept);
        int right = static_cast<int>(sheet.right) - kButtonInset;
        ScreenToClient(sheet);
        m_sheet->MoveWindow(sheet);

        const int bottom = static_cast<int>(window.bottom) - m_halfButtonHeight;
        for (const int id : buttons) {
            CWnd* button = GetDlgItem(id);
            if (button == nullptr) continue;
            CRect place(right - m_buttonWidth, bottom - m_buttonHeight, right, bottom);
            right = static_cast<int>(place.left) - m_buttonGap;
            ScreenToClient(place);
            button->MoveWindow(place);
        }
    }
    Invalidate(true);
}

void XDynDialog::OnGetMinMaxInfo(MINMAXINFO* info) {
    if (!m_initialised) {
        CDialog::OnGetMinMaxInfo(info);
        return;
    }
    if (m_sheet == nullptr) return;
    info->ptMinTrackSize.x = m_sheet->GetRequiredWidth() + kAroundSheetX;
    info->ptMinTrackSize.y = m_sheet->GetRequiredHeight() + kLeastAroundSheetY;
}

bool XDynDialog::ValidateAndStore() {
    const qv::CallScope call(m_hWnd);
    const qv::RaisedFlag storing(m_isStoring);
    return (m_sheet == nullptr || m_sheet->ValidateAndStore()) && IsLive();
}

void XDynDialog::OnOK() {
    if (m_isStoring) return;
    const qv::CallScope call(m_hWnd);
    const qv::RaisedFlag storing(m_isStoring);
    m_lastOkSucceeded = false;
    CWnd* ok = GetDlgItem(IDOK);
    if (ok != nullptr) ok->SetFocus();  // the control that has the focus now gets its chance to check its input
    if (ok == nullptr || ::GetFocus() != ok->m_hWnd) return;
    m_lastOkSucceeded = ValidateAndStore();
    if (m_lastOkSucceeded) CDialog::OnOK();
}

void XDynDialog::OnCancel() {
    if (!m_isStoring) CDialog::OnCancel();
}

void XDynDialog::OnDefaults() {
    if (m_isStoring || m_sheet == nullptr) return;
    const qv::CallScope call(m_hWnd);
    m_sheet->ResetToDefaults();
}

void XDynDialog::OnHelp() {
    ISessionDataManager* sessionData = m_constructionSet.SessionData();
    if (sessionData == nullptr) return;
    const std::optional<std::wstring> manual = SettingsManualPath(*sessionData);
    if (!manual || !IsLive()) return;
    const CWnd* main = GetMainWnd();
    ShellExecuteW(main != nullptr ? main->GetSafeHwnd() : nullptr, L"open", manual->c_str(), nullptr, nullptr,
                  SW_SHOWNORMAL);
}

// F1 in any control, which passes it up to here.
LRESULT XDynDialog::OnHelpKey(WPARAM /*wParam*/, LPARAM /*lParam*/) {
    OnHelp();
    return TRUE;
}

void XDynDialog::OnDestroy() {
    CDialog::OnDestroy();
    ISessionDataManager* sessionData = m_constructionSet.SessionData();
    // A dialog that never came to stand has no place to remember.
    if (!m_initialised || sessionData == nullptr) return;
    // The switch is asked again: turning it on in this very dialog counts.
    if (!IsPlacementSwitchedOn(m_constructionSet)) return;
    if (!GetWindowPlacement(m_storedPlacement)) return;
    // Deliberate: the record of the dialog's own window always says 0 for its flags.
    WritePlacementRecord(*sessionData, m_storedPlacement, 0);
}
