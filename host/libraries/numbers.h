// The host's number conversion: between texts and doubles in the notation of a locale object that can be set. The
// process's own locale is neither read nor changed.
#pragma once

#include <string>
#include <string_view>

// Accepts the local decimal separator and ".", surrounding blanks, a sign and an exponent; the whole text must be a
// number. False leaves value alone.
bool String2Double(std::wstring_view text, double& value);
// format: a printf form for one double ("%g", "%5.2e"). The decimal point is always ".". False for any other format.
bool Double2String(std::wstring& text, double value, std::wstring_view format);
// Replaces the local decimal separator in text by separator. False, with text untouched, only when the locale is
// unknown.
bool ReplaceLocalWith(std::wstring& text, std::wstring_view separator);

namespace qv {
struct NumberLocale {
    bool known = true;
    std::wstring decimalSeparator = L".";
    std::wstring thousandsSeparator = L",";
};
// Returns the locale before. The first one is the user's, asked of the platform once.
NumberLocale SetNumberLocale(NumberLocale locale);
[[nodiscard]] const NumberLocale& GetNumberLocale();
}  // namespace qv
