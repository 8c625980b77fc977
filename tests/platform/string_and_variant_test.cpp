// Strings with a length, variants and their conversions.
#include <gtest/gtest.h>

#include <ostream>
#include <string>

#include "platform/platform.h"

namespace {

constexpr LCID kEnglish = 0x0409;
constexpr LCID kGerman = 0x0407;

// A variant that clears itself.
struct Variant : VARIANT {
    Variant() : VARIANT{} { VariantInit(this); }
    ~Variant() { VariantClear(this); }
    Variant(const Variant&) = delete;
    Variant& operator=(const Variant&) = delete;

    explicit Variant(const wchar_t* text) : Variant() {
        vt = VT_BSTR;
        bstrVal = SysAllocString(text);
    }
    [[nodiscard]] std::wstring Text() const { return {bstrVal == nullptr ? L"" : bstrVal, SysStringLen(bstrVal)}; }
};

TEST(AutomationString, KeepsItsLengthAndEmbeddedZeros) {
    const wchar_t units[] = {L'a', 0, L'b', 0, 0};
    const BSTR string = SysAllocStringLen(units, 4);
    EXPECT_EQ(4u, SysStringLen(string));
    EXPECT_EQ(std::wstring(units, 4), std::wstring(string, 4));
    EXPECT_EQ(0, string[4]);
    SysFreeString(string);
}

TEST(VariantCopying, DuplicatesTextWithItsZeros) {
    Variant source;
    source.vt = VT_BSTR;
    source.bstrVal = SysAllocStringLen(L"a\0b", 3);
    Variant copy(L"old");
    ASSERT_EQ(S_OK, VariantCopy(&copy, &source));
    EXPECT_NE(source.bstrVal, copy.bstrVal);
    EXPECT_EQ(source.Text(), copy.Text());
}

TEST(VariantCopying, MakesAnEmptyTextOfNull) {
    Variant source;
    source.vt = VT_BSTR;
    source.bstrVal = nullptr;
    Variant copy;
    ASSERT_EQ(S_OK, VariantCopy(&copy, &source));
    ASSERT_EQ(VT_BSTR, copy.vt);
    EXPECT_NE(nullptr, copy.bstrVal);
}

TEST(VariantCopying, RefusesUnknownTypes) {
    VARIANT odd{};
    odd.vt = 99;
    Variant copy;
    EXPECT_EQ(DISP_E_BADVARTYPE, VariantClear(&odd));
    EXPECT_EQ(DISP_E_BADVARTYPE, VariantCopy(&copy, &odd));
}

// What a text becomes: a number, or why not.
struct Outcome {
    HRESULT result;
    double value;

    Outcome(double number) : result(S_OK), value(number) {}
    Outcome(HRESULT failure) : result(failure), value(0) {}
    bool operator==(const Outcome& other) const { return result == other.result && value == other.value; }
};
std::ostream& operator<<(std::ostream& stream, const Outcome& outcome) {
    return outcome.result == S_OK ? stream << outcome.value
                                  : stream << std::hex << static_cast<unsigned>(outcome.result);
}
Outcome Number(double value) {
    return {value};
}
const Outcome kMismatch{DISP_E_TYPEMISMATCH};
const Outcome kOverflow{DISP_E_OVERFLOW};

Outcome Convert(const wchar_t* text, LCID locale, VARTYPE type) {
    Variant source(text);
    Variant result;
    const HRESULT changed = VariantChangeTypeEx(&result, &source, locale, 0, type);
    if (FAILED(changed)) return {changed};
    return Number(type == VT_I2 ? result.iVal : result.lVal);
}

TEST(TextToNumber, EndsAtAnEmbeddedZero) {
    for (const VARTYPE type : {VARTYPE{VT_I4}, VARTYPE{VT_BSTR}}) {
        Variant source;
        source.vt = VT_BSTR;
        source.bstrVal = SysAllocStringLen(L"12\0x", 4);
        Variant result;
        ASSERT_EQ(S_OK, VariantChangeTypeEx(&result, &source, kEnglish, 0, type));
        if (type == VT_I4) {
            EXPECT_EQ(12, result.lVal);
        } else {
            EXPECT_EQ(std::wstring(L"12\0x", 4), result.Text()) << "a copy keeps all of it";
        }
    }
}

TEST(TextToNumber, FollowsTheRulesOfEveryType) {
    struct Case {
        const wchar_t* text;
        Outcome i4;
        Outcome i2;
        LCID locale = kEnglish;
    };
    const Outcome& tm = kMismatch;
    const Outcome& ov = kOverflow;
    const auto n = Number;
    const Case cases[] = {
        {L"12", n(12), n(12)},
        {L"\t 12\n", n(12), n(12)},
        {L"- 12", n(-12), n(-12)},
        {L"12-", n(-12), n(-12)},
        {L"( 12 )", n(-12), n(-12)},
        {L"+-5", n(-5), n(-5)},
        {L"--5", tm, tm},
        {L"$5", n(5), n(5)},
        // Halves go to the even neighbour.
        {L"0.5", n(0), n(0)},
        {L"1.5", n(2), n(2)},
        {L"2.5", n(2), n(2)},
        {L"-2.5", n(-2), n(-2)},
        // Separators are the locale's; groups may have any size.
        {L"1,0,00", n(1000), n(1000)},
        {L"1,5", n(15), n(15)},
        {L"1,5", n(2), n(2), kGerman},
        {L"1.234,5", n(1234), n(1234), kGerman},
        {L",5", tm, tm},
        {L"5.", n(5), n(5)},
        {L"1.2.3", tm, tm},
        {L"1 000", tm, tm},
        {L"1E-1", n(0), n(0)},
        {L"1e", tm, tm},
        // Bits, up to the sign bit of the type, whatever sign stands in front.
        {L"&H10", n(16), n(16)},
        {L"&HFFFF", n(65535), n(-1)},
        {L"-&H10", n(16), n(16)},
        {L"0x10", tm, tm},
        {L"32768", n(32768), ov},
        {L"65537", n(65537), ov},
        {L"2147483647.4", n(2147483647), ov},
        {L"2147483647.5", ov, ov},
        {L"-2147483648.5", n(-2147483648.0), ov},
        {L"-2147483649", ov, ov},
        {L"", tm, tm},
        {L"12abc", tm, tm},
        {L"true", tm, tm},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(::testing::PrintToString(std::wstring(c.text)) + (c.locale == kGerman ? " (German)" : ""));
        EXPECT_EQ(c.i4, Convert(c.text, c.locale, VT_I4));
        EXPECT_EQ(c.i2, Convert(c.text, c.locale, VT_I2));
    }
}

TEST(VariantConversion, TellsTypesThatCannotMeetFromTypesThatDoNotExist) {
    const VARTYPE badType = 99;
    struct Case {
        VARTYPE from;
        VARTYPE to;
        HRESULT result;
    };
    const Case cases[] = {
        {VT_EMPTY, VT_I4, S_OK},
        {VT_EMPTY, VT_BSTR, S_OK},
        {VT_NULL, VT_I4, DISP_E_TYPEMISMATCH},
        {VT_NULL, VT_BSTR, DISP_E_TYPEMISMATCH},
        {VT_ERROR, VT_BSTR, DISP_E_TYPEMISMATCH},
        {VT_UNKNOWN, VT_I4, DISP_E_TYPEMISMATCH},
        {VT_I4, VT_VARIANT, DISP_E_TYPEMISMATCH},
        {VT_I4, badType, DISP_E_BADVARTYPE},
        {badType, VT_I4, DISP_E_BADVARTYPE},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::to_string(c.from) + " to " + std::to_string(c.to));
        VARIANT source{};
        source.vt = c.from;
        Variant result(L"kept on failure");
        EXPECT_EQ(c.result, VariantChangeType(&result, &source, 0, c.to));
        EXPECT_EQ(SUCCEEDED(c.result) ? c.to : static_cast<VARTYPE>(VT_BSTR), result.vt);
    }
}

TEST(VariantConversion, WorksInPlaceAndKeepsAFailedSource) {
    Variant value(L"12");
    EXPECT_EQ(S_OK, VariantChangeType(&value, &value, 0, VT_I4));
    EXPECT_EQ(12, value.lVal);
    Variant word(L"word");
    EXPECT_EQ(DISP_E_TYPEMISMATCH, VariantChangeType(&word, &word, 0, VT_I4));
    EXPECT_EQ(L"word", word.Text());
}

}  // namespace
