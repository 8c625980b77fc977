// The two operations on what a page shows: the check of its inputs before anything is stored, and the way back to its
// defaults.
#include "base/text.h"
#include "qvclient/qvsettingsdialog/model/construction_set.h"
#include "qvclient/qvsettingsdialog/model/range.h"

namespace {

// As the message shows it: without decimals when there are none.
std::wstring NumberInMessage(double value) {
    // A number beyond 64 bits counts as having a fraction: converting it would be undefined.
    constexpr double kBeyond = 9223372036854775808.0;
    if (value >= -kBeyond && value < kBeyond) {
        const auto whole = static_cast<std::int64_t>(value);
        // deliberate: only the low 32 bits are shown.
        if (static_cast<double>(whole) == value) return qv::IntegerToText(static_cast<std::int32_t>(whole));
    }
    return qv::DoubleToText(value, L"%g");
}

}  // namespace

bool XConstructionSet::ValidateInputs(SettingsPage& page, PageRecord& record) {
    for (const qv::LayoutRows::ColumnReference& reference : page.GetLayout().GetReferenceList()) {
        const RangePair* range = record.SharedOf(reference.row).range;
        if (range == nullptr) continue;
        const double value = qv::TextToDouble(reference.text);
        if (CheckUpperBound(*range, value) && CheckLowerBound(*range, value)) continue;
        const std::wstring reason =
            qv::Format(L"Data out of range !\nRange[%s, %s]\nActValue = %s\nCorrect your inputs",
                       NumberInMessage(range->first), NumberInMessage(range->second), NumberInMessage(value));
        // A row whose control could not be created has no input that could be corrected, and is never stored.
        if (page.RefuseInput(reference.row, reason)) return false;
    }

    for (const SpecialControlKind kind : {SpecialControlKind::Path, SpecialControlKind::File}) {
        for (const auto& control : record.Controls(kind)) {
            auto* chooser = dynamic_cast<ValidatedControl*>(control.get());
            if (chooser == nullptr || !control->HasWindow() || chooser->ValidateValue()) continue;
            page.RefuseInput(*control);
            return false;
        }
    }
    return true;
}

void XConstructionSet::SetDefaults(qv::LayoutRows& layout, PageRecord& record) {
    for (const Item& item : record.Items()) {
        if (!item.facts.defaultText) continue;
        const std::wstring& itemKey = item.row.name;
        std::wstring text = *item.facts.defaultText;
        const qv::LayoutRows::Column* row = layout.GetColumn(itemKey);
        if (row == nullptr || !row->IsFreeText()) qv::NormaliseSeparator(text);
        layout.UpdateControl(itemKey, text, nullptr, {});
    }
    for (const SpecialControlKind kind : record.ControlKinds()) {
        for (const auto& control : record.Controls(kind)) {
            if (control->HasWindow() && !control->IsReadOnly() && control->HasDefault()) control->ShowDefaultValue();
        }
    }
}
