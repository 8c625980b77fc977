#include "qvclient/qvsettingsdialog/model/item_types.h"

#include <algorithm>
#include <iterator>

#include "qvclient/qvsettingsdialog/model/item_loaders.h"

namespace qv {

namespace {

using Rows = LayoutRows;

constexpr std::optional<SpecialControlKind> kPlain;

constexpr AttributeSet kCommon = {AttributeName::Label,      AttributeName::Default,       AttributeName::OrderNumber,
                                  AttributeName::PageNumber, AttributeName::FunctionGroup, AttributeName::GlobalData};
constexpr AttributeSet kNumber = kCommon | AttributeSet{AttributeName::LowerBound, AttributeName::UpperBound};
constexpr AttributeSet kText = kCommon | AttributeSet{AttributeName::MaxStringLength};
constexpr AttributeSet kEntries = kCommon | AttributeSet{AttributeName::ListEntry};
constexpr AttributeSet kPath = kCommon | AttributeSet{AttributeName::CheckPath};
constexpr AttributeSet kUnit = kCommon | AttributeSet{AttributeName::UnitCategory};

constexpr RowShape kCheckBoxRow{Rows::kBoolean, Rows::kCheckBox};
constexpr RowShape kIntegerRow{Rows::kInteger, Rows::kEdit};
constexpr RowShape kDoubleRow{Rows::kDouble, Rows::kEdit};
constexpr RowShape kTextRow{Rows::kText, Rows::kEdit};
constexpr RowShape kChoiceRow{Rows::kText, Rows::kComboBox};
// Placeholders for special controls.
constexpr RowShape kCheckedListRow{Rows::kText, Rows::kCheckList, Rows::kResizeBoth, 100, 200, 40, 200};
constexpr RowShape kFieldRow{Rows::kText, Rows::kEdit, Rows::kResizeWidth, 100, 200, 24, 24};
constexpr RowShape kColourRow{Rows::kText, Rows::kEdit, Rows::kResizeFixed, 75, 75, 23, 23};
constexpr RowShape kButtonRow{Rows::kText, Rows::kEdit, Rows::kResizeFixed, 100, 100, 23, 23};

// deliberate: lists and units keep blanks, so that entries keep theirs.
constexpr ItemType kTypes[] = {
    {0, kPlain, Blanks::Trim, kCommon, kCheckBoxRow, LoadCheckBox},
    {1, kPlain, Blanks::Trim, kNumber, kIntegerRow, LoadIntegerEdit},
    {2, kPlain, Blanks::Trim, kNumber, kDoubleRow, LoadDoubleEdit},
    {3, kPlain, Blanks::Trim, kText, kTextRow, LoadStringEdit},
    {4, kPlain, Blanks::Keep, kEntries, kChoiceRow, LoadListComboBox},
    {5, SpecialControlKind::CheckedList, Blanks::Trim, kEntries, kCheckedListRow, LoadCheckedListBox},
    {6, SpecialControlKind::Password, Blanks::Trim, kCommon, kFieldRow, LoadTextControl},
    {7, SpecialControlKind::Path, Blanks::Trim, kPath, kFieldRow, LoadTextControl},
    {8, SpecialControlKind::Colour, Blanks::Trim, kCommon, kColourRow, LoadTextControl},
    {9, SpecialControlKind::File, Blanks::Trim, kPath, kFieldRow, LoadTextControl},
    // Four variants of one item; the button tells them apart.
    {10, SpecialControlKind::Button, Blanks::Trim, kCommon, kButtonRow, LoadTextControl},
    {11, SpecialControlKind::Button, Blanks::Trim, kCommon, kButtonRow, LoadTextControl},
    {12, SpecialControlKind::Button, Blanks::Trim, kCommon, kButtonRow, LoadTextControl},
    {13, SpecialControlKind::Button, Blanks::Trim, kCommon, kButtonRow, LoadTextControl},
    {14, kPlain, Blanks::Keep, kUnit, kChoiceRow, LoadUnitComboBox},
};

constexpr bool HasEveryKindAType() {
    for (std::size_t kind = 0; kind < kSpecialControlKinds; ++kind) {
        if (std::none_of(std::begin(kTypes), std::end(kTypes),
                         [kind](const ItemType& type) { return type.kind && IndexOf(*type.kind) == kind; })) {
            return false;
        }
    }
    return true;
}
static_assert(HasEveryKindAType(), "a kind of special control that no item type has");

constexpr bool IsCode(std::size_t index) {
    return kTypes[index].code == static_cast<std::int32_t>(index);
}
static_assert(IsCode(0) && IsCode(std::size(kTypes) - 1), "codes stand in their places");

}  // namespace

std::span<const ItemType> ItemTypes() noexcept {
    return kTypes;
}

const ItemType* FindItemType(std::int32_t code) noexcept {
    return code >= 0 && code < static_cast<std::int32_t>(std::size(kTypes)) ? &kTypes[code] : nullptr;
}

}  // namespace qv
