// Numbers in texts: the printf-like formatter and the reading of floating-point numbers. Both are built on the
// conversions that know no locale.
#include <charconv>
#include <cmath>
#include <limits>

#include "base/text.h"

namespace qv {
namespace {

struct Directive {
    bool left = false;
    bool plus = false;
    bool blank = false;
    bool alternate = false;
    bool zero = false;
    int width = 0;
    int precision = -1;
    wchar_t conversion = 0;
};

constexpr int kLargestField = 4096;  // more than any sensible width or precision

int ReadNumber(std::wstring_view format, std::size_t& position) {
    int number = 0;
    for (; position < format.size() && format[position] >= L'0' && format[position] <= L'9'; ++position) {
        number = std::min(kLargestField, number * 10 + static_cast<int>(format[position] - L'0'));
    }
    return number;
}

// position stands behind the percent sign and ends behind the conversion character.
Directive ReadDirective(std::wstring_view format, std::size_t& position) {
    Directive d;
    for (; position < format.size(); ++position) {
        const wchar_t c = format[position];
        if (c == L'-')
            d.left = true;
        else if (c == L'+')
            d.plus = true;
        else if (c == L' ')
            d.blank = true;
        else if (c == L'#')
            d.alternate = true;
        else if (c == L'0')
            d.zero = true;
        else
            break;
    }
    d.width = ReadNumber(format, position);
    if (position < format.size() && format[position] == L'.') {
        ++position;
        d.precision = ReadNumber(format, position);
    }
    // Arguments carry their own size.
    while (position < format.size() && (format[position] == L'l' || format[position] == L'h'))
        ++position;
    if (position < format.size()) d.conversion = format[position++];
    return d;
}

// sign and digits apart, since zeros go between them.
std::wstring Pad(const Directive& d, std::wstring sign, std::wstring body, bool zeros) {
    const std::size_t size = sign.size() + body.size();
    const std::size_t fill = static_cast<std::size_t>(d.width) > size ? static_cast<std::size_t>(d.width) - size : 0;
    if (d.left) return sign + body + std::wstring(fill, L' ');
    if (zeros && d.zero) return sign + std::wstring(fill, L'0') + body;
    return std::wstring(fill, L' ') + sign + body;
}

std::wstring SignOf(const Directive& d, bool negative) {
    return negative ? L"-" : d.plus ? L"+" : d.blank ? L" " : L"";
}

std::wstring Widen(const char* first, const char* last) {
    return std::wstring(first, last);
}

std::wstring FormatInteger(const Directive& d, std::int64_t value) {
    char buffer[24];
    const bool negative = value < 0;
    const std::uint64_t magnitude =
        negative ? 0 - static_cast<std::uint64_t>(value) : static_cast<std::uint64_t>(value);
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, magnitude).ptr;
    std::wstring digits = Widen(buffer, end);
    if (d.precision == 0 && value == 0) digits.clear();
    if (d.precision > 0 && digits.size() < static_cast<std::size_t>(d.precision)) {
        digits.insert(0, static_cast<std::size_t>(d.precision) - digits.size(), L'0');
    }
    // As in C, a precision switches the zero flag off.
    return Pad(d, SignOf(d, negative), std::move(digits), d.precision < 0);
}

// The '#' flag: a point is always shown, and %g keeps its trailing zeros.
void KeepPoint(std::wstring& digits, bool general, int precision) {
    const std::size_t exponent = std::min(digits.find(L'e'), digits.size());
    const bool hasPoint = digits.find(L'.') < exponent;
    std::size_t significant = 0;
    bool leading = true;
    for (std::size_t i = 0; i < exponent; ++i) {
        if (digits[i] == L'.') continue;
        if (leading && digits[i] == L'0' && i + 1 < exponent) continue;
        leading = false;
        ++significant;
    }
    std::wstring added = hasPoint ? L"" : L".";
    const auto wanted = static_cast<std::size_t>(precision);
    if (general && significant < wanted) added.append(wanted - significant, L'0');
    digits.insert(exponent, added);
}

std::wstring FormatReal(const Directive& d, double value) {
    const wchar_t kind = static_cast<wchar_t>(d.conversion | 0x20);
    const bool upper = d.conversion != kind;
    const bool finite = std::isfinite(value);
    std::wstring digits;
    if (!finite) {
        digits = std::isnan(value) ? L"nan" : L"inf";
    } else {
        const std::chars_format form = kind == L'f'   ? std::chars_format::fixed
                                       : kind == L'e' ? std::chars_format::scientific
                                                      : std::chars_format::general;
        int precision = d.precision < 0 ? 6 : d.precision;
        if (kind == L'g' && precision == 0) precision = 1;
        std::string buffer(static_cast<std::size_t>(std::numeric_limits<double>::max_exponent10 + 32 + precision),
                           '\0');
        const auto end =
            std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::fabs(value), form, precision).ptr;
        digits = Widen(buffer.data(), end);
        if (d.alternate) KeepPoint(digits, kind == L'g', precision);
    }
    if (upper) {
        for (wchar_t& c : digits) {
            if (c >= L'a' && c <= L'z') c = static_cast<wchar_t>(c - 0x20);
        }
    }
    return Pad(d, SignOf(d, std::signbit(value)), std::move(digits), finite);
}

std::wstring FormatText(const Directive& d, std::wstring text) {
    if (d.precision >= 0 && text.size() > static_cast<std::size_t>(d.precision)) {
        text.resize(static_cast<std::size_t>(d.precision));
    }
    return Pad(d, {}, std::move(text), false);
}

}  // namespace

std::wstring FormatArguments(std::wstring_view format, const std::vector<FormatArgument>& arguments) {
    std::wstring result;
    std::size_t next = 0;
    for (std::size_t i = 0; i < format.size();) {
        if (format[i] != L'%') {
            result += format[i++];
            continue;
        }
        ++i;
        const Directive d = ReadDirective(format, i);
        if (d.conversion == L'%') {
            result += L'%';
            continue;
        }
        if (d.conversion == 0 || next == arguments.size()) continue;
        const FormatArgument& argument = arguments[next++];
        switch (d.conversion) {
            case L'd':
            case L'i':
            case L'u':
                if (const auto* number = std::get_if<std::int64_t>(&argument)) result += FormatInteger(d, *number);
                break;
            case L'f':
            case L'F':
            case L'e':
            case L'E':
            case L'g':
            case L'G':
                if (const auto* number = std::get_if<double>(&argument)) result += FormatReal(d, *number);
                break;
            case L's':
                if (const auto* text = std::get_if<std::wstring>(&argument)) result += FormatText(d, *text);
                break;
            default:
                break;
        }
    }
    return result;
}

namespace {

// Whether a number that does not fit is too large (rather than too small): decided by the place of its first digit
// that is not zero together with its exponent. base 10 digits count one place each, base 16 digits four.
bool IsTooLarge(std::string_view number, char exponentMark, int placesPerDigit) {
    long place = 0;  // of the first significant digit, counted from the point
    bool pointSeen = false;
    bool significant = false;
    std::size_t i = 0;
    for (; i < number.size() && number[i] != exponentMark; ++i) {
        if (number[i] == '.') {
            pointSeen = true;
        } else if (significant) {
            if (!pointSeen) ++place;
        } else if (number[i] != '0') {
            significant = true;
        } else if (pointSeen) {
            --place;
        }
    }
    long exponent = 0;
    if (i + 1 < number.size()) {
        const bool negative = number[i + 1] == '-';
        const char* first = number.data() + i + (negative || number[i + 1] == '+' ? 2 : 1);
        if (std::from_chars(first, number.data() + number.size(), exponent).ec != std::errc{}) return !negative;
        if (negative) exponent = -exponent;
    }
    return place * placesPerDigit + exponent > 0;
}

bool StartsWithWord(std::string_view text, std::string_view word) {
    if (text.size() < word.size()) return false;
    for (std::size_t i = 0; i < word.size(); ++i) {
        if ((text[i] | 0x20) != word[i]) return false;
    }
    return true;
}

}  // namespace

double ParseDouble(std::wstring_view text) {
    // Every character a number can be made of is plain ASCII.
    std::string narrow;
    narrow.reserve(text.size());
    for (const wchar_t c : text) {
        if (c <= 0 || c > 0x7F) break;
        narrow += static_cast<char>(c);
    }
    std::string_view rest = narrow;
    while (!rest.empty() && (rest.front() == ' ' || (rest.front() >= '\t' && rest.front() <= '\r')))
        rest.remove_prefix(1);
    const bool negative = !rest.empty() && rest.front() == '-';
    if (!rest.empty() && (negative || rest.front() == '+')) rest.remove_prefix(1);
    const double sign = negative ? -1.0 : 1.0;
    if (StartsWithWord(rest, "inf")) return sign * std::numeric_limits<double>::infinity();
    if (StartsWithWord(rest, "nan")) return std::copysign(std::numeric_limits<double>::quiet_NaN(), sign);
    // A second sign is no number, though the conversion below would take a minus.
    if (rest.empty() || rest.front() == '-') return 0.0;

    const bool hex = rest.size() > 2 && rest[0] == '0' && (rest[1] | 0x20) == 'x';
    double value = 0.0;
    const std::string_view digits = hex ? rest.substr(2) : rest;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value,
                                              hex ? std::chars_format::hex : std::chars_format::general);
    if (error == std::errc::result_out_of_range) {
        std::string number(digits.data(), end);
        for (char& c : number)
            c = c >= 'A' && c <= 'Z' ? static_cast<char>(c | 0x20) : c;
        value = IsTooLarge(number, hex ? 'p' : 'e', hex ? 4 : 1) ? std::numeric_limits<double>::infinity() : 0.0;
    } else if (error != std::errc{}) {
        value = 0.0;  // "0x" without a digit is the number 0 as well
    }
    return sign * value;
}

}  // namespace qv
