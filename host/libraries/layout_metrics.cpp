#include "host/libraries/layout_metrics.h"

namespace qv {

namespace {

constexpr std::wstring_view kAlphabet = L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
constexpr std::wstring_view kDigits = L"0123456789";

}  // namespace

LayoutMetrics::LayoutMetrics(const CWnd& page) : m_dc(page), m_font(page.GetFont()) {
    if (const UINT dpi = ::GetDpiForWindow(page.m_hWnd); dpi != 0) m_dpi = static_cast<int>(dpi);
    if (!m_dc.IsValid()) return;
    m_dc.SelectFont(m_font);
    TEXTMETRICW metrics{};
    if (::GetTextMetricsW(m_dc.Get(), &metrics) == FALSE) return;
    // The average width as dialog templates take it: of the letters, rounded to the nearest pixel.
    m_baseX = (TextWidth(kAlphabet) / 26 + 1) / 2;
    m_baseY = static_cast<int>(metrics.tmHeight);
    m_digitWidth = (TextWidth(kDigits) + 9) / 10;
}

int LayoutMetrics::TextWidth(std::wstring_view text) const {
    return m_dc.IsValid() ? static_cast<int>(m_dc.GetTextExtent(text).cx) : m_baseX * static_cast<int>(text.size());
}

SIZE LayoutMetrics::LabelSize(const std::wstring& label, int maxWidth) const {
    if (label.empty()) return {0, 0};
    if (!m_dc.IsValid()) return {TextWidth(label), m_baseY};
    RECT rect{0, 0, maxWidth, 0};
    ::DrawTextW(m_dc.Get(), label.c_str(), static_cast<int>(label.size()), &rect, DT_CALCRECT | kLabelFormat);
    return {rect.right - rect.left, rect.bottom - rect.top};
}

}  // namespace qv
