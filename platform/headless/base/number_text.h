// Numbers in text as automation reads and writes them: separators of a locale, signs on either side, parentheses,
// currency signs, exponents, and &H and &O forms. For the variant conversions; it knows nothing of variants.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/headless/base/ole_automation.h"

namespace qv::headless {

struct NumberFormat {
    std::wstring decimal;
    std::wstring thousands;
    std::wstring currency;
};

[[nodiscard]] NumberFormat NumberFormatOf(LCID locale, bool userOverrides);

// A number as it stands in a text, before it is known what it shall become.
class TextNumber {
public:
    // Nothing when the text is no number in that format.
    [[nodiscard]] static std::optional<TextNumber> Parse(std::wstring_view text, const NumberFormat& format);

    // To the nearest whole number, halves to the even neighbour. A &H or &O form gives its bits: it may fill the type's
    // sign bit, and takes no sign. DISP_E_OVERFLOW outside minimum to maximum.
    [[nodiscard]] HRESULT ToInteger(std::int64_t minimum, std::uint64_t maximum, std::int64_t& value) const;
    [[nodiscard]] HRESULT ToDouble(double& value) const;
    [[nodiscard]] HRESULT ToBool(bool& value) const;

private:
    bool m_isBits = false;
    std::uint64_t m_bits = 0;
    bool m_bitsOverflow = false;
    bool m_negative = false;
    // Significant digits, and how many of them (zeros added) stand before the decimal point.
    std::string m_digits;
    std::int64_t m_point = 0;
};

// General form with that many significant digits, an upper-case exponent and the locale's decimal separator.
[[nodiscard]] std::wstring TextOfReal(double value, int digits, const NumberFormat& format);

}  // namespace qv::headless
