// Items whose value is held by a special control of their own: checked lists (type 5), passwords (6), folders (7),
// colours (8), files (9) and buttons (10 to 13). Their rows are placeholders of a fixed size range; the controls keep
// value, default and storage location, and get their windows from the page.
#include "qvclient/qvsettingsdialog/controls/checked_list_box.h"
#include "qvclient/qvsettingsdialog/controls/color_button.h"
#include "qvclient/qvsettingsdialog/controls/dialog_button.h"
#include "qvclient/qvsettingsdialog/controls/password_edit.h"
#include "qvclient/qvsettingsdialog/controls/search_controls.h"
#include "qvclient/qvsettingsdialog/model/item_row.h"
#include "qvclient/qvsettingsdialog/model/item_walk.h"
#include "qvclient/qvsettingsdialog/model/settings_path.h"

namespace {

struct SizeRange {
    int minimum;
    int maximum;
};
struct PlaceholderRow {
    SpecialControlKind kind;
    int controlType;
    int resizeMode;
    SizeRange width;  // pixels at 96 dpi
    SizeRange height;
};
constexpr PlaceholderRow kPlaceholders[] = {
    {SpecialControlKind::CheckedList, XLayout::kCheckList, XLayout::kResizeBoth, {100, 200}, {40, 200}},
    {SpecialControlKind::Password, XLayout::kEdit, XLayout::kResizeWidth, {100, 200}, {24, 24}},
    {SpecialControlKind::Path, XLayout::kEdit, XLayout::kResizeWidth, {100, 200}, {24, 24}},
    {SpecialControlKind::Colour, XLayout::kEdit, XLayout::kResizeFixed, {75, 75}, {23, 23}},
    {SpecialControlKind::File, XLayout::kEdit, XLayout::kResizeWidth, {100, 200}, {24, 24}},
    {SpecialControlKind::Button, XLayout::kEdit, XLayout::kResizeFixed, {100, 100}, {23, 23}},
};

// deliberate: the limit of every password; the cipher's key is as long, and "maxstringlength" changes nothing.
constexpr std::size_t kPasswordLength = 26;

const PlaceholderRow& PlaceholderOf(SpecialControlKind kind) {
    return kPlaceholders[static_cast<std::size_t>(kind) - static_cast<std::size_t>(SpecialControlKind::CheckedList)];
}

// Gives a control its values and where they are kept. value and defaultValue: whatever the control's setters take.
template <class Control, class Value>
void HandOver(Control& control, const ItemDraft& draft, std::wstring_view itemKey, const Value& value,
              const Value& defaultValue) {
    control.SetInitValue(value);
    control.SetReadOnly(draft.disabled);
    // Without a location the control is never stored.
    if (const auto place = qv::SplitItemKey(itemKey)) control.SetStorageKey(place->key, place->name);
    if (draft.hasDefault) {
        control.SetDefaultValue(defaultValue);
    } else {
        control.ClearHasDefault();
    }
}

template <class Control>
void HandOverTexts(Control& control, const ItemDraft& draft, std::wstring_view itemKey) {
    HandOver(control, draft, itemKey, draft.value, draft.defaultText);
}

}  // namespace

void XConstructionSet::AddSpecialRow(SpecialControlKind kind, std::unique_ptr<SpecialControl> control,
                                     std::wstring itemKey, ItemDraft& draft) {
    const PlaceholderRow& shape = PlaceholderOf(kind);
    auto row =
        qv::MakeRow(draft, std::move(itemKey), {},
                    {.dataType = XLayout::kText, .controlType = shape.controlType, .resizeMode = shape.resizeMode});
    row->SetControlWidth(shape.width.minimum, shape.width.maximum);
    row->SetControlHeight(shape.height.minimum, shape.height.maximum);

    PageRecord& record = PageOf(draft.page);
    control->SetLayoutCells({record.AddItem(std::move(row), {.scope = draft.scope, .range = {}, .defaultText = {}})});
    record.AddControl(kind, std::move(control));
}

void XConstructionSet::DrawCheckedListBox(std::wstring_view name, const AttributeMap& attributes) {
    auto control = std::make_unique<XDynCheckedListBox>();
    ItemDraft draft;
    std::vector<std::wstring> defaultKeys;
    if (const auto text = FindDefault(attributes)) {
        SplitStringList(*text, defaultKeys);
        draft.hasDefault = true;
    }
    std::vector<std::wstring> keys = defaultKeys;
    std::map<std::wstring, std::wstring> entries;

    const auto readValue = [&](SESSIONDATATYPE scope) { return ReadStringList(name, scope, keys); };
    const auto own = [&](AttributeName attribute, std::wstring_view lowerName, std::wstring_view text) {
        if (attribute == AttributeName::Default) return Handling::Done;
        if (!IsListEntry(lowerName)) return Handling::Common;
        const auto entry = SplitListEntry(text);
        if (!entry) return Handling::Drop;
        entries.try_emplace(std::wstring(entry->data), CoTranslateText(entry->text));
        return Handling::Done;
    };
    if (!WalkAttributes(*this, attributes, Blanks::Trim, draft, readValue, own)) return;

    std::wstring itemKey = MakeItemKey(name);
    control->SetEntries(std::move(entries));
    HandOver(*control, draft, itemKey, keys, defaultKeys);
    AddSpecialRow(SpecialControlKind::CheckedList, std::move(control), std::move(itemKey), draft);
}

void XConstructionSet::DrawPasswordEdit(std::wstring_view name, const AttributeMap& attributes) {
    auto control = std::make_unique<XDynPasswordEdit>();
    ItemDraft draft;
    if (!WalkAttributes(*this, attributes, Blanks::Trim, draft, TextReader(*this, name, draft), kNothingOwn)) return;

    std::wstring itemKey = MakeItemKey(name);
    control->SetMaxLength(kPasswordLength);
    if (draft.value.size() > kPasswordLength) draft.value.resize(kPasswordLength);
    if (draft.defaultText.size() > kPasswordLength) draft.defaultText.resize(kPasswordLength);
    HandOverTexts(*control, draft, itemKey);
    AddSpecialRow(SpecialControlKind::Password, std::move(control), std::move(itemKey), draft);
}

template <class Chooser>
void XConstructionSet::DrawChooser(SpecialControlKind kind, std::wstring_view name, const AttributeMap& attributes) {
    auto control = std::make_unique<Chooser>();
    ItemDraft draft;
    const auto own = [&](AttributeName attribute, std::wstring_view, std::wstring_view text) {
        if (attribute != AttributeName::CheckPath) return Handling::Common;
        control->SetCheckPath(qv::LeadingInteger(text) == 1);
        return Handling::Done;
    };
    if (!WalkAttributes(*this, attributes, Blanks::Trim, draft, TextReader(*this, name, draft), own)) return;

    std::wstring itemKey = MakeItemKey(name);
    control->SetLabel(draft.label);
    HandOverTexts(*control, draft, itemKey);
    AddSpecialRow(kind, std::move(control), std::move(itemKey), draft);
}

void XConstructionSet::DrawPathCtrl(std::wstring_view name, const AttributeMap& attributes) {
    DrawChooser<XDynFolderSearchCtrl>(SpecialControlKind::Path, name, attributes);
}

void XConstructionSet::DrawFileCtrl(std::wstring_view name, const AttributeMap& attributes) {
    DrawChooser<XDynSearchFileCtrl>(SpecialControlKind::File, name, attributes);
}

void XConstructionSet::DrawColorButton(std::wstring_view name, const AttributeMap& attributes) {
    auto control = std::make_unique<XDynColorBtn>();
    ItemDraft draft;
    if (!WalkAttributes(*this, attributes, Blanks::Trim, draft, TextReader(*this, name, draft), kNothingOwn)) return;

    std::wstring itemKey = MakeItemKey(name);
    HandOverTexts(*control, draft, itemKey);
    AddSpecialRow(SpecialControlKind::Colour, std::move(control), std::move(itemKey), draft);
}

void XConstructionSet::DrawDialogButton(std::wstring_view name, const AttributeMap& attributes, std::int32_t typeCode) {
    auto control = std::make_unique<XDialogButton>(static_cast<unsigned>(typeCode));
    ItemDraft draft;
    const auto own = [&](AttributeName attribute, std::wstring_view, std::wstring_view text) {
        // The button translates its caption itself; the prompt gets the label as usual.
        if (attribute == AttributeName::Label) control->SetCaption(text);
        return Handling::Common;
    };
    if (!WalkAttributes(*this, attributes, Blanks::Trim, draft, TextReader(*this, name, draft), own)) return;

    std::wstring itemKey = MakeItemKey(name);
    HandOverTexts(*control, draft, itemKey);
    AddSpecialRow(SpecialControlKind::Button, std::move(control), std::move(itemKey), draft);
}
