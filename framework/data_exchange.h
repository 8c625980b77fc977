// Dialog data exchange: members and controls are tied in one function, DoDataExchange, that runs when a dialog begins.
#pragma once

#include "framework/wnd.h"

class CDataExchange {
public:
    explicit CDataExchange(CWnd& dialog) : m_dialog(dialog) {}
    [[nodiscard]] CWnd& Dialog() const { return m_dialog; }

private:
    CWnd& m_dialog;
};

// Subclasses the control with the object the first time the exchange runs. A dialog without such a control leaves the
// object unattached.
void DDX_Control(CDataExchange& exchange, int id, CWnd& control);
