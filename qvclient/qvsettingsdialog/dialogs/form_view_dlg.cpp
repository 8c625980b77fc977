#include "qvclient/qvsettingsdialog/dialogs/form_view_dlg.h"

#include "framework/call_scope.h"
#include "qvclient/qvsettingsdialog/resources/resource_ids.h"

// Hosts make views by their run-time classes.
QV_RUNTIME_CLASS_CREATE(XFormViewDlg, CFormView)

XFormViewDlg::XFormViewDlg() : CFormView(IDD_SETTINGS_FORMVIEW) {}

XFormViewDlg::~XFormViewDlg() = default;

const MessageMap* XFormViewDlg::GetThisMessageMap() {
    static const MessageMap map{CFormView::GetThisMessageMap(),
                                {
                                    on::Size<&XFormViewDlg::OnSize>(),
                                    on::Destroy<&XFormViewDlg::OnDestroy>(),
                                    on::MouseActivate<&XFormViewDlg::OnMouseActivate>(),
                                }};
    return &map;
}

const MessageMap* XFormViewDlg::GetMessageMap() const {
    return GetThisMessageMap();
}

bool XFormViewDlg::Create(const wchar_t* className, std::wstring_view title, DWORD style, const RECT& rect,
                          CWnd* parent, UINT id) {
    return CFormView::Create(className, title, style, rect, parent, id);
}

// A slot of its own for what is derived from this class; there is nothing to exchange here.
void XFormViewDlg::DoDataExchange(CDataExchange& exchange) {
    CFormView::DoDataExchange(exchange);
}

void XFormViewDlg::OnInitialUpdate() {
    // The host reads its data for the dialog, and may do whatever it likes meanwhile.
    const qv::CallScope call(m_hWnd);
    CFormView::OnInitialUpdate();
    if (m_constructionSet == nullptr) return;
    m_dialog = std::make_unique<XDialogForView>(*m_constructionSet, this);
    if (!IsLive() || !m_dialog->Create(IDD_SETTINGS_FOR_VIEW, this)) {
        m_dialog.reset();
        return;
    }
    m_dialog->ShowWindow(SW_SHOW);
    SetScrollSizes({m_dialog->GetViewWidth(), m_dialog->GetViewHeight()});
}

void XFormViewDlg::OnSize(UINT type, int cx, int cy) {
    CFormView::OnSize(type, cx, cy);
    if (m_dialog == nullptr || !m_dialog->IsLive()) return;
    // Bars that came or went have changed the client area meanwhile.
    const CRect client = GetClientRect();
    cx = client.Width();
    cy = client.Height();
    int width = m_dialog->GetViewWidth();
    int height = m_dialog->GetViewHeight();
    // Deliberate: every resize that leaves a scroll bar takes that bar back to its start, where the dialog is put.
    POINT position = GetScrollPosition();
    if (cx > width) {
        width = cx;
    } else {
        position.x = 0;
    }
    if (cy > height) {
        height = cy;
    } else {
        position.y = 0;
    }
    ScrollToPosition(position);
    m_dialog->MoveWindow(0, 0, width, height);
}

// A click does not make the view the active one; the click itself goes on to the control.
int XFormViewDlg::OnMouseActivate(CWnd* /*topLevel*/, UINT /*hitTest*/, UINT /*message*/) {
    return MA_NOACTIVATE;
}

void XFormViewDlg::OnDestroy() {
    if (m_dialog != nullptr && m_framePlacement) m_dialog->SetFramePlacement(*m_framePlacement);
    CFormView::OnDestroy();
}

// Screen readers are answered by the window's standard object: the view adds nothing of its own to read.
HRESULT XFormViewDlg::get_accChildCount(LONG* count) {
    if (count == nullptr) return E_POINTER;
    LONG children = 0;
    GetAccessibleChildCount(&children);
    *count = children;
    return S_OK;
}

HRESULT XFormViewDlg::get_accChild(VARIANT child, IDispatch** dispatch) {
    return GetAccessibleChild(child, dispatch);
}

HRESULT XFormViewDlg::get_accName(VARIANT child, BSTR* name) {
    return GetAccessibleName(child, name);
}

HRESULT XFormViewDlg::accLocation(LONG* left, LONG* top, LONG* width, LONG* height, VARIANT child) {
    return GetAccessibilityLocation(left, top, width, height, child);
}

HRESULT XFormViewDlg::accHitTest(LONG left, LONG top, VARIANT* child) {
    return GetAccessibilityHitTest(left, top, child);
}
