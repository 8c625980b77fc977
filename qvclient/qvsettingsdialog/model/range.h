// Ranges of numeric items and the conversions between numbers and texts that the model agrees on. The loaders and the
// input check call them; they show no messages.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

// Lower and upper bound, both inside.
using RangePair = std::pair<double, double>;

// False when value is above the upper (below the lower) bound. Compared at three significant digits: numbers that
// differ only beyond the third count as equal.
[[nodiscard]] bool CheckUpperBound(const RangePair& range, double value);
[[nodiscard]] bool CheckLowerBound(const RangePair& range, double value);

namespace qv {

// The number that "%5.2e" would show: three significant digits.
[[nodiscard]] double RoundForComparison(double value);

// A text of one to nine digits and nothing else, which every way to read a number reads alike.
[[nodiscard]] std::optional<std::int32_t> PlainInteger(std::wstring_view text);
// By the host's number conversion, or by the C library's rules where that refuses: text without a number gives 0.
[[nodiscard]] double TextToDouble(std::wstring_view text);
// format: a printf form for one double.
[[nodiscard]] std::wstring DoubleToText(double value, std::wstring_view format);
// As "%f" shows it: six decimal places.
[[nodiscard]] std::wstring FixedToText(double value);
[[nodiscard]] std::wstring IntegerToText(std::int32_t value);
// How many characters that has.
[[nodiscard]] int IntegerLength(std::int32_t value);
// The leading decimal integer of a text in the process's code page (text without a number counts as 0): bounds,
// defaults and lengths are read so. Characters that the code page does not have count as those which it puts in their
// place; on Western machines full-width digits are digits.
[[nodiscard]] std::int64_t CodePageInteger(std::wstring_view text);
// Whether that number fits into 32 bits.
[[nodiscard]] bool FitsInteger(std::wstring_view text);
// That number, or otherwise where it does not fit into 32 bits.
[[nodiscard]] std::int32_t IntegerOr(std::wstring_view text, std::int32_t otherwise);
// The decimal separator becomes ".", as values are stored: the host's conversion, or every "," where it cannot tell.
void NormaliseSeparator(std::wstring& text);

}  // namespace qv
