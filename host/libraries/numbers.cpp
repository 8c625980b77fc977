#include "host/libraries/numbers.h"

#include <charconv>
#include <cmath>
#include <optional>
#include <utility>

#include "base/text.h"
#include "platform/platform.h"

namespace {

std::optional<std::wstring> UserLocaleText(LCTYPE type) {
    const int size = ::GetLocaleInfoW(LOCALE_USER_DEFAULT, type, nullptr, 0);
    if (size <= 0) return std::nullopt;
    std::wstring text(static_cast<std::size_t>(size), L'\0');
    if (::GetLocaleInfoW(LOCALE_USER_DEFAULT, type, text.data(), size) <= 0) return std::nullopt;
    text.resize(text.find(L'\0'));
    return text;
}

qv::NumberLocale UserLocale() {
    const auto decimal = UserLocaleText(LOCALE_SDECIMAL);
    const auto thousands = UserLocaleText(LOCALE_STHOUSAND);
    if (!decimal || decimal->empty()) return {.known = false};
    return {.known = true, .decimalSeparator = *decimal, .thousandsSeparator = thousands.value_or(L"")};
}

qv::NumberLocale& CurrentLocale() {
    static qv::NumberLocale locale = UserLocale();
    return locale;
}

std::wstring ReplaceAll(std::wstring_view text, std::wstring_view from, std::wstring_view to) {
    std::wstring result;
    std::size_t start = 0;
    for (std::size_t at; (at = text.find(from, start)) != std::wstring_view::npos; start = at + from.size()) {
        result.append(text.substr(start, at - start)).append(to);
    }
    return result.append(text.substr(start));
}

bool IsDigit(wchar_t c) {
    return c >= L'0' && c <= L'9';
}

std::size_t SkipDigits(std::wstring_view text, std::size_t at) {
    while (at < text.size() && IsDigit(text[at]))
        ++at;
    return at;
}

std::size_t SkipSign(std::wstring_view text, std::size_t at) {
    return at < text.size() && (text[at] == L'+' || text[at] == L'-') ? at + 1 : at;
}

// [sign] digits [. digits] [e [sign] digits], with a digit before or after the point.
bool IsNumber(std::wstring_view text) {
    const std::size_t whole = SkipSign(text, 0);
    std::size_t at = SkipDigits(text, whole);
    std::size_t digits = at - whole;
    if (at < text.size() && text[at] == L'.') {
        const std::size_t end = SkipDigits(text, at + 1);
        digits += end - at - 1;
        at = end;
    }
    if (digits == 0) return false;
    if (at < text.size() && (text[at] == L'e' || text[at] == L'E')) {
        const std::size_t exponent = SkipSign(text, at + 1);
        at = SkipDigits(text, exponent);
        if (at == exponent) return false;
    }
    return at == text.size();
}

// Exactly one conversion of a double, with plain text and doubled percent signs around it.
bool IsDoubleFormat(std::wstring_view format) {
    int conversions = 0;
    for (std::size_t at = 0; at < format.size(); ++at) {
        if (format[at] != L'%') continue;
        if (++at < format.size() && format[at] == L'%') continue;
        while (at < format.size() && std::wstring_view(L"-+ #0").find(format[at]) != std::wstring_view::npos)
            ++at;
        at = SkipDigits(format, at);
        if (at < format.size() && format[at] == L'.') at = SkipDigits(format, at + 1);
        if (at == format.size() || std::wstring_view(L"feg").find(format[at]) == std::wstring_view::npos) return false;
        ++conversions;
    }
    return conversions == 1;
}

}  // namespace

bool String2Double(std::wstring_view text, double& value) {
    std::wstring number = qv::Trim(text);
    const qv::NumberLocale& locale = qv::GetNumberLocale();
    if (locale.known && locale.decimalSeparator != L".") number = ReplaceAll(number, locale.decimalSeparator, L".");
    if (!IsNumber(number)) return false;

    std::string digits;
    for (const wchar_t c : number)
        digits.push_back(static_cast<char>(c));
    const char* const first = digits.data() + (digits.front() == '+' ? 1 : 0);
    double result = 0;
    if (std::from_chars(first, digits.data() + digits.size(), result).ec == std::errc::result_out_of_range) {
        // Too small reads as the nearest double there is, too large is no number at all.
        result = qv::ParseDouble(number);
        if (!std::isfinite(result)) return false;
    }
    value = result;
    return true;
}

bool Double2String(std::wstring& text, double value, std::wstring_view format) {
    if (!IsDoubleFormat(format)) return false;
    text = qv::Format(format, value);
    return true;
}

bool ReplaceLocalWith(std::wstring& text, std::wstring_view separator) {
    const qv::NumberLocale& locale = qv::GetNumberLocale();
    if (!locale.known) return false;
    text = ReplaceAll(text, locale.decimalSeparator, separator);
    return true;
}

namespace qv {

NumberLocale SetNumberLocale(NumberLocale locale) {
    return std::exchange(CurrentLocale(), std::move(locale));
}

const NumberLocale& GetNumberLocale() {
    return CurrentLocale();
}

}  // namespace qv
