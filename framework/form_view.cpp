#include "framework/dialog.h"
#include "framework/dialog_template.h"
#include "framework/view.h"
#include "framework/window_creation.h"

QV_RUNTIME_CLASS(CFormView, CScrollView)

CFormView::CFormView(UINT templateId) : m_templateId(templateId) {}

CFormView::CFormView(std::span<const std::byte> dialogTemplate) : m_template(dialogTemplate) {}

CFormView::~CFormView() = default;

const MessageMap* CFormView::GetThisMessageMap() {
    static const MessageMap map{CScrollView::GetThisMessageMap(),
                                {
                                    on::Message<&CFormView::OnInitDialogMessage>(WM_INITDIALOG),
                                }};
    return &map;
}

const MessageMap* CFormView::GetMessageMap() const {
    return GetThisMessageMap();
}

bool CFormView::Create(const wchar_t*, std::wstring_view, DWORD style, const RECT& rect, CWnd* parent, UINT id) {
    if (m_hWnd != nullptr) return false;
    const auto source = m_template.empty() ? qv::detail::FindDialogTemplate(m_templateId) : m_template;
    const auto copy = qv::detail::RestyledTemplate(
        source, WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_VISIBLE, WS_CHILD | WS_CLIPCHILDREN, 0);
    if (copy.empty() || parent == nullptr) return false;
    const qv::detail::CreationHold hold(*this);
    if (qv::detail::CreateFromDialogTemplate(*this, copy.data(), parent->m_hWnd) == nullptr) return false;
    ::SetWindowLongPtrW(m_hWnd, GWLP_ID, static_cast<LONG_PTR>(id));
    // The form is at least as large as it was drawn.
    const CRect drawn = GetClientRect();
    SetScrollSizes({drawn.right, drawn.bottom});
    MoveWindow(rect, false);
    if ((style & WS_DISABLED) != 0) EnableWindow(false);
    if ((style & WS_VISIBLE) != 0) ShowWindow(SW_SHOW);
    return IsLive();
}

LRESULT CFormView::OnInitDialogMessage(WPARAM, LPARAM) {
    return FALSE;  // the focus stays where it is
}

void CFormView::OnInitialUpdate() {
    CScrollView::OnInitialUpdate();
    UpdateData();
}

bool CFormView::PreTranslateMessage(MSG& message) {
    if (CScrollView::PreTranslateMessage(message)) return true;
    if (message.message < WM_KEYFIRST || message.message > WM_KEYLAST) return false;
    // Inside a dialog the keys are the dialog's, so that Tab walks the whole of it.
    HWND frame = ::GetAncestor(m_hWnd, GA_ROOT);
    if (DynamicDownCast<CDialog>(CWnd::FromHandlePermanent(frame)) != nullptr) return false;
    return ::IsDialogMessageW(m_hWnd, &message) != FALSE;
}
