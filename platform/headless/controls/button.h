// The BUTTON class: push buttons, check boxes, radio buttons, group boxes and owner-drawn buttons as far as state,
// keys, mouse and notifications go. An owner-drawn button is never asked to draw. Mnemonics are the dialog manager's.
#pragma once

#include "platform/headless/controls/control.h"

namespace qv::headless {

class Button final : public Control {
public:
    explicit Button(HWND window) : Control(window) {}
    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    DWORD Type() const { return Style() & BS_TYPEMASK; }
    bool NotifiesAll() const { return Has(BS_NOTIFY); }
    LRESULT DialogCode() const;
    void OnLeftDown(LPARAM position);
    void OnLeftUp(LPARAM position);
    void OnMouseMove(LPARAM position);
    void OnFocus(bool gained);
    void SetPushed(bool pushed);
    void SetCheck(WPARAM check);
    void SetType(DWORD style);
    void ClickByProgram();
    // The state after a click as the automatic types make it, then the notification.
    void Clicked();
    void UncheckOthersInGroup() const;
    bool Contains(LPARAM position) const;

    LRESULT m_state = BST_UNCHECKED;
    bool m_tracking = false;
};

}  // namespace qv::headless
