// Extents of text, and drawing calls that check their arguments and report success.
#include <algorithm>

#include "platform/headless/desktop/device_context.h"
#include "platform/headless/desktop/gdi.h"
#include "platform/headless/desktop/gdi_objects.h"
#include "platform/headless/desktop/rectangles.h"
#include "platform/headless/desktop/text_metrics.h"

namespace qv::headless {
namespace {

const LOGFONTW* SelectedFont(HDC dc) {
    return FontOf(FontSelectedInto(dc));
}
bool IsContext(HDC dc) {
    return FontSelectedInto(dc) != nullptr;
}

std::wstring_view TextOf(LPCWSTR text, int length) {
    if (!text) return {};
    return length < 0 ? std::wstring_view(text) : std::wstring_view(text, static_cast<std::size_t>(length));
}

// What is left when the marks of mnemonics are taken out: "&&" is one ampersand.
std::wstring WithoutPrefixes(std::wstring_view text) {
    std::wstring shown;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == L'&' && ++i == text.size()) break;
        shown += text[i];
    }
    return shown;
}

std::vector<std::wstring_view> SplitLines(std::wstring_view text) {
    std::vector<std::wstring_view> lines;
    while (true) {
        const std::size_t end = text.find_first_of(L"\r\n");
        lines.push_back(text.substr(0, end));
        if (end == std::wstring_view::npos) return lines;
        text.remove_prefix(end + (text.substr(end, 2) == L"\r\n" ? 2 : 1));
    }
}

// Breaks a line between words so that each piece fits. A word that is too wide stands alone or, where words may be
// broken, on as many pieces as it needs.
void WrapLine(const LOGFONTW& font, std::wstring_view line, LONG width, bool breaksWords,
              std::vector<std::wstring_view>& pieces) {
    constexpr std::size_t kNone = std::wstring_view::npos;
    std::size_t start = 0;    // of the piece
    std::size_t gap = kNone;  // the last blank at which the piece can end
    LONG reached = 0;         // the width from start up to i
    for (std::size_t i = 0; i < line.size();) {
        if (line[i] == L' ' && i > start && (reached <= width || gap == kNone)) gap = i;
        const LONG wider = reached + CharWidth(font, line[i]);
        const bool inWord = gap == kNone;
        if (wider <= width || (inWord && (!breaksWords || i == start))) {
            reached = wider;
            ++i;
            continue;
        }
        const std::size_t end = inWord ? i : gap;
        pieces.push_back(line.substr(start, end - start));
        start = inWord ? end : std::min(line.find_first_not_of(L' ', end), line.size());
        // What stands after the gap is measured anew; it holds no gap itself, so nothing is measured a third time.
        i = start;
        gap = kNone;
        reached = 0;
    }
    pieces.push_back(line.substr(start));
}

}  // namespace
}  // namespace qv::headless

using namespace qv::headless;

BOOL GetTextExtentPoint32W(HDC dc, LPCWSTR text, int length, SIZE* size) {
    const LOGFONTW* font = SelectedFont(dc);
    if (!font || !size || length < 0) return FALSE;
    *size = {TextWidth(*font, TextOf(text, length)), MetricsOf(*font).tmHeight};
    return TRUE;
}

// Returns the height of the text; with DT_CALCRECT the rectangle grows or shrinks to hold it.
int DrawTextW(HDC dc, LPCWSTR text, int length, RECT* rect, UINT format) {
    const LOGFONTW* font = SelectedFont(dc);
    if (!font || !rect || !text) return 0;
    const std::wstring shown =
        format & DT_NOPREFIX ? std::wstring(TextOf(text, length)) : WithoutPrefixes(TextOf(text, length));
    const TEXTMETRICW metrics = MetricsOf(*font);
    const LONG lineHeight = metrics.tmHeight + (format & DT_EXTERNALLEADING ? metrics.tmExternalLeading : 0);
    std::vector<std::wstring_view> lines;
    if (format & DT_SINGLELINE) {
        lines.emplace_back(shown);
    } else {
        for (const std::wstring_view line : SplitLines(shown)) {
            if (format & DT_WORDBREAK) {
                WrapLine(*font, line, WidthOf(*rect), (format & DT_EDITCONTROL) != 0, lines);
            } else {
                lines.push_back(line);
            }
        }
        // The line after the last break counts only when something stands on it.
        if (lines.size() > 1 && lines.back().empty()) lines.pop_back();
    }
    LONG width = 0;
    for (const std::wstring_view line : lines)
        width = std::max(width, TextWidth(*font, line));
    const LONG height = shown.empty() && !(format & DT_SINGLELINE) ? 0 : lineHeight * static_cast<LONG>(lines.size());
    if (format & DT_CALCRECT) {
        rect->right = rect->left + width;
        rect->bottom = rect->top + height;
        return height;
    }
    if (format & DT_SINGLELINE) {
        if (format & DT_VCENTER) return (HeightOf(*rect) - height) / 2 + height;
        if (format & DT_BOTTOM) return HeightOf(*rect);
    }
    return height;
}

int FillRect(HDC dc, const RECT* rect, HBRUSH) {
    return IsContext(dc) && rect;
}
int FrameRect(HDC dc, const RECT* rect, HBRUSH) {
    return IsContext(dc) && rect;
}
BOOL DrawFrameControl(HDC dc, RECT* rect, UINT type, UINT) {
    return IsContext(dc) && rect && type >= DFC_CAPTION && type <= DFC_BUTTON;
}

BOOL DrawFocusRect(HDC dc, const RECT* rect) {
    return IsContext(dc) && rect;
}

COLORREF GetPixel(HDC, int, int) {
    return CLR_INVALID;
}
BOOL SetViewportOrgEx(HDC dc, int, int, POINT* before) {
    if (before) *before = {};
    return IsContext(dc);
}
