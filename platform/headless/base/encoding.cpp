#include "platform/headless/base/encoding.h"

#include <locale.h>
#include <wctype.h>

#include <algorithm>
#include <cstdint>
#include <optional>

namespace qv::headless {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool IsSurrogate(char32_t code) {
    return code >= 0xD800 && code <= 0xDFFF;
}

void Append(std::string& bytes, char32_t code) {
    const auto put = [&](char32_t value) { bytes.push_back(static_cast<char>(value)); };
    if (code < 0x80) {
        put(code);
    } else if (code < 0x800) {
        put(0xC0 | (code >> 6));
        put(0x80 | (code & 0x3F));
    } else if (code < 0x10000) {
        put(0xE0 | (code >> 12));
        put(0x80 | ((code >> 6) & 0x3F));
        put(0x80 | (code & 0x3F));
    } else {
        put(0xF0 | (code >> 18));
        put(0x80 | ((code >> 12) & 0x3F));
        put(0x80 | ((code >> 6) & 0x3F));
        put(0x80 | (code & 0x3F));
    }
}

// One character from the front of bytes and its length; no character when the sequence is malformed: too short, longer
// than needed, a surrogate, or beyond the last character.
std::optional<char32_t> Decode(std::string_view bytes, std::size_t& length) {
    const auto lead = static_cast<std::uint8_t>(bytes.front());
    length = 1;
    if (lead < 0x80) return lead;
    const std::size_t count = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC2 ? 2 : 0;
    if (count == 0 || lead > 0xF4 || bytes.size() < count) return std::nullopt;
    char32_t code = lead & (0x7Fu >> count);
    for (std::size_t i = 1; i < count; ++i) {
        const auto next = static_cast<std::uint8_t>(bytes[i]);
        if ((next & 0xC0) != 0x80) return std::nullopt;
        code = (code << 6) | (next & 0x3F);
    }
    constexpr char32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
    if (code < kSmallest[count] || code > 0x10FFFF || IsSurrogate(code)) return std::nullopt;
    length = count;
    return code;
}

// The library's character tables; they exist without any locale being installed.
locale_t Characters() {
    static const locale_t s_characters = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    return s_characters;
}

}  // namespace

std::string ToUtf8(std::wstring_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        auto code = static_cast<char32_t>(text[i]);
        if (code >= 0xD800 && code <= 0xDBFF && i + 1 < text.size()) {
            const auto low = static_cast<char32_t>(text[i + 1]);
            if (low >= 0xDC00 && low <= 0xDFFF) {
                code = 0x10000 + ((code - 0xD800) << 10) + (low - 0xDC00);
                ++i;
            }
        }
        Append(bytes, IsSurrogate(code) || code > 0x10FFFF ? kReplacement : code);
    }
    return bytes;
}

std::wstring FromUtf8(std::string_view bytes) {
    static_assert(sizeof(wchar_t) == 4);  // a unit for every character
    std::wstring text;
    text.reserve(bytes.size());
    while (!bytes.empty()) {
        std::size_t length = 0;
        text.push_back(static_cast<wchar_t>(Decode(bytes, length).value_or(kReplacement)));
        bytes.remove_prefix(length);
    }
    return text;
}

wchar_t LowerOf(wchar_t unit) noexcept {
    const auto code = static_cast<wint_t>(unit);
    if (code < 0x80) return code >= L'A' && code <= L'Z' ? static_cast<wchar_t>(code + 32) : unit;
    const auto lower = towlower_l(code, Characters());
    return towupper_l(lower, Characters()) == code ? static_cast<wchar_t>(lower) : unit;
}

wchar_t UpperOf(wchar_t unit) noexcept {
    const auto code = static_cast<wint_t>(unit);
    if (code < 0x80) return code >= L'a' && code <= L'z' ? static_cast<wchar_t>(code - 32) : unit;
    const auto upper = towupper_l(code, Characters());
    return towlower_l(upper, Characters()) == code ? static_cast<wchar_t>(upper) : unit;
}

int CompareIgnoringCase(std::wstring_view first, std::wstring_view second) noexcept {
    const auto common = std::min(first.size(), second.size());
    for (std::size_t i = 0; i < common; ++i) {
        const wchar_t a = UpperOf(first[i]);
        const wchar_t b = UpperOf(second[i]);
        if (a != b) return a < b ? -1 : 1;
    }
    return first.size() == second.size() ? 0 : first.size() < second.size() ? -1 : 1;
}

}  // namespace qv::headless
