#include "qvclient/qvsettingsdialog/model/range.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

#include "base/text.h"
#include "host/libraries/numbers.h"
#include "platform/platform.h"

// Rounding keeps the order, so that only a number outside its range as it stands needs to be rounded.
bool CheckUpperBound(const RangePair& range, double value) {
    return value <= range.second || !(qv::RoundForComparison(value) > qv::RoundForComparison(range.second));
}

bool CheckLowerBound(const RangePair& range, double value) {
    return value >= range.first || !(qv::RoundForComparison(range.first) > qv::RoundForComparison(value));
}

namespace qv {

double RoundForComparison(double value) {
    if (!std::isfinite(value)) return value;
    // Independent of any locale both ways.
    char digits[32];
    const auto written = std::to_chars(std::begin(digits), std::end(digits), value, std::chars_format::scientific, 2);
    double rounded = 0;
    const auto read = std::from_chars(std::begin(digits), written.ptr, rounded);
    if (read.ec == std::errc::result_out_of_range) {
        // Rounded up beyond the largest number, or down below the smallest.
        return std::fabs(value) > 1 ? std::copysign(std::numeric_limits<double>::infinity(), value) : 0.0;
    }
    return rounded;
}

std::optional<std::int32_t> PlainInteger(std::wstring_view text) {
    constexpr std::size_t kSurelyFitting = 9;
    if (text.empty() || text.size() > kSurelyFitting) return std::nullopt;
    std::int32_t number = 0;
    for (const wchar_t c : text) {
        if (c < L'0' || c > L'9') return std::nullopt;
        number = number * 10 + static_cast<std::int32_t>(c - L'0');
    }
    return number;
}

double TextToDouble(std::wstring_view text) {
    if (const auto number = PlainInteger(text)) return *number;
    double value = 0;
    return String2Double(text, value) ? value : ParseDouble(text);
}

std::wstring DoubleToText(double value, std::wstring_view format) {
    std::wstring text;
    return Double2String(text, value, format) ? text : Format(format, value);
}

std::wstring FixedToText(double value) {
    // The common case of every number that is loaded; longer ones take the long way.
    char digits[32];
    const auto written = std::to_chars(std::begin(digits), std::end(digits), value, std::chars_format::fixed, 6);
    return std::isfinite(value) && written.ec == std::errc() ? std::wstring(std::begin(digits), written.ptr)
                                                             : DoubleToText(value, L"%f");
}

std::wstring IntegerToText(std::int32_t value) {
    char digits[16];
    const auto written = std::to_chars(std::begin(digits), std::end(digits), value);
    return std::wstring(std::begin(digits), written.ptr);
}

int IntegerLength(std::int32_t value) {
    char digits[16];
    return static_cast<int>(std::to_chars(std::begin(digits), std::end(digits), value).ptr - std::begin(digits));
}

std::int64_t CodePageInteger(std::wstring_view text) {
    if (const auto number = PlainInteger(text)) return *number;
    // Nearly every text is plain ASCII, the same in any code page.
    if (std::all_of(text.begin(), text.end(), [](wchar_t c) { return static_cast<std::uint32_t>(c) < 0x80; })) {
        return LeadingInteger64(text);
    }
    const int length = static_cast<int>(text.size());
    std::string narrow(
        static_cast<std::size_t>(WideCharToMultiByte(CP_ACP, 0, text.data(), length, nullptr, 0, nullptr, nullptr)),
        '\0');
    WideCharToMultiByte(CP_ACP, 0, text.data(), length, narrow.data(), static_cast<int>(narrow.size()), nullptr,
                        nullptr);
    std::wstring bytes;
    for (const char c : narrow)
        bytes += static_cast<wchar_t>(static_cast<unsigned char>(c));
    return LeadingInteger64(bytes);
}

bool FitsInteger(std::wstring_view text) {
    using Limits = std::numeric_limits<std::int32_t>;
    const std::int64_t number = CodePageInteger(text);
    return number >= Limits::min() && number <= Limits::max();
}

std::int32_t IntegerOr(std::wstring_view text, std::int32_t otherwise) {
    return FitsInteger(text) ? static_cast<std::int32_t>(CodePageInteger(text)) : otherwise;
}

void NormaliseSeparator(std::wstring& text) {
    if (!ReplaceLocalWith(text, L".")) std::replace(text.begin(), text.end(), L',', L'.');
}

}  // namespace qv
