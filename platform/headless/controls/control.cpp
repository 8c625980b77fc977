#include "platform/headless/controls/control.h"

namespace qv::headless {

namespace {

// A device context with the control's font selected.
class MeasuringContext {
public:
    MeasuringContext(HWND window, HFONT font) : m_window(window), m_dc(GetDC(window)) {
        if (font != nullptr) m_before = SelectObject(m_dc, font);
    }
    MeasuringContext(const MeasuringContext&) = delete;
    MeasuringContext& operator=(const MeasuringContext&) = delete;
    ~MeasuringContext() {
        if (m_before != nullptr) SelectObject(m_dc, m_before);
        ReleaseDC(m_window, m_dc);
    }
    HDC Get() const { return m_dc; }

private:
    HWND m_window;
    HDC m_dc;
    HGDIOBJ m_before = nullptr;
};

}  // namespace

bool Control::Notify(int code) const {
    SendMessageW(Parent(), WM_COMMAND, MAKEWPARAM(static_cast<WORD>(GetDlgCtrlID(m_window)), static_cast<WORD>(code)),
                 reinterpret_cast<LPARAM>(m_window));
    return IsWindow(m_window) != FALSE;
}

int Control::ClientWidth() const {
    RECT rect = {};
    GetClientRect(m_window, &rect);
    return rect.right;
}

int Control::ClientHeight() const {
    RECT rect = {};
    GetClientRect(m_window, &rect);
    return rect.bottom;
}

int Control::LineHeight() const {
    TEXTMETRICW metrics = {};
    GetTextMetricsW(MeasuringContext(m_window, m_font).Get(), &metrics);
    return metrics.tmHeight;
}

int Control::TextWidth(std::wstring_view text) const {
    SIZE size = {};
    GetTextExtentPoint32W(MeasuringContext(m_window, m_font).Get(), text.data(), static_cast<int>(text.size()), &size);
    return size.cx;
}

}  // namespace qv::headless
