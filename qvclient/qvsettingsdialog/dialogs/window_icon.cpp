#include "qvclient/qvsettingsdialog/dialogs/window_icon.h"

#include "base/module_state.h"
#include "qvclient/qvsettingsdialog/resources/resource_ids.h"

void SetSettingsIcon(CWnd& window) {
    // Shared by the platform: nobody frees it.
    if (const HICON icon = LoadIconW(GetResourceHandle(), MAKEINTRESOURCEW(IDR_SETTINGS_ICON))) {
        window.SetIcon(icon, false);
    }
}
