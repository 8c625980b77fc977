// Dialog data exchange: members and controls are tied in one function, DoDataExchange, that runs in both directions.
#pragma once

#include <string>

#include "framework/wnd.h"

class CDataExchange {
public:
    CDataExchange(CWnd& dialog, bool saveAndValidate) : m_dialog(dialog), m_saveAndValidate(saveAndValidate) {}
    [[nodiscard]] CWnd& Dialog() const { return m_dialog; }
    [[nodiscard]] bool IsSaving() const { return m_saveAndValidate; }
    // Marks the exchange as failed; the control gets the focus.
    void Fail(int controlId);
    [[nodiscard]] bool HasFailed() const { return m_failed; }

private:
    CWnd& m_dialog;
    bool m_saveAndValidate;
    bool m_failed = false;
};

// Subclasses the control with the object the first time the exchange runs. A dialog without such a control leaves the
// object unattached.
void DDX_Control(CDataExchange& exchange, int id, CWnd& control);
// The control's text. Showing one that the control has already is no change, and reported as none.
void DDX_Text(CDataExchange& exchange, int id, std::wstring& text);
// 0 unticked, 1 ticked, 2 indeterminate. As the text's, nothing happens when there is no such control.
void DDX_Check(CDataExchange& exchange, int id, int& check);
