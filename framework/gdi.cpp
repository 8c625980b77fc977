#include "framework/gdi.h"

// No window would mean the whole screen to the platform.
CClientDC::CClientDC(const CWnd& window)
    : m_window(window.m_hWnd), m_dc(m_window != nullptr ? ::GetDC(m_window) : nullptr) {}

CClientDC::~CClientDC() {
    if (m_dc == nullptr) return;
    if (m_oldFont != nullptr) ::SelectObject(m_dc, m_oldFont);
    ::ReleaseDC(m_window, m_dc);
}

void CClientDC::SelectFont(HFONT font) {
    if (m_dc == nullptr || font == nullptr) return;
    HGDIOBJ old = ::SelectObject(m_dc, font);
    if (m_oldFont == nullptr) m_oldFont = old;
}

SIZE CClientDC::GetTextExtent(std::wstring_view text) const {
    SIZE size{0, 0};
    if (m_dc != nullptr && !text.empty()) {
        ::GetTextExtentPoint32W(m_dc, text.data(), static_cast<int>(text.size()), &size);
    }
    return size;
}
