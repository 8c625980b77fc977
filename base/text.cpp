#include "base/text.h"

#include <algorithm>
#include <limits>

#include "platform/platform.h"

namespace qv {
namespace {

constexpr bool IsBlank(wchar_t c) {
    return c == L' ' || (c >= L'\t' && c <= L'\r');
}

constexpr bool IsDigit(wchar_t c) {
    return c >= L'0' && c <= L'9';
}

wchar_t LowerOf(wchar_t c) {
    if (c < 0x80) return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c + (L'a' - L'A')) : c;
    // A pointer whose high part is zero means a single character, which only reaches to the end of the basic plane.
    const auto unit = static_cast<std::uint32_t>(c);
    if (unit > 0xFFFF) return c;
    wchar_t* asPointer = reinterpret_cast<wchar_t*>(static_cast<std::uintptr_t>(unit));
    return static_cast<wchar_t>(reinterpret_cast<std::uintptr_t>(CharLowerW(asPointer)));
}

}  // namespace

std::wstring Trim(std::wstring_view text) {
    return std::wstring(TrimView(text));
}

std::wstring_view TrimView(std::wstring_view text) noexcept {
    while (!text.empty() && IsBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

std::wstring ToLower(std::wstring_view text) {
    std::wstring result(text);
    std::transform(result.begin(), result.end(), result.begin(), LowerOf);
    return result;
}

bool EqualIgnoringCase(std::wstring_view a, std::wstring_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](wchar_t x, wchar_t y) { return x == y || LowerOf(x) == LowerOf(y); });
}

std::wstring PlainLabel(std::wstring_view label) {
    std::wstring plain;
    for (std::size_t i = 0; i < label.size(); ++i) {
        if (label[i] == L'&' && ++i == label.size()) break;
        plain.push_back(label[i]);
    }
    return plain;
}

wchar_t MnemonicOf(std::wstring_view label) noexcept {
    for (std::size_t i = 0; i + 1 < label.size(); ++i) {
        if (label[i] == L'&' && label[++i] != L'&') return label[i];
    }
    return 0;
}

std::int64_t LeadingInteger64(std::wstring_view text) {
    while (!text.empty() && IsBlank(text.front()))
        text.remove_prefix(1);
    bool negative = false;
    if (!text.empty() && (text.front() == L'-' || text.front() == L'+')) {
        negative = text.front() == L'-';
        text.remove_prefix(1);
    }
    // Collected as a negative number, whose range is the larger by one.
    constexpr std::int64_t kLowest = std::numeric_limits<std::int64_t>::min();
    std::int64_t value = 0;
    for (const wchar_t c : text) {
        if (!IsDigit(c)) break;
        const int digit = static_cast<int>(c - L'0');
        value = value < (kLowest + digit) / 10 ? kLowest : value * 10 - digit;
        if (value == kLowest) break;
    }
    if (negative) return value;
    return value == kLowest ? std::numeric_limits<std::int64_t>::max() : -value;
}

std::int32_t LeadingInteger(std::wstring_view text) {
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(
        LeadingInteger64(text), std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()));
}

namespace {

constexpr char32_t kReplacement = 0xFFFD;

// The next code point of a wide text, which has 16-bit or 32-bit units; unpaired halves are replaced.
char32_t NextCodePoint(std::wstring_view text, std::size_t& position) {
    const auto unit = static_cast<char32_t>(text[position++]);
    if (unit > 0x10FFFF) return kReplacement;
    if (unit < 0xD800 || unit > 0xDFFF) return unit;
    if (unit > 0xDBFF || position == text.size()) return kReplacement;
    const auto low = static_cast<char32_t>(text[position]);
    if (low < 0xDC00 || low > 0xDFFF) return kReplacement;
    ++position;
    return 0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00);
}

void AppendWide(std::wstring& text, char32_t point) {
    if constexpr (sizeof(wchar_t) == 2) {
        if (point > 0xFFFF) {
            text += static_cast<wchar_t>(0xD800 + ((point - 0x10000) >> 10));
            text += static_cast<wchar_t>(0xDC00 + ((point - 0x10000) & 0x3FF));
            return;
        }
    }
    text += static_cast<wchar_t>(point);
}

}  // namespace

std::string ToUtf8(std::wstring_view text) {
    std::string result;
    result.reserve(text.size());
    const auto tail = [&result](char32_t bits) { result += static_cast<char>(0x80 | (bits & 0x3F)); };
    for (std::size_t i = 0; i < text.size();) {
        const char32_t point = NextCodePoint(text, i);
        if (point < 0x80) {
            result += static_cast<char>(point);
        } else if (point < 0x800) {
            result += static_cast<char>(0xC0 | (point >> 6));
            tail(point);
        } else if (point < 0x10000) {
            result += static_cast<char>(0xE0 | (point >> 12));
            tail(point >> 6);
            tail(point);
        } else {
            result += static_cast<char>(0xF0 | (point >> 18));
            tail(point >> 12);
            tail(point >> 6);
            tail(point);
        }
    }
    return result;
}

std::wstring FromUtf8(std::string_view bytes) {
    std::wstring result;
    result.reserve(bytes.size());
    for (std::size_t i = 0; i < bytes.size();) {
        const auto lead = static_cast<unsigned char>(bytes[i++]);
        if (lead < 0x80) {
            result += static_cast<wchar_t>(lead);
            continue;
        }
        const int tails = lead >= 0xC2 && lead <= 0xDF   ? 1
                          : (lead & 0xF0) == 0xE0        ? 2
                          : lead >= 0xF0 && lead <= 0xF4 ? 3
                                                         : 0;
        char32_t point = tails == 0 ? kReplacement : static_cast<char32_t>(lead & (0x3F >> tails));
        bool complete = tails != 0;
        for (int t = 0; t < tails && complete; ++t) {
            const auto next = i < bytes.size() ? static_cast<unsigned char>(bytes[i]) : 0u;
            // The first tail's range keeps out longer forms than needed, halves of pairs and what lies beyond Unicode.
            const unsigned low = t == 0 && lead == 0xE0 ? 0xA0 : t == 0 && lead == 0xF0 ? 0x90 : 0x80;
            const unsigned high = t == 0 && lead == 0xED ? 0x9F : t == 0 && lead == 0xF4 ? 0x8F : 0xBF;
            complete = next >= low && next <= high;
            if (complete) {
                point = (point << 6) | (next & 0x3F);
                ++i;
            }
        }
        AppendWide(result, complete ? point : kReplacement);
    }
    return result;
}

}  // namespace qv
