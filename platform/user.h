// A person at keyboard and mouse, for tests and scripted runs in both builds: keys, text, clicks and choices reach the
// windows as posted messages through the caller's message loop, so that dialog navigation, accelerators and validation
// see them as they see real input. It does not look at pixels, and what is hidden or disabled it cannot reach.
#pragma once

#include <functional>
#include <string_view>

#include "platform/platform.h"

namespace qv {

// Dispatches what is in the queue until it is empty, without waiting. The callback sees every message first; true means
// that it has used the message up. A quit message is posted again for the loop it belongs to, and ends the pumping.
void PumpMessages(const std::function<bool(MSG&)>& translate = {});

class User {
public:
    struct Held {
        bool shift = false;
        bool control = false;
        bool alt = false;
    };

    // The pump runs after every action and must empty the queue; without one, messages are dispatched untranslated.
    explicit User(std::function<void()> pump = {});

    // Presses and releases a virtual key. It goes to the window with the focus, or, as a system key, to the active one
    // when none has it; false when there is neither.
    bool Press(int virtualKey, Held held) const;
    bool Press(int virtualKey) const { return Press(virtualKey, Held()); }

    // Types characters into the window with the focus, one after the other, wherever the focus goes on the way.
    bool Type(std::wstring_view text) const;

    // Presses and releases the left button: in the middle of the window, or at a point in its client coordinates.
    // Brings the window's top-level window to the front first. False when the window is hidden or cannot be reached,
    // because it or something around it is disabled.
    bool Click(HWND window) const;
    bool ClickAt(HWND window, POINT point) const;

    // Moves the focus there without pressing anything: a click would set off a button.
    bool Focus(HWND window) const;

    // Moves the selection of a combo box or a single-selection list box to the entry with that index (from 0), with the
    // arrow keys. False when the entry does not exist or the window cannot be reached.
    bool Choose(HWND list, int index) const;

    // Clicks the tab with that index (from 0).
    bool ChooseTab(HWND tabControl, int index) const;

    // True when a person could click on it: visible and enabled, and so is everything around it.
    [[nodiscard]] static bool CanReach(HWND window);

private:
    void Pump() const;

    std::function<void()> m_pump;
};

}  // namespace qv
