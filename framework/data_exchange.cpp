#include "framework/data_exchange.h"

void DDX_Control(CDataExchange& exchange, int id, CWnd& control) {
    if (control.m_hWnd == nullptr) control.SubclassDlgItem(static_cast<UINT>(id), &exchange.Dialog());
}

// Defined here, since a window knows of data exchange that there is such a thing and no more.
void CWnd::DoDataExchange(CDataExchange&) {}

void CWnd::UpdateData() {
    CDataExchange exchange(*this);
    DoDataExchange(exchange);
}
