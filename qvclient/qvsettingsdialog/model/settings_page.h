// What the model needs of a page that is shown: its window, its layout, and to be brought to the front.
#pragma once

#include "host/libraries/layout.h"

class SettingsPage {
public:
    virtual ~SettingsPage() = default;
    [[nodiscard]] virtual CWnd& PageWindow() = 0;
    [[nodiscard]] virtual XLayout& GetLayout() = 0;
    virtual void MakeActivePage() = 0;
};
