// Text helpers that every layer shares: one trim, one lower-case, one number parser, one formatter, one pair of UTF-8
// converters. All independent of the process's locale.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace qv {

// Blanks, tabs and line ends off both sides.
[[nodiscard]] std::wstring Trim(std::wstring_view text);
// The same as a view into text.
[[nodiscard]] std::wstring_view TrimView(std::wstring_view text) noexcept;
// Simple case mapping by the platform (CharLowerW), character by character.
[[nodiscard]] std::wstring ToLower(std::wstring_view text);
[[nodiscard]] bool EqualIgnoringCase(std::wstring_view a, std::wstring_view b);

// A label as a person reads it: without the mark of its mnemonic; "&Save && close" reads "Save & close".
[[nodiscard]] std::wstring PlainLabel(std::wstring_view label);
// The character that a label marks, as it is written there; 0 where it marks none.
[[nodiscard]] wchar_t MnemonicOf(std::wstring_view label) noexcept;

// Leading blanks, an optional sign, then digits up to the first other character; no digits give 0. Saturates at the
// ends of the 64-bit range.
[[nodiscard]] std::int64_t LeadingInteger64(std::wstring_view text);
// The same read as a 32-bit number, saturated at its ends, as the platform's text-to-int conversion does.
[[nodiscard]] std::int32_t LeadingInteger(std::wstring_view text);

using FormatArgument = std::variant<std::int64_t, double, std::wstring>;
// A printf-like format with %d (integer), %s (text), %% and the floating forms %f, %g, %e with flags, width and
// precision. Decimal point always ".". Arguments are taken in order; a missing one or one of another kind formats as
// nothing.
[[nodiscard]] std::wstring FormatArguments(std::wstring_view format, const std::vector<FormatArgument>& arguments);

namespace detail {
inline FormatArgument ToArgument(double value) {
    return value;
}
inline FormatArgument ToArgument(std::wstring_view value) {
    return std::wstring(value);
}
inline FormatArgument ToArgument(const std::wstring& value) {
    return value;
}
inline FormatArgument ToArgument(const wchar_t* value) {
    return std::wstring(value != nullptr ? value : L"");
}
template <class T>
requires std::is_integral_v<T> FormatArgument ToArgument(T value) {
    return static_cast<std::int64_t>(value);
}
}  // namespace detail

template <class... A>
[[nodiscard]] std::wstring Format(std::wstring_view format, const A&... arguments) {
    return FormatArguments(format, {detail::ToArgument(arguments)...});
}

// Malformed input becomes U+FFFD.
[[nodiscard]] std::string ToUtf8(std::wstring_view text);
[[nodiscard]] std::wstring FromUtf8(std::string_view bytes);

// C library conversions with "." as decimal point whatever the process's locale: text that holds no number gives 0.
[[nodiscard]] double ParseDouble(std::wstring_view text);

}  // namespace qv
