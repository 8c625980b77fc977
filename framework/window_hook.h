// WindowHook: behaviour of a window that lives beside its class. Whoever arranges the children of somebody else's
// window (a layout manager) sees its messages through one, without a window in between and without a handler of its own
// there.
#pragma once

#include "platform/platform.h"

class WindowHook {
public:
    // Asked before the window's message map. True: the message is used up and *result is the answer.
    virtual bool OnHookedMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) = 0;
    // The focus came to this descendant: the place to scroll it into view.
    virtual void OnDescendantFocused(HWND descendant) = 0;
    // The window is about to be seen: it is being shown, or a window around it is, and everything else around it is
    // shown already. It may be told more than once.
    virtual void OnShowing() = 0;
    // The key of a mnemonic has been pressed in the dialog around the window, which can be seen; the platform looks for
    // the labels that mark this character next.
    virtual void OnMnemonic(wchar_t typed) = 0;

protected:
    ~WindowHook() = default;
};
