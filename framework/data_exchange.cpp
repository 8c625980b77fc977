#include "framework/data_exchange.h"

void CDataExchange::Fail(int controlId) {
    m_failed = true;
    if (CWnd* control = m_dialog.GetDlgItem(controlId)) {
        m_dialog.SendMessage(WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control->m_hWnd), TRUE);
    }
}

void DDX_Control(CDataExchange& exchange, int id, CWnd& control) {
    if (control.m_hWnd == nullptr) control.SubclassDlgItem(static_cast<UINT>(id), &exchange.Dialog());
}

void DDX_Text(CDataExchange& exchange, int id, std::wstring& text) {
    CWnd* control = exchange.Dialog().GetDlgItem(id);
    if (control == nullptr) return;
    if (exchange.IsSaving()) {
        text = control->GetWindowText();
    } else if (control->GetWindowText() != text) {
        // Only a real change, which the control reports to its parent.
        control->SetWindowText(text);
    }
}

void DDX_Check(CDataExchange& exchange, int id, int& check) {
    CWnd* control = exchange.Dialog().GetDlgItem(id);
    if (control == nullptr) return;
    if (exchange.IsSaving()) {
        check = static_cast<int>(control->SendMessage(BM_GETCHECK));
    } else {
        control->SendMessage(BM_SETCHECK, static_cast<WPARAM>(check));
    }
}

// Defined here, since a window knows of data exchange that there is such a thing and no more.
void CWnd::DoDataExchange(CDataExchange&) {}

bool CWnd::UpdateData(bool save) {
    CDataExchange exchange(*this, save);
    DoDataExchange(exchange);
    return !exchange.HasFailed();
}
