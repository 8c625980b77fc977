#include "qvclient/qvsettingsdialog/controls/special_item.h"

#include <utility>

#include "qvclient/qvsettingsdialog/controls/checked_list_box.h"
#include "qvclient/qvsettingsdialog/controls/color_button.h"
#include "qvclient/qvsettingsdialog/controls/dialog_button.h"
#include "qvclient/qvsettingsdialog/controls/password_edit.h"
#include "qvclient/qvsettingsdialog/controls/search_controls.h"

namespace {

// deliberate: the limit of every password; the cipher's key is as long, and "maxstringlength" changes nothing.
constexpr std::size_t kPasswordLength = 26;

// value and defaultValue: whatever the control's setters take. The control must know by now how it checks them.
template <class Control, class Value>
std::unique_ptr<SpecialControl> Fill(std::unique_ptr<Control> control, const SpecialItem& item, const Value& value,
                                     const Value& defaultValue) {
    control->SetInitValue(value);
    control->SetReadOnly(item.readOnly);
    control->SetStorageKey(item.key, item.name);
    if (item.hasDefault) {
        control->SetDefaultValue(defaultValue);
    } else {
        control->ClearHasDefault();
    }
    return control;
}

template <class Control>
std::unique_ptr<SpecialControl> FillTexts(std::unique_ptr<Control> control, const SpecialItem& item) {
    return Fill(std::move(control), item, item.value, item.defaultText);
}

std::unique_ptr<SpecialControl> MakeCheckedList(SpecialItem& item) {
    auto control = std::make_unique<XDynCheckedListBox>();
    control->SetEntries(std::move(item.entries));
    return Fill(std::move(control), item, item.keys, item.defaultKeys);
}

std::unique_ptr<SpecialControl> MakePassword(SpecialItem& item) {
    auto control = std::make_unique<XDynPasswordEdit>();
    control->SetMaxLength(kPasswordLength);
    for (std::wstring* text : {&item.value, &item.defaultText}) {
        if (text->size() > kPasswordLength) text->resize(kPasswordLength);
    }
    return FillTexts(std::move(control), item);
}

template <class Chooser>
std::unique_ptr<SpecialControl> MakeChooser(SpecialItem& item) {
    auto control = std::make_unique<Chooser>();
    control->SetCheckPath(item.checkPath);
    control->SetLabel(item.label);
    return FillTexts(std::move(control), item);
}

std::unique_ptr<SpecialControl> MakeColour(SpecialItem& item) {
    return FillTexts(std::make_unique<XDynColorBtn>(), item);
}

std::unique_ptr<SpecialControl> MakeButton(SpecialItem& item) {
    auto control = std::make_unique<XDialogButton>(static_cast<unsigned>(item.typeCode));
    if (item.caption) control->SetCaption(*item.caption);  // which translates it
    return FillTexts(std::move(control), item);
}

struct KindRow {
    SpecialControlKind kind;
    std::unique_ptr<SpecialControl> (*make)(SpecialItem&);
};
constexpr KindRow kKinds[] = {
    {SpecialControlKind::CheckedList, MakeCheckedList},
    {SpecialControlKind::Password, MakePassword},
    {SpecialControlKind::Path, MakeChooser<XDynFolderSearchCtrl>},
    {SpecialControlKind::Colour, MakeColour},
    {SpecialControlKind::File, MakeChooser<XDynSearchFileCtrl>},
    {SpecialControlKind::Button, MakeButton},
};

constexpr bool IsEveryKindMade() {
    if (std::size(kKinds) != kSpecialControlKinds) return false;
    for (std::size_t i = 0; i < std::size(kKinds); ++i) {
        if (IndexOf(kKinds[i].kind) != i) return false;
    }
    return true;
}
static_assert(IsEveryKindMade(), "every kind of special control, in the order of the numbers");

}  // namespace

namespace qv {

std::unique_ptr<SpecialControl> MakeSpecialControl(SpecialItem&& item) {
    return kKinds[IndexOf(item.kind)].make(item);
}

}  // namespace qv
