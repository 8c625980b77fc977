// Device contexts and fonts in owning types, each knowing its own release.
#pragma once

#include <string_view>

#include "framework/wnd.h"

// A device context of a window's client area. Null when there is no window or the platform gives none.
class CClientDC {
public:
    explicit CClientDC(const CWnd& window);
    ~CClientDC();
    CClientDC(const CClientDC&) = delete;
    CClientDC& operator=(const CClientDC&) = delete;
    [[nodiscard]] bool IsValid() const noexcept { return m_dc != nullptr; }
    [[nodiscard]] HDC Get() const noexcept { return m_dc; }
    // The font selected before is put back when the object ends. Null leaves the selection alone.
    void SelectFont(HFONT font);
    // Pixels.
    [[nodiscard]] SIZE GetTextExtent(std::wstring_view text) const;

private:
    HWND m_window;
    HDC m_dc;
    HGDIOBJ m_oldFont = nullptr;
};
