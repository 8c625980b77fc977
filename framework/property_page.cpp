#include "framework/property_sheet.h"

QV_RUNTIME_CLASS(CPropertyPage, CDialog)

CPropertyPage::CPropertyPage(UINT templateId) : CDialog(templateId) {}

CPropertyPage::CPropertyPage(std::span<const std::byte> dialogTemplate) {
    m_template = dialogTemplate;
}

CPropertyPage::~CPropertyPage() {
    if (m_sheet != nullptr) m_sheet->Forget(this);
}

const MessageMap* CPropertyPage::GetThisMessageMap() {
    static const MessageMap map{CDialog::GetThisMessageMap(), {}};
    return &map;
}

const MessageMap* CPropertyPage::GetMessageMap() const {
    return GetThisMessageMap();
}

bool CPropertyPage::CreateIn(CPropertySheet& sheet) {
    constexpr DWORD kNotForPages = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_DISABLED | WS_VISIBLE;
    return CreateFromTemplate(sheet.m_hWnd, kNotForPages, WS_CHILD | DS_CONTROL, WS_EX_CONTROLPARENT);
}

bool CPropertyPage::OnSetActive() {
    return true;
}

bool CPropertyPage::OnKillActive() {
    return true;
}

namespace {

void SendToFrame(const CWnd& page, WPARAM command) {
    HWND frame = ::GetAncestor(page.m_hWnd, GA_ROOT);
    if (frame != page.m_hWnd) ::SendMessageW(frame, WM_COMMAND, command, 0);
}

}  // namespace

void CPropertyPage::OnOK() {
    SendToFrame(*this, IDOK);
}

void CPropertyPage::OnCancel() {
    SendToFrame(*this, IDCANCEL);
}
