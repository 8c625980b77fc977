#include "platform/headless/desktop/text_metrics.h"

#include <algorithm>
#include <iterator>

#include "platform/headless/desktop/gdi.h"
#include "platform/headless/desktop/screen.h"

namespace qv::headless {

namespace {

constexpr LONG kTableEm = 11;
constexpr LONG kTableCell = 13;
constexpr LONG kTableAscent = 11;
constexpr LONG kTableAverage = 6;
constexpr LONG kTableWidest = 12;

// From the space to the tilde.
constexpr BYTE kWidths[] = {
    3,  3, 4, 8, 6, 9, 7, 2,  4, 4, 5, 7, 3, 4, 3, 4,  // space to /
    6,  6, 6, 6, 6, 6, 6, 6,  6, 6, 3, 3, 7, 7, 7, 5,  // 0 to ?
    10, 7, 7, 7, 8, 6, 6, 8,  8, 3, 5, 7, 6, 9, 8, 8,  // @ to O
    7,  8, 7, 7, 7, 8, 7, 10, 7, 7, 7, 4, 4, 4, 7, 6,  // P to _
    4,  6, 6, 5, 6, 6, 4, 6,  6, 3, 3, 5, 3, 9, 6, 6,  // ` to o
    6,  6, 4, 5, 4, 6, 5, 8,  5, 5, 5, 4, 3, 4, 7,     // p to ~
};
static_assert(std::size(kWidths) == 0x7F - 0x20);

LONG TableWidth(wchar_t unit) {
    const auto code = static_cast<std::uint32_t>(unit);
    if (code < 0x20 || (code >= 0x7F && code < 0xA0)) return 0;
    if (code < 0x7F) return kWidths[code - 0x20];
    // Ideographs fill the square; other letters are as wide as an average one.
    constexpr std::uint32_t kFirstWide = 0x1100;
    return code >= kFirstWide ? kTableEm : kTableAverage;
}

LONG Scale(LONG tableUnits, LONG em) {
    return MulDiv(tableUnits, em, kTableEm);
}

}  // namespace

LONG EmHeight(const LOGFONTW& font) noexcept {
    constexpr LONG kDefaultPoints = 12;
    constexpr LONG kPointsPerInch = 72;
    if (font.lfHeight < 0) return -font.lfHeight;
    if (font.lfHeight > 0) return std::max(MulDiv(font.lfHeight, kTableEm, kTableCell), 1);
    return MulDiv(kDefaultPoints, static_cast<int>(Screen().dpi), kPointsPerInch);
}

LONG CharWidth(const LOGFONTW& font, wchar_t unit) noexcept {
    const LONG width = Scale(TableWidth(unit), EmHeight(font));
    return width && font.lfWeight >= FW_BOLD ? width + 1 : width;
}

LONG TextWidth(const LOGFONTW& font, std::wstring_view text) noexcept {
    LONG width = 0;
    for (const wchar_t unit : text)
        width += CharWidth(font, unit);
    return width;
}

TEXTMETRICW MetricsOf(const LOGFONTW& font) noexcept {
    const LONG em = EmHeight(font);
    TEXTMETRICW metrics{};
    metrics.tmHeight = font.lfHeight > 0 ? font.lfHeight : Scale(kTableCell, em);
    metrics.tmAscent = MulDiv(metrics.tmHeight, kTableAscent, kTableCell);
    metrics.tmDescent = metrics.tmHeight - metrics.tmAscent;
    metrics.tmInternalLeading = metrics.tmHeight - em;
    metrics.tmAveCharWidth = Scale(kTableAverage, em);
    metrics.tmMaxCharWidth = Scale(kTableWidest, em);
    metrics.tmWeight = font.lfWeight ? font.lfWeight : FW_NORMAL;
    metrics.tmDigitizedAspectX = metrics.tmDigitizedAspectY = static_cast<LONG>(Screen().dpi);
    metrics.tmFirstChar = 0x20;
    metrics.tmLastChar = 0xFFFD;
    metrics.tmDefaultChar = 0x1F;
    metrics.tmBreakChar = L' ';
    metrics.tmItalic = font.lfItalic;
    metrics.tmUnderlined = font.lfUnderline;
    metrics.tmStruckOut = font.lfStrikeOut;
    metrics.tmPitchAndFamily = 0x27;  // variable pitch, vector, true type, swiss
    metrics.tmCharSet = font.lfCharSet;
    return metrics;
}

}  // namespace qv::headless
