// The STATIC class: a text or an icon that takes no keys; with SS_NOTIFY the mouse and enabling are told to the parent.
#pragma once

#include "platform/headless/controls/control.h"

namespace qv::headless {

class Static final : public Control {
public:
    explicit Static(HWND window) : Control(window) {}
    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    LRESULT SetImage(LPARAM image);

    LPARAM m_image = 0;
};

}  // namespace qv::headless
