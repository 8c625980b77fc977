// Items that hold a unit of measurement (type 14): the entries come from the host's unit administration.
#include "host/libraries/error_display.h"
#include "host/libraries/units.h"
#include "qvclient/qvsettingsdialog/model/item_row.h"
#include "qvclient/qvsettingsdialog/model/item_walk.h"

namespace {

constexpr int kNoDatabase = 2537;
constexpr int kNoCategory = 2548;

void ShowUnitError(int number, std::wstring_view message) {
    XQVError::DisplayErrorMessageBox(L"QVSettingsDialog", L"XConstructionSet::DrawUnitComboBox", number,
                                     CoTranslateText(message), {});
}

}  // namespace

void XConstructionSet::DrawUnitComboBox(std::wstring_view name, const AttributeMap& attributes) {
    ItemDraft draft;
    if (const auto text = FindDefault(attributes)) {
        draft.defaultText = *text;
        draft.value = *text;
        draft.hasDefault = true;
    }

    std::wstring_view categoryName = L"UA_UNDEF";
    const auto own = [&](AttributeName attribute, std::wstring_view, std::wstring_view text) {
        if (attribute == AttributeName::UnitCategory) categoryName = text;
        return attribute == AttributeName::UnitCategory || attribute == AttributeName::Default ? Handling::Done
                                                                                               : Handling::Common;
    };
    // deliberate: blanks are kept, as for lists.
    if (!WalkAttributes(*this, attributes, Blanks::Keep, draft, TextReader(*this, name, draft), own)) return;

    const XUAAdmin* database = XUAAdminStd::XUAAdminDefault();
    if (database == nullptr) return ShowUnitError(kNoDatabase, L"No unit-database!");
    const XUACategory* category = database->FindCategory(categoryName);
    if (category == nullptr) return ShowUnitError(kNoCategory, L"Unit category not found!");
    const XLMTranslDict* dictionary = XUAAdminStd::XUATranslDictDefault();

    std::vector<const XUAUnit*> units;
    category->GetUnits(units);
    std::wstring selected;
    std::vector<XLayout::ColumnItem> entries;
    entries.reserve(units.size());
    int place = 0;
    for (const XUAUnit* unit : units) {
        // deliberate: places are counted, not entries; an empty place leaves a gap in the numbers.
        const int index = place++;
        if (unit == nullptr) continue;
        const std::wstring& unitName = unit->GetName();
        if (unitName == draft.value) selected = draft.value;
        entries.emplace_back(dictionary != nullptr ? dictionary->StringTranslate(unitName) : unitName, unitName, index,
                             nullptr);
    }

    auto row = qv::MakeRow(draft, MakeItemKey(name), std::move(selected),
                           {.dataType = XLayout::kText, .controlType = XLayout::kComboBox});
    row->SetColumnItemList(std::move(entries));
    AddPlainRow(std::move(row), draft);
}
