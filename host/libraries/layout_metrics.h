// Measures of a page for the layout: its font, the dialog units that follow from it, its resolution. Used by the layout
// alone.
#pragma once

#include <string>
#include <string_view>

#include "framework/gdi.h"

namespace qv {

// How labels are broken, in measuring and in drawing: between words and, as a multi-line field does, within a word that
// is too long for a line. The window's text stays the label as it is; SS_EDITCONTROL makes a static window draw it so.
inline constexpr UINT kLabelFormat = DT_WORDBREAK | DT_EDITCONTROL;

class LayoutMetrics {
public:
    // Of a page without a device context the measures are those of a common 8 point font.
    explicit LayoutMetrics(const CWnd& page);

    // Dialog units (quarters of the average character's width, eighths of its height) to pixels.
    [[nodiscard]] int X(int dialogUnits) const { return ::MulDiv(dialogUnits, m_baseX, 4); }
    [[nodiscard]] int Y(int dialogUnits) const { return ::MulDiv(dialogUnits, m_baseY, 8); }
    // Pixels at 96 dpi to the page's pixels.
    [[nodiscard]] int Scale(int pixels) const { return ::MulDiv(pixels, m_dpi, 96); }

    [[nodiscard]] HFONT Font() const noexcept { return m_font; }
    [[nodiscard]] int LineHeight() const noexcept { return m_baseY; }
    [[nodiscard]] int DigitWidth() const noexcept { return m_digitWidth; }
    [[nodiscard]] int AverageWidth() const noexcept { return m_baseX; }
    [[nodiscard]] int TextWidth(std::wstring_view text) const;
    // The size of a label (its '&' marks a mnemonic), broken where it is wider than maxWidth.
    [[nodiscard]] SIZE LabelSize(const std::wstring& label, int maxWidth) const;

private:
    CClientDC m_dc;
    HFONT m_font;
    int m_baseX = 6;
    int m_baseY = 13;
    int m_digitWidth = 6;
    int m_dpi = 96;
};

}  // namespace qv
