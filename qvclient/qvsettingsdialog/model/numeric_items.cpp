// Items that hold numbers: integers (type 1) and floating-point numbers (type 2). A value outside its range is reported
// when it is loaded and the default, or the lower bound, is shown instead; the stored value stays until the user
// confirms.
#include <algorithm>
#include <limits>

#include "host/libraries/message_box.h"
#include "qvclient/qvsettingsdialog/model/item_row.h"
#include "qvclient/qvsettingsdialog/model/item_walk.h"

namespace {

using IntegerLimits = std::numeric_limits<std::int32_t>;

// deliberate: one tenth of the largest double. Bounds as wide as that still convert after rounding.
constexpr double kWidestBound = 1.7976931348623158e+307;
constexpr int kRealDigits = 9;
constexpr int kRealDecimals = 5;

void CorrectInteger(ItemDraft& draft, std::int32_t lower, std::int32_t upper) {
    const auto outside = [lower, upper](std::wstring_view text) {
        const std::int64_t number = qv::CodePageInteger(text);
        return number < lower || number > upper;
    };
    if (!outside(draft.value)) return;
    CoInfoBox(GetActiveWindow(), draft.label,
              qv::Format(L"Data out of range ! \nActValue = %s  DefaultValue = %s\nDefined Range[%d, %d]\nDefaultvalue "
                         L"or Lowerbound will be displayed.",
                         draft.value, draft.defaultText, lower, upper),
              0);
    if (outside(draft.defaultText)) draft.defaultText = qv::IntegerToText(lower);
    draft.value = draft.defaultText;
}

void CorrectReal(ItemDraft& draft, const RangePair& range) {
    const auto outside = [&range](double number) {
        return !CheckLowerBound(range, number) || !CheckUpperBound(range, number);
    };
    const double value = qv::TextToDouble(draft.value);
    if (!outside(value)) return;
    const double defaultNumber = qv::TextToDouble(draft.defaultText);
    CoInfoBox(
        GetActiveWindow(), draft.label,
        qv::Format(L"Data out of range ! \nActValue = %s  DefaultValue = %s\nDefined Range[%g, %g]\nDefaultvalue "
                   L"will be displayed.",
                   qv::DoubleToText(value, L"%g"), qv::DoubleToText(defaultNumber, L"%g"), range.first, range.second),
        0);
    // deliberate: a default above the range falls to the lower bound too, not to the upper one.
    if (outside(defaultNumber)) draft.defaultText = qv::DoubleToText(range.first, L"%g");
    draft.value = draft.defaultText;
}

}  // namespace

void XConstructionSet::DrawIntegerEdit(std::wstring_view name, const AttributeMap& attributes) {
    ItemDraft draft;
    std::int32_t lower = IntegerLimits::min();
    std::int32_t upper = IntegerLimits::max();

    const auto readValue = [&](SESSIONDATATYPE scope) {
        std::int32_t stored = 0;
        if (!ReadInteger(name, scope, stored)) return false;
        draft.value = qv::IntegerToText(stored);
        return true;
    };
    const auto own = [&](AttributeName attribute, std::wstring_view, std::wstring_view text) {
        switch (attribute) {
            case AttributeName::Default:
                draft.hasDefault = true;
                draft.defaultText = qv::FitsInteger(text) ? text : std::wstring_view(L"0");
                if (!draft.valueRead) draft.value = draft.defaultText;
                return Handling::Done;
            case AttributeName::UpperBound:
                upper = qv::IntegerOr(text, IntegerLimits::max());
                return Handling::Done;
            case AttributeName::LowerBound:
                lower = qv::IntegerOr(text, IntegerLimits::min());
                return Handling::Done;
            default:
                return Handling::Common;
        }
    };
    if (!WalkAttributes(*this, attributes, Blanks::Trim, draft, readValue, own)) return;
    CorrectInteger(draft, lower, upper);

    const auto digits = std::max(qv::IntegerToText(lower).size(), qv::IntegerToText(upper).size());
    auto row = qv::MakeRow(draft, MakeItemKey(name), std::move(draft.value),
                           {.dataType = XLayout::kInteger,
                            .controlType = XLayout::kEdit,
                            .lower = lower,
                            .upper = upper,
                            .limit = static_cast<int>(digits)});
    AddPlainRow(std::move(row), draft, RangePair(lower, upper));
}

void XConstructionSet::DrawDoubleEdit(std::wstring_view name, const AttributeMap& attributes) {
    ItemDraft draft;
    RangePair range{-kWidestBound, kWidestBound};

    const auto readValue = [&](SESSIONDATATYPE scope) {
        double stored = 0;
        if (!ReadDouble(name, scope, stored)) return false;
        draft.value = qv::FixedToText(stored);
        return true;
    };
    const auto own = [&](AttributeName attribute, std::wstring_view, std::wstring_view text) {
        switch (attribute) {
            case AttributeName::Default:
                draft.defaultText = text;
                if (!draft.valueRead) draft.value = draft.defaultText;
                return Handling::Done;
            case AttributeName::OrderNumber:
                // deliberate: a floating-point item has a default when it has an order number, not when it has a
                // "default"; definitions in the field rely on which of them the Default button resets.
                draft.hasDefault = true;
                return Handling::Common;
            case AttributeName::UpperBound:
                range.second = qv::TextToDouble(text);
                return Handling::Done;
            case AttributeName::LowerBound:
                range.first = qv::TextToDouble(text);
                return Handling::Done;
            default:
                return Handling::Common;
        }
    };
    if (!WalkAttributes(*this, attributes, Blanks::Trim, draft, readValue, own)) return;
    CorrectReal(draft, range);

    auto row = qv::MakeRow(draft, MakeItemKey(name), std::move(draft.value),
                           {.dataType = XLayout::kDouble,
                            .controlType = XLayout::kEdit,
                            .lowerReal = range.first,
                            .upperReal = range.second,
                            .limit = kRealDigits,
                            .decimals = kRealDecimals});
    AddPlainRow(std::move(row), draft, range);
}
