// The windows of a dialog as it stands, to be created again by plain calls of the platform: with the same classes,
// styles, places, fonts, texts and entries. What that costs is the least that such a dialog can cost.
#pragma once

#include <string>
#include <vector>

#include "platform/platform.h"

namespace bench {

class BareDialog {
public:
    BareDialog();
    // Takes down what the dialog consists of.
    void Capture(HWND frame);
    [[nodiscard]] std::size_t Count() const { return m_windows.size(); }
    // Creates and shows it; handles what is queued then.
    void Open();
    void Close();

private:
    // One window, to be created again.
    struct Window {
        std::wstring className;
        std::wstring text;
        DWORD style;
        DWORD exStyle;
        RECT place;          // in the parent's client area; the frame's on the screen
        std::size_t parent;  // index; the frame is its own
        HFONT font;
        std::vector<std::wstring> entries;
        LRESULT selected;
        LRESULT limit;
    };
    void Take(HWND window, std::size_t parent);
    [[nodiscard]] HWND Create(const Window& window, std::size_t index) const;

    HINSTANCE m_instance;
    std::vector<Window> m_windows;
    std::vector<HWND> m_handles;
};

}  // namespace bench
