// Items that hold a unit of measurement (type 14): the entries come from the host's unit administration.
#include "host/libraries/error_display.h"
#include "host/libraries/units.h"
#include "qvclient/qvsettingsdialog/model/item_loaders.h"
#include "qvclient/qvsettingsdialog/model/item_walk.h"

namespace qv {

namespace {

constexpr int kNoDatabase = 2537;
constexpr int kNoCategory = 2548;

bool DropUnit(int number, std::wstring_view message) {
    XQVError::DisplayErrorMessageBox(L"QVSettingsDialog", L"XConstructionSet::DrawUnitComboBox", number,
                                     CoTranslateText(message), {});
    return false;
}

}  // namespace

bool LoadUnitComboBox(const Definition& definition, LoadedItem& item) {
    ItemDraft draft;
    TakeDefaultFirst(definition.attributes, draft);

    std::wstring_view categoryName = L"UA_UNDEF";
    const auto own = [&](AttributeName attribute, std::wstring_view text) {
        if (attribute == AttributeName::UnitCategory) categoryName = text;
        return attribute == AttributeName::UnitCategory || attribute == AttributeName::Default ? Handling::Done
                                                                                               : Handling::Common;
    };
    if (!WalkAttributes(definition, draft, TextReader(definition, draft), own)) return false;

    const XUAAdmin* database = XUAAdminStd::XUAAdminDefault();
    if (database == nullptr) return DropUnit(kNoDatabase, L"No unit-database!");
    const XUACategory* category = database->FindCategory(categoryName);
    if (category == nullptr) return DropUnit(kNoCategory, L"Unit category not found!");
    const XLMTranslDict* dictionary = XUAAdminStd::XUATranslDictDefault();

    std::vector<const XUAUnit*> units;
    category->GetUnits(units);
    std::wstring selected;
    std::vector<LayoutRows::ColumnItem> entries;
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

    FillPlainItem(definition, draft, item, std::move(selected));
    item.row->SetColumnItemList(std::move(entries));
    return true;
}

}  // namespace qv
