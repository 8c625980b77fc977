// Conversion of variants: every source becomes a whole number, a real number, a text or an object first, and that
// becomes the wanted type. The destination changes only when the conversion succeeds.
#include <bit>
#include <cmath>
#include <limits>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include "platform/headless/base/encoding.h"
#include "platform/headless/base/locale.h"
#include "platform/headless/base/number_text.h"

namespace {

using qv::headless::NumberFormat;
using qv::headless::NumberFormatOf;
using qv::headless::TextNumber;
using qv::headless::TextOfReal;

struct Context {
    LCID locale;
    USHORT flags;

    [[nodiscard]] NumberFormat Format() const { return NumberFormatOf(locale, (flags & VARIANT_NOUSEROVERRIDE) == 0); }
};

// A source as a number: whole (with its sign kept apart for the 64-bit types) or real.
struct Number {
    bool real = false;
    bool isUnsigned = false;
    std::int64_t whole = 0;
    double value = 0;
};

// The bounds of the whole-number types; nothing for other types.
struct Bounds {
    std::int64_t minimum;
    std::uint64_t maximum;
};

template <typename T>
constexpr Bounds BoundsOf() {
    return {static_cast<std::int64_t>(std::numeric_limits<T>::min()),
            static_cast<std::uint64_t>(std::numeric_limits<T>::max())};
}

bool FindBounds(VARTYPE type, Bounds& bounds) {
    switch (type) {
        case VT_I1:
            bounds = BoundsOf<std::int8_t>();
            return true;
        case VT_UI1:
            bounds = BoundsOf<std::uint8_t>();
            return true;
        case VT_I2:
            bounds = BoundsOf<std::int16_t>();
            return true;
        case VT_UI2:
            bounds = BoundsOf<std::uint16_t>();
            return true;
        case VT_I4:
        case VT_INT:
            bounds = BoundsOf<std::int32_t>();
            return true;
        case VT_UI4:
        case VT_UINT:
            bounds = BoundsOf<std::uint32_t>();
            return true;
        case VT_I8:
            bounds = BoundsOf<std::int64_t>();
            return true;
        case VT_UI8:
            bounds = BoundsOf<std::uint64_t>();
            return true;
        default:
            return false;
    }
}

bool IsKnownType(VARTYPE type) {
    const VARTYPE base = type & VT_TYPEMASK;
    return base <= VT_DECIMAL || (base >= VT_I1 && base <= VT_UINT) || base == VT_RECORD;
}

// To the nearest, halves to the even neighbour, whatever rounding mode is set.
double RoundHalfEven(double value) {
    const double below = std::floor(value);
    const double rest = value - below;
    if (rest > 0.5 || (rest == 0.5 && std::fmod(below, 2) != 0)) return below + 1;
    return below;
}

HRESULT RealToWhole(double value, const Bounds& bounds, std::int64_t& whole) {
    const double rounded = RoundHalfEven(value);
    // The first number above the bound is exact as a double for every type; the bound itself is not.
    const double above = std::ldexp(1.0, static_cast<int>(std::bit_width(bounds.maximum)));
    if (!(rounded >= static_cast<double>(bounds.minimum) && rounded < above)) return DISP_E_OVERFLOW;
    whole = rounded < 0 ? static_cast<std::int64_t>(rounded)
                        : static_cast<std::int64_t>(static_cast<std::uint64_t>(rounded));
    return S_OK;
}

HRESULT NumberOf(const VARIANT& source, Number& number) {
    switch (source.vt) {
        case VT_EMPTY:
            break;
        case VT_I1:
            number.whole = static_cast<std::int8_t>(source.cVal);
            break;
        case VT_UI1:
            number.whole = source.bVal;
            break;
        case VT_I2:
        case VT_BOOL:
            number.whole = source.iVal;
            break;
        case VT_UI2:
            number.whole = source.uiVal;
            break;
        case VT_I4:
        case VT_INT:
            number.whole = source.lVal;
            break;
        case VT_UI4:
        case VT_UINT:
            number.whole = source.ulVal;
            break;
        case VT_I8:
            number.whole = source.llVal;
            break;
        case VT_UI8:
            number.whole = source.llVal;
            number.isUnsigned = true;
            break;
        case VT_R4:
            number.real = true;
            number.value = static_cast<double>(source.fltVal);
            break;
        case VT_R8:
        case VT_DATE:
            number.real = true;
            number.value = source.dblVal;
            break;
        default:
            return DISP_E_TYPEMISMATCH;
    }
    if (!number.real) {
        number.value = number.isUnsigned ? static_cast<double>(static_cast<std::uint64_t>(number.whole))
                                         : static_cast<double>(number.whole);
    }
    return S_OK;
}

void SetWhole(VARIANT& result, VARTYPE type, std::int64_t whole) {
    result.llVal = 0;
    switch (type) {
        case VT_I1:
        case VT_UI1:
            result.bVal = static_cast<BYTE>(whole);
            break;
        case VT_I2:
        case VT_UI2:
            result.iVal = static_cast<SHORT>(whole);
            break;
        case VT_I8:
        case VT_UI8:
            result.llVal = whole;
            break;
        default:
            result.lVal = static_cast<LONG>(whole);
            break;
    }
}

HRESULT SetReal(VARIANT& result, VARTYPE type, double value) {
    if (type != VT_R4) {
        result.dblVal = value;
        return S_OK;
    }
    if (std::isfinite(value) && std::fabs(value) > static_cast<double>(std::numeric_limits<float>::max())) {
        return DISP_E_OVERFLOW;
    }
    result.fltVal = static_cast<float>(value);
    return S_OK;
}

const wchar_t* WordOf(bool value, const Context& context) {
    LANGID language = LANGIDFROMLCID(context.locale == LOCALE_USER_DEFAULT ? GetUserDefaultLCID() : context.locale);
    if ((context.flags & VARIANT_LOCALBOOL) != 0 && PRIMARYLANGID(language) == LANG_GERMAN) {
        return value ? L"Wahr" : L"Falsch";
    }
    return value ? L"True" : L"False";
}

HRESULT TextToBool(std::wstring_view text, const Context& context, bool& value) {
    for (const bool candidate : {true, false}) {
        if (text == (candidate ? L"#TRUE#" : L"#FALSE#") ||
            qv::headless::CompareIgnoringCase(text, candidate ? L"True" : L"False") == 0 ||
            qv::headless::CompareIgnoringCase(text, WordOf(candidate, context)) == 0) {
            value = candidate;
            return S_OK;
        }
    }
    const auto number = TextNumber::Parse(text, context.Format());
    return number ? number->ToBool(value) : DISP_E_TYPEMISMATCH;
}

HRESULT FromText(std::wstring_view text, const Context& context, VARTYPE type, VARIANT& result) {
    if (type == VT_BOOL) {
        bool value = false;
        const HRESULT read = TextToBool(text, context, value);
        result.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
        return read;
    }
    Bounds bounds{};
    const bool isWhole = FindBounds(type, bounds);
    if (!isWhole && type != VT_R4 && type != VT_R8) return DISP_E_TYPEMISMATCH;
    const auto number = TextNumber::Parse(text, context.Format());
    if (!number) return DISP_E_TYPEMISMATCH;
    if (isWhole) {
        std::int64_t whole = 0;
        const HRESULT read = number->ToInteger(bounds.minimum, bounds.maximum, whole);
        if (SUCCEEDED(read)) SetWhole(result, type, whole);
        return read;
    }
    double value = 0;
    const HRESULT read = number->ToDouble(value);
    return FAILED(read) ? read : SetReal(result, type, value);
}

HRESULT ToText(const VARIANT& source, const Context& context, VARIANT& result) {
    std::wstring text;
    Number number;
    if (source.vt == VT_BOOL && (context.flags & (VARIANT_ALPHABOOL | VARIANT_LOCALBOOL)) != 0) {
        text = WordOf(source.boolVal != 0, context);
    } else if (source.vt == VT_DATE) {
        return DISP_E_TYPEMISMATCH;
    } else if (const HRESULT read = NumberOf(source, number); FAILED(read)) {
        return read;
    } else if (number.real) {
        text = TextOfReal(number.value, source.vt == VT_R4 ? 7 : 15, context.Format());
    } else if (source.vt != VT_EMPTY) {
        text = number.isUnsigned ? std::to_wstring(static_cast<std::uint64_t>(number.whole))
                                 : std::to_wstring(number.whole);
    }
    result.bstrVal = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    return result.bstrVal == nullptr ? E_OUTOFMEMORY : S_OK;
}

HRESULT NumberTo(const VARIANT& source, VARTYPE type, VARIANT& result) {
    Number number;
    if (const HRESULT read = NumberOf(source, number); FAILED(read)) return read;
    if (type == VT_BOOL) {
        result.boolVal = number.value != 0 ? VARIANT_TRUE : VARIANT_FALSE;
        return S_OK;
    }
    if (type == VT_R4 || type == VT_R8 || type == VT_DATE) return SetReal(result, type, number.value);
    Bounds bounds{};
    if (!FindBounds(type, bounds)) return DISP_E_TYPEMISMATCH;
    std::int64_t whole = number.whole;
    if (number.real) {
        if (const HRESULT rounded = RealToWhole(number.value, bounds, whole); FAILED(rounded)) return rounded;
    } else if (source.vt != VT_BOOL) {
        // A truth value is its bits in every type: 255 in a byte.
        const bool negative = !number.isUnsigned && whole < 0;
        if (negative ? whole < bounds.minimum : static_cast<std::uint64_t>(whole) > bounds.maximum) {
            return DISP_E_OVERFLOW;
        }
    }
    SetWhole(result, type, whole);
    return S_OK;
}

HRESULT ObjectTo(const VARIANT& source, VARTYPE type, VARIANT& result) {
    if (type != VT_UNKNOWN && type != VT_DISPATCH) {
        return source.vt == VT_DISPATCH && source.pdispVal == nullptr && type != VT_ERROR ? DISP_E_BADVARTYPE
                                                                                          : DISP_E_TYPEMISMATCH;
    }
    result.punkVal = nullptr;
    if (source.punkVal == nullptr) return S_OK;
    const HRESULT asked = source.punkVal->QueryInterface(type == VT_DISPATCH ? IID_IDispatch : IID_IUnknown,
                                                         reinterpret_cast<void**>(&result.punkVal));
    return FAILED(asked) ? DISP_E_TYPEMISMATCH : S_OK;
}

// source holds no reference and is of a type that is kept; type is another one.
HRESULT Coerce(const VARIANT& source, const Context& context, VARTYPE type, VARIANT& result) {
    if (source.vt == VT_ERROR || type == VT_ERROR || type == VT_VARIANT || (type & ~VT_TYPEMASK) != 0) {
        return DISP_E_TYPEMISMATCH;
    }
    if (type == VT_CY || type == VT_DECIMAL || type == VT_RECORD) return DISP_E_BADVARTYPE;
    if (source.vt == VT_NULL) return DISP_E_TYPEMISMATCH;
    if (type == VT_EMPTY || type == VT_NULL) return S_OK;
    if (source.vt == VT_UNKNOWN || source.vt == VT_DISPATCH) return ObjectTo(source, type, result);
    if (type == VT_UNKNOWN || type == VT_DISPATCH) return DISP_E_TYPEMISMATCH;
    if (type == VT_BSTR) return ToText(source, context, result);
    if (source.vt == VT_BSTR) {
        // To these conversions a text ends at its first zero, however long the string is.
        return FromText(source.bstrVal == nullptr ? L"" : source.bstrVal, context, type, result);
    }
    return NumberTo(source, type, result);
}

}  // namespace

HRESULT VariantChangeType(VARIANTARG* destination, VARIANTARG* source, USHORT flags, VARTYPE type) {
    return VariantChangeTypeEx(destination, source, LOCALE_USER_DEFAULT, flags, type);
}

HRESULT VariantChangeTypeEx(VARIANTARG* destination, VARIANTARG* source, LCID locale, USHORT flags, VARTYPE type) {
    if (destination == nullptr || source == nullptr) return E_INVALIDARG;
    if (!IsKnownType(source->vt) || !IsKnownType(type)) return DISP_E_BADVARTYPE;
    if (source->vt == type) return VariantCopy(destination, source);
    VARIANT value;
    VariantInit(&value);
    if (const HRESULT copied = VariantCopyInd(&value, source); FAILED(copied)) return copied;
    VARIANT result{};
    HRESULT changed = S_OK;
    if (value.vt == type) {
        std::swap(value, result);
    } else {
        changed = Coerce(value, {locale, flags}, type, result);
        result.vt = type;
    }
    VariantClear(&value);
    if (FAILED(changed)) return changed;
    if (const HRESULT cleared = VariantClear(destination); FAILED(cleared)) {
        VariantClear(&result);
        return cleared;
    }
    *destination = result;
    return S_OK;
}
