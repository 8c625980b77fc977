// Items that hold numbers: integers (type 1) and floating-point numbers (type 2). A value outside its range is reported
// when it is loaded and the default, or the lower bound, is shown instead; the stored value stays until the user
// confirms.
#include <algorithm>
#include <limits>

#include "host/libraries/message_box.h"
#include "qvclient/qvsettingsdialog/model/item_loaders.h"
#include "qvclient/qvsettingsdialog/model/item_walk.h"

namespace qv {

namespace {

using IntegerLimits = std::numeric_limits<std::int32_t>;

// deliberate: one tenth of the largest double. Bounds as wide as that still convert after rounding.
constexpr double kWidestBound = 1.7976931348623158e+307;
constexpr int kRealDigits = 9;
constexpr int kRealDecimals = 5;

void CorrectInteger(ItemDraft& draft, std::int32_t lower, std::int32_t upper) {
    const auto outside = [lower, upper](std::wstring_view text) {
        const std::int64_t number = CodePageInteger(text);
        return number < lower || number > upper;
    };
    if (!outside(draft.value)) return;
    CoActiveInfoBox(
        draft.label,
        Format(L"Data out of range ! \nActValue = %s  DefaultValue = %s\nDefined Range[%d, %d]\nDefaultvalue "
               L"or Lowerbound will be displayed.",
               draft.value, draft.defaultText, lower, upper));
    if (outside(draft.defaultText)) draft.defaultText = IntegerToText(lower);
    draft.value = draft.defaultText;
}

void CorrectReal(ItemDraft& draft, const RangePair& range) {
    const auto outside = [&range](double number) {
        return !CheckLowerBound(range, number) || !CheckUpperBound(range, number);
    };
    const double value = TextToDouble(draft.value);
    if (!outside(value)) return;
    const double defaultNumber = TextToDouble(draft.defaultText);
    CoActiveInfoBox(
        draft.label,
        Format(L"Data out of range ! \nActValue = %s  DefaultValue = %s\nDefined Range[%g, %g]\nDefaultvalue "
               L"will be displayed.",
               DoubleToText(value, L"%g"), DoubleToText(defaultNumber, L"%g"), range.first, range.second));
    // deliberate: a default above the range falls to the lower bound too, not to the upper one.
    if (outside(defaultNumber)) draft.defaultText = DoubleToText(range.first, L"%g");
    draft.value = draft.defaultText;
}

}  // namespace

bool LoadIntegerEdit(const Definition& definition, LoadedItem& item) {
    ItemDraft draft;
    std::int32_t lower = IntegerLimits::min();
    std::int32_t upper = IntegerLimits::max();

    const auto readValue = [&](SESSIONDATATYPE scope) {
        std::int32_t stored = 0;
        if (!definition.source.ReadInteger(definition.name, scope, stored)) return false;
        draft.value = IntegerToText(stored);
        return true;
    };
    const auto own = [&](AttributeName attribute, std::wstring_view text) {
        switch (attribute) {
            case AttributeName::Default:
                draft.hasDefault = true;
                draft.defaultText = FitsInteger(text) ? text : std::wstring_view(L"0");
                if (!draft.valueRead) draft.value = draft.defaultText;
                return Handling::Done;
            case AttributeName::UpperBound:
                upper = IntegerOr(text, IntegerLimits::max());
                return Handling::Done;
            case AttributeName::LowerBound:
                lower = IntegerOr(text, IntegerLimits::min());
                return Handling::Done;
            default:
                return Handling::Common;
        }
    };
    if (!WalkAttributes(definition, draft, readValue, own)) return false;
    CorrectInteger(draft, lower, upper);

    FillPlainItem(definition, draft, item, std::move(draft.value));
    item.row->lower = lower;
    item.row->upper = upper;
    item.row->limit = std::max(IntegerLength(lower), IntegerLength(upper));
    item.facts.range = RangePair(lower, upper);
    return true;
}

bool LoadDoubleEdit(const Definition& definition, LoadedItem& item) {
    ItemDraft draft;
    RangePair range{-kWidestBound, kWidestBound};

    const auto readValue = [&](SESSIONDATATYPE scope) {
        double stored = 0;
        if (!definition.source.ReadDouble(definition.name, scope, stored)) return false;
        draft.value = FixedToText(stored);
        return true;
    };
    const auto own = [&](AttributeName attribute, std::wstring_view text) {
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
                range.second = TextToDouble(text);
                return Handling::Done;
            case AttributeName::LowerBound:
                range.first = TextToDouble(text);
                return Handling::Done;
            default:
                return Handling::Common;
        }
    };
    if (!WalkAttributes(definition, draft, readValue, own)) return false;
    CorrectReal(draft, range);

    FillPlainItem(definition, draft, item, std::move(draft.value));
    item.row->lowerReal = range.first;
    item.row->upperReal = range.second;
    item.row->limit = kRealDigits;
    item.row->decimals = kRealDecimals;
    item.facts.range = range;
    return true;
}

}  // namespace qv
