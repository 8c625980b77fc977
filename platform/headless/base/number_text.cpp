#include "platform/headless/base/number_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

#include "platform/headless/base/locale.h"

namespace qv::headless {
namespace {

bool IsBlank(wchar_t unit) {
    return unit == L' ' || (unit >= L'\t' && unit <= L'\r') || unit == L'\u00A0';
}
bool IsDigit(wchar_t unit) {
    return unit >= L'0' && unit <= L'9';
}

// What is left of a text while it is read from the front.
class Reader {
public:
    explicit Reader(std::wstring_view text) : m_left(text) {}

    [[nodiscard]] bool AtEnd() const { return m_left.empty(); }
    [[nodiscard]] bool AtDigit() const { return !m_left.empty() && IsDigit(m_left.front()); }
    [[nodiscard]] bool Take(std::wstring_view wanted) {
        if (wanted.empty() || !m_left.starts_with(wanted)) return false;
        m_left.remove_prefix(wanted.size());
        return true;
    }
    [[nodiscard]] bool TakeEither(wchar_t lower, wchar_t upper) { return Take({&lower, 1}) || Take({&upper, 1}); }
    wchar_t TakeUnit() {
        const wchar_t unit = m_left.front();
        m_left.remove_prefix(1);
        return unit;
    }
    void SkipBlanks() {
        while (!m_left.empty() && IsBlank(m_left.front()))
            m_left.remove_prefix(1);
    }
    // A digit of the base, or nothing.
    std::optional<unsigned> TakeDigit(unsigned base) {
        if (m_left.empty()) return std::nullopt;
        const wchar_t unit = m_left.front();
        const unsigned digit = IsDigit(unit)                  ? static_cast<unsigned>(unit - L'0')
                               : unit >= L'a' && unit <= L'f' ? static_cast<unsigned>(unit - L'a') + 10
                               : unit >= L'A' && unit <= L'F' ? static_cast<unsigned>(unit - L'A') + 10
                                                              : base;
        if (digit >= base) return std::nullopt;
        m_left.remove_prefix(1);
        return digit;
    }

private:
    std::wstring_view m_left;
};

// What may stand around the digits, each once.
struct Surroundings {
    bool plus = false;
    bool minus = false;
    bool open = false;
    bool close = false;
    bool currency = false;
};

void TakeLeading(Reader& reader, const NumberFormat& format, Surroundings& seen) {
    for (;;) {
        reader.SkipBlanks();
        if (!seen.plus && reader.Take(L"+")) {
            seen.plus = true;
        } else if (!seen.minus && reader.Take(L"-")) {
            seen.minus = true;
        } else if (!seen.open && reader.Take(L"(")) {
            seen.open = true;
        } else if (!seen.currency && reader.Take(format.currency)) {
            seen.currency = true;
        } else {
            return;
        }
    }
}

// True when nothing is left over.
bool TakeTrailing(Reader& reader, const NumberFormat& format, Surroundings& seen) {
    for (;;) {
        reader.SkipBlanks();
        if (!seen.plus && !seen.minus && reader.Take(L"+")) {
            seen.plus = true;
        } else if (!seen.plus && !seen.minus && reader.Take(L"-")) {
            seen.minus = true;
        } else if (seen.open && !seen.close && reader.Take(L")")) {
            seen.close = true;
        } else if (!seen.currency && reader.Take(format.currency)) {
            seen.currency = true;
        } else {
            return reader.AtEnd() && seen.open == seen.close;
        }
    }
}

// The exponent behind the digits: 0 without one, nothing when it has no digits. Far out of range it stays far out.
std::optional<std::int64_t> TakeExponent(Reader& reader) {
    if (!reader.TakeEither(L'e', L'E')) return 0;
    const bool negative = reader.Take(L"-");
    if (!negative) [[maybe_unused]]
        const bool plus = reader.Take(L"+");
    if (!reader.AtDigit()) return std::nullopt;
    std::int64_t exponent = 0;
    while (const auto digit = reader.TakeDigit(10))
        exponent = std::min<std::int64_t>(exponent * 10 + *digit, 100000);
    return negative ? -exponent : exponent;
}

}  // namespace

NumberFormat NumberFormatOf(LCID locale, bool userOverrides) {
    const auto ask = [&](LCTYPE type, const wchar_t* otherwise) {
        wchar_t buffer[8] = {};
        const LCTYPE flags = userOverrides ? 0 : LOCALE_NOUSEROVERRIDE;
        return std::wstring(GetLocaleInfoW(locale, type | flags, buffer, 8) > 0 ? buffer : otherwise);
    };
    return {ask(LOCALE_SDECIMAL, L"."), ask(LOCALE_STHOUSAND, L","), ask(LOCALE_SCURRENCY, L"$")};
}

std::optional<TextNumber> TextNumber::Parse(std::wstring_view text, const NumberFormat& format) {
    Reader reader(text);
    TextNumber number;
    Surroundings seen;
    TakeLeading(reader, format, seen);
    if (reader.Take(L"&")) {
        const unsigned base = reader.TakeEither(L'h', L'H') ? 16 : reader.TakeEither(L'o', L'O') ? 8 : 0;
        if (base == 0) return std::nullopt;
        number.m_isBits = true;
        bool any = false;
        while (const auto digit = reader.TakeDigit(base)) {
            any = true;
            if (number.m_bits > std::numeric_limits<std::uint64_t>::max() / base) number.m_bitsOverflow = true;
            number.m_bits = number.m_bits * base + *digit;
        }
        if (!any || !TakeTrailing(reader, format, seen)) return std::nullopt;
        return number;
    }
    bool anyDigit = false;
    bool afterPoint = false;
    for (;;) {
        if (reader.AtDigit()) {
            const wchar_t digit = reader.TakeUnit();
            anyDigit = true;
            if (digit != L'0' || !number.m_digits.empty()) {
                number.m_digits.push_back(static_cast<char>(digit));
                if (!afterPoint) ++number.m_point;
            } else if (afterPoint) {
                --number.m_point;
            }
        } else if (!afterPoint && reader.Take(format.decimal)) {
            afterPoint = true;
        } else if (!anyDigit || !reader.Take(format.thousands)) {
            break;
        }
    }
    if (!anyDigit) return std::nullopt;
    const auto exponent = TakeExponent(reader);
    if (!exponent || !TakeTrailing(reader, format, seen)) return std::nullopt;
    while (!number.m_digits.empty() && number.m_digits.back() == '0')
        number.m_digits.pop_back();
    number.m_point = number.m_digits.empty() ? 0 : number.m_point + *exponent;
    number.m_negative = seen.minus || seen.open;
    return number;
}

HRESULT TextNumber::ToInteger(std::int64_t minimum, std::uint64_t maximum, std::int64_t& value) const {
    // All bits of the type that the bounds belong to.
    const std::uint64_t mask = minimum < 0 ? maximum * 2 + 1 : maximum;
    if (m_isBits) {
        if (m_bitsOverflow || m_bits > mask) return DISP_E_OVERFLOW;
        const bool signBit = minimum < 0 && m_bits > maximum;
        value = static_cast<std::int64_t>(signBit ? m_bits | ~mask : m_bits);
        return S_OK;
    }
    if (m_point > 20) return DISP_E_OVERFLOW;
    std::uint64_t whole = 0;
    for (std::int64_t i = 0; i < m_point; ++i) {
        const auto at = static_cast<std::size_t>(i);
        const unsigned digit = at < m_digits.size() ? static_cast<unsigned>(m_digits[at] - '0') : 0;
        if (whole > (std::numeric_limits<std::uint64_t>::max() - digit) / 10) return DISP_E_OVERFLOW;
        whole = whole * 10 + digit;
    }
    if (m_point >= 0 && static_cast<std::size_t>(m_point) < m_digits.size()) {
        const std::string_view rest = std::string_view(m_digits).substr(static_cast<std::size_t>(m_point));
        const bool half = rest == "5";
        if (half ? whole % 2 == 1 : rest.front() >= '5') {
            if (whole == std::numeric_limits<std::uint64_t>::max()) return DISP_E_OVERFLOW;
            ++whole;
        }
    }
    if (m_negative) {
        const std::uint64_t lowest = minimum == 0 ? 0 : static_cast<std::uint64_t>(-(minimum + 1)) + 1;
        if (whole > lowest) return DISP_E_OVERFLOW;
        value = static_cast<std::int64_t>(0 - whole);
        return S_OK;
    }
    if (whole > maximum) return DISP_E_OVERFLOW;
    value = static_cast<std::int64_t>(whole);
    return S_OK;
}

HRESULT TextNumber::ToDouble(double& value) const {
    if (m_isBits) {
        if (m_bitsOverflow || m_bits > 0x7FFFFFFF) return DISP_E_OVERFLOW;
        value = static_cast<double>(m_bits);
        return S_OK;
    }
    if (m_digits.empty() || m_point < -400) {
        value = 0;
        return S_OK;
    }
    const std::string text = (m_negative ? "-0." : "0.") + m_digits + "e" + std::to_string(m_point);
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ec == std::errc::result_out_of_range) {
        if (m_point > 0) return DISP_E_OVERFLOW;
        value = 0;
    }
    return S_OK;
}

HRESULT TextNumber::ToBool(bool& value) const {
    double number = 0;
    if (const HRESULT result = ToDouble(number); FAILED(result)) return result;
    value = number != 0;
    return S_OK;
}

std::wstring TextOfReal(double value, int digits, const NumberFormat& format) {
    if (std::isnan(value)) return L"NAN";
    if (std::isinf(value)) return value < 0 ? L"-INF" : L"INF";
    char buffer[64];
    const auto end =
        std::to_chars(buffer, buffer + sizeof(buffer), value == 0 ? 0 : value, std::chars_format::general, digits).ptr;
    std::wstring text;
    for (const char* at = buffer; at != end; ++at) {
        if (*at == '.') {
            text += format.decimal;
        } else {
            text.push_back(static_cast<wchar_t>(*at == 'e' ? 'E' : *at));
        }
    }
    return text;
}

}  // namespace qv::headless
