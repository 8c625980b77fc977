// The settings icon of the dialog's windows.
#pragma once

#include "framework/wnd.h"

// Loads the icon from the current module's resources and shows it as the window's small icon; nothing happens when the
// module has none.
void SetSettingsIcon(CWnd& window);
