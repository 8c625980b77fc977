// What every standard control needs: an object a window, notifications to the parent, measures of its font. The
// controls are ordinary window procedures over the public calls; nothing here knows how the desktop keeps its windows.
#pragma once

#include <memory>
#include <string_view>

#include "platform/platform.h"

namespace qv::headless {

class Control {
public:
    explicit Control(HWND window) : m_window(window) {}
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;
    virtual ~Control() = default;

    virtual LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) = 0;

protected:
    LRESULT Default(UINT message, WPARAM wParam, LPARAM lParam) const {
        return DefWindowProcW(m_window, message, wParam, lParam);
    }
    DWORD Style() const { return static_cast<DWORD>(GetWindowLongPtrW(m_window, GWL_STYLE)); }
    bool Has(DWORD styleBits) const { return (Style() & styleBits) != 0; }
    void SetStyle(DWORD style) const { SetWindowLongPtrW(m_window, GWL_STYLE, static_cast<LONG_PTR>(style)); }
    HWND Parent() const { return GetParent(m_window); }
    // WM_COMMAND with this control's identifier; true while the window still lives, since the parent may end it.
    bool Notify(int code) const;
    int ClientWidth() const;
    int ClientHeight() const;
    // Pixels, in the font that WM_SETFONT chose.
    int LineHeight() const;
    int TextWidth(std::wstring_view text) const;

    // WM_SETFONT, WM_GETFONT.
    void SetFont(WPARAM font) { m_font = reinterpret_cast<HFONT>(font); }
    HFONT Font() const { return m_font; }

    const HWND m_window;

private:
    HFONT m_font = nullptr;
};

[[nodiscard]] inline bool KeyHeld(int key) {
    return GetKeyState(key) < 0;
}

// The procedure of a control class. The object lives from WM_NCCREATE to WM_NCDESTROY, and a call that is still running
// when the window goes keeps it until it returns: a parent often destroys its dialog from a notification. Nothing may
// be thrown out of here; what is ends the process.
template <class ControlType>
LRESULT CALLBACK ControlProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    using Holder = std::shared_ptr<ControlType>;
    auto* holder = reinterpret_cast<Holder*>(GetWindowLongPtrW(window, 0));
    if (holder == nullptr) {
        if (message != WM_NCCREATE) return DefWindowProcW(window, message, wParam, lParam);
        holder = new Holder(std::make_shared<ControlType>(window));
        SetWindowLongPtrW(window, 0, reinterpret_cast<LONG_PTR>(holder));
    }
    const Holder running = *holder;
    const LRESULT result = running->Handle(message, wParam, lParam);
    if (message == WM_NCDESTROY) {
        SetWindowLongPtrW(window, 0, 0);
        delete holder;
    }
    return result;
}

}  // namespace qv::headless
