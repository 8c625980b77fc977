// The SCROLLBAR class: range, page and position by its messages. It has no arrows to press: the mouse does nothing
// here.
#pragma once

#include "platform/headless/controls/control.h"

namespace qv::headless {

class ScrollBar final : public Control {
public:
    explicit ScrollBar(HWND window) : Control(window) {}
    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    int SetInfo(const SCROLLINFO& info);
    BOOL GetInfo(SCROLLINFO& info) const;
    void ClampPosition();
    void OnKey(UINT key) const;

    int m_minimum = 0;
    int m_maximum = 0;
    int m_page = 0;
    int m_position = 0;
};

}  // namespace qv::headless
