#include "platform/headless/controls/register.h"

#include "platform/headless/controls/button.h"
#include "platform/headless/controls/combo_box.h"
#include "platform/headless/controls/control.h"
#include "platform/headless/controls/edit.h"
#include "platform/headless/controls/list_box.h"
#include "platform/headless/controls/static.h"
#include "platform/headless/controls/tab_control.h"

namespace qv::headless {

namespace {

void Register(LPCWSTR name, WNDPROC procedure, UINT style) {
    WNDCLASSEXW windowClass = {};
    windowClass.cbSize = sizeof windowClass;
    windowClass.style = style | CS_GLOBALCLASS;
    windowClass.lpfnWndProc = procedure;
    windowClass.cbWndExtra = sizeof(LONG_PTR);
    windowClass.lpszClassName = name;
    RegisterClassExW(&windowClass);
}

bool RegisterStandardControls() {
    Register(L"Edit", ControlProc<Edit>, CS_DBLCLKS);
    Register(L"Button", ControlProc<Button>, CS_DBLCLKS);
    Register(L"ListBox", ControlProc<ListBox>, CS_DBLCLKS);
    Register(L"ComboBox", ControlProc<ComboBox>, CS_DBLCLKS);
    Register(L"Static", ControlProc<Static>, CS_DBLCLKS);
    return true;
}

// With the library, so that they are there before anybody asks for one.
[[maybe_unused]] const bool s_registered = RegisterStandardControls();

}  // namespace

void RegisterTabControl() {
    Register(WC_TABCONTROLW, ControlProc<TabControl>, CS_DBLCLKS);
}

}  // namespace qv::headless
