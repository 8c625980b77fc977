// Items whose value a control of their own holds: checked lists (type 5), passwords (6), folders (7), colours (8),
// files (9) and buttons (10 to 13). Their rows are placeholders; the controls keep value, default and where they are
// stored.
#include "qvclient/qvsettingsdialog/model/item_loaders.h"
#include "qvclient/qvsettingsdialog/model/item_walk.h"
#include "qvclient/qvsettingsdialog/model/settings_path.h"

namespace qv {

namespace {

SpecialItem& StartControl(const ItemType& type, LoadedItem& item) {
    SpecialItem& control = item.control.emplace();
    control.kind = type.kind.value();
    control.typeCode = type.code;
    return control;
}

void FillControlItem(const Definition& definition, ItemDraft& draft, LoadedItem& item) {
    SpecialItem& control = *item.control;
    control.hasDefault = draft.hasDefault;
    control.readOnly = draft.disabled;
    // Those that may have something to say about their value say it under their label.
    if (definition.type.knows.Has(AttributeName::CheckPath)) control.label = draft.label;
    FillItem(definition, draft, item);
    if (const auto place = SplitItemKey(item.row->name)) {
        control.key = place->key;
        control.name = place->name;
    }
}

}  // namespace

bool LoadCheckedListBox(const Definition& definition, LoadedItem& item) {
    SpecialItem& control = StartControl(definition.type, item);
    ItemDraft draft;
    if (const auto text = FindDefault(definition.attributes)) {
        ItemSource::SplitStringList(*text, control.defaultKeys);
        draft.hasDefault = true;
    }
    control.keys = control.defaultKeys;

    const auto readValue = [&](SESSIONDATATYPE scope) {
        return definition.source.ReadStringList(definition.name, scope, control.keys);
    };
    const auto own = [&](AttributeName attribute, std::wstring_view text) {
        if (attribute == AttributeName::Default) return Handling::Done;
        if (attribute != AttributeName::ListEntry) return Handling::Common;
        const auto entry = SplitListEntry(text);
        if (!entry) return Handling::Drop;
        control.entries.try_emplace(std::wstring(entry->data), CoTranslateText(entry->text));
        return Handling::Done;
    };
    if (!WalkAttributes(definition, draft, readValue, own)) return false;
    FillControlItem(definition, draft, item);
    return true;
}

bool LoadTextControl(const Definition& definition, LoadedItem& item) {
    SpecialItem& control = StartControl(definition.type, item);
    ItemDraft draft;
    const auto own = [&](AttributeName attribute, std::wstring_view text) {
        if (attribute == AttributeName::Label && control.kind == SpecialControlKind::Button) control.caption = text;
        if (attribute != AttributeName::CheckPath) return Handling::Common;
        control.checkPath = LeadingInteger(text) == 1;
        return Handling::Done;
    };
    if (!WalkAttributes(definition, draft, TextReader(definition, draft), own)) return false;
    control.value = std::move(draft.value);
    control.defaultText = std::move(draft.defaultText);
    FillControlItem(definition, draft, item);
    return true;
}

}  // namespace qv
