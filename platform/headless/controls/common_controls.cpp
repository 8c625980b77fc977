// Calls of the platform that belong to the controls.
#include "platform/headless/controls/register.h"
#include "platform/platform.h"

BOOL GetComboBoxInfo(HWND combo, COMBOBOXINFO* info) {
    return static_cast<BOOL>(SendMessageW(combo, CB_GETCOMBOBOXINFO, 0, reinterpret_cast<LPARAM>(info)));
}

BOOL InitCommonControlsEx(const INITCOMMONCONTROLSEX* controls) {
    if (controls == nullptr || controls->dwSize != sizeof *controls) return FALSE;
    if ((controls->dwICC & ICC_TAB_CLASSES) != 0) qv::headless::RegisterTabControl();
    return TRUE;
}
