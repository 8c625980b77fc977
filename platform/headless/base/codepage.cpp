#include <algorithm>
#include <string>
#include <string_view>

#include "platform/headless/base/encoding.h"
#include "platform/headless/base/locale.h"

namespace {

// Western European (1252): what differs from Latin-1. The five codes without a character stand for themselves.
constexpr wchar_t kCodes80To9F[] =
    L"\u20AC\x81\u201A\u0192\u201E\u2026\u2020\u2021\u02C6\u2030\u0160\u2039\u0152\x8D\u017D\x8F"
    L"\x90\u2018\u2019\u201C\u201D\u2022\u2013\u2014\u02DC\u2122\u0161\u203A\u0153\x9D\u017E\u0178";

bool IsAnsi(UINT codePage) {
    return codePage == CP_ACP || codePage == 1252;
}

// Characters in a row that the code page does not have, and the first of those in a row, or the one, that the platform
// takes for them. Of its likenesses only those that numbers can be written with, and the full-width forms.
struct Likeness {
    std::uint32_t first;
    std::uint32_t last;
    char fit;
    bool isRow;
};
constexpr Likeness kLikenesses[] = {
    {0x2000, 0x2006, ' ', false},  // blanks of various widths
    {0x2010, 0x2011, '-', false},  // hyphens
    {0x2074, 0x2078, '4', true},   // superscript digits, as far as the platform goes
    {0x2080, 0x2089, '0', true},   // subscript digits
    {0x2212, 0x2212, '-', false},  // the minus sign
    {0x3000, 0x3000, ' ', false},  // the blank of East Asian texts
    {0xFF01, 0xFF5E, '!', true},   // and their full-width forms
};

// 0 when there is none.
char BestFit(wchar_t unit) {
    const auto code = static_cast<std::uint32_t>(unit);
    for (const Likeness& row : kLikenesses) {
        if (code < row.first || code > row.last) continue;
        return static_cast<char>(row.isRow ? row.fit + static_cast<int>(code - row.first) : row.fit);
    }
    return 0;
}

std::string ToAnsi(std::wstring_view text, bool fits, char replacement, bool& replaced) {
    std::string bytes;
    for (const wchar_t unit : text) {
        const auto* special = std::find(std::begin(kCodes80To9F), std::end(kCodes80To9F) - 1, unit);
        if (special != std::end(kCodes80To9F) - 1) {
            bytes.push_back(static_cast<char>(0x80 + (special - kCodes80To9F)));
        } else if (static_cast<unsigned>(unit) < 0x100 && (unit < 0x80 || unit >= 0xA0)) {
            bytes.push_back(static_cast<char>(unit));
        } else if (const char fit = fits ? BestFit(unit) : '\0') {
            bytes.push_back(fit);
        } else {
            bytes.push_back(replacement);
            replaced = true;
        }
    }
    return bytes;
}

int Deliver(const std::string& result, LPSTR buffer, int size) {
    const auto length = static_cast<int>(result.size());
    if (size == 0) return length;
    if (size < length) {
        // As much as fits is written all the same.
        std::copy_n(result.data(), size, buffer);
        SetLastError(ERROR_INSUFFICIENT_BUFFER);
        return 0;
    }
    std::copy_n(result.data(), length, buffer);
    return length;
}

int Fail(LONG code) {
    SetLastError(static_cast<DWORD>(code));
    return 0;
}

}  // namespace

int WideCharToMultiByte(UINT codePage, DWORD flags, LPCWSTR text, int length, LPSTR bytes, int size, LPCSTR replacement,
                        BOOL* replaced) {
    if (text == nullptr || length == 0 || length < -1 || size < 0 || (size > 0 && bytes == nullptr)) {
        return Fail(ERROR_INVALID_PARAMETER);
    }
    const std::wstring_view source(text,
                                   length < 0 ? std::wstring_view(text).size() + 1 : static_cast<std::size_t>(length));
    if (IsAnsi(codePage)) {
        bool used = false;
        const bool fits = (flags & WC_NO_BEST_FIT_CHARS) == 0;
        const auto result = ToAnsi(source, fits, replacement == nullptr ? '?' : *replacement, used);
        if (replaced != nullptr) *replaced = used;
        return Deliver(result, bytes, size);
    }
    if (codePage != CP_UTF8 || replacement != nullptr || replaced != nullptr) return Fail(ERROR_INVALID_PARAMETER);
    const auto result = qv::headless::ToUtf8(source);
    if ((flags & WC_ERR_INVALID_CHARS) != 0 && qv::headless::FromUtf8(result) != source) {
        return Fail(ERROR_NO_UNICODE_TRANSLATION);
    }
    return Deliver(result, bytes, size);
}
