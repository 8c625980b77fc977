// Items whose row holds a text or a choice: check boxes (type 0), texts (type 3) and one of several entries (type 4).
#include "host/libraries/message_box.h"
#include "qvclient/qvsettingsdialog/model/item_loaders.h"
#include "qvclient/qvsettingsdialog/model/item_walk.h"

namespace qv {

namespace {

constexpr std::int32_t kLongestText = 1024;

bool IsLongerThan(std::wstring_view text, std::int32_t maximum) {
    return maximum < 0 || text.size() > static_cast<std::size_t>(maximum);
}

void Cut(std::wstring& text, std::int32_t maximum) {
    text.resize(maximum < 0 ? 0 : static_cast<std::size_t>(maximum));
}

}  // namespace

bool LoadCheckBox(const Definition& definition, LoadedItem& item) {
    ItemDraft draft;
    const auto readValue = [&](SESSIONDATATYPE scope) {
        bool stored = false;
        if (!definition.source.ReadBoolean(definition.name, scope, stored)) return false;
        draft.value = stored ? L"1" : L"0";
        return true;
    };
    if (!WalkAttributes(definition, draft, readValue, kNothingOwn)) return false;
    FillPlainItem(definition, draft, item, std::move(draft.value));
    return true;
}

bool LoadStringEdit(const Definition& definition, LoadedItem& item) {
    ItemDraft draft;
    std::int32_t maximum = kLongestText;
    const auto own = [&](AttributeName attribute, std::wstring_view text) {
        if (attribute != AttributeName::MaxStringLength) return Handling::Common;
        // deliberate: 0 and negative lengths are taken as they are and leave no text at all.
        maximum = IntegerOr(text, kLongestText);
        return Handling::Done;
    };
    if (!WalkAttributes(definition, draft, TextReader(definition, draft), own)) return false;

    if (IsLongerThan(draft.value, maximum)) {
        CoActiveInfoBox(draft.label, Format(L"String '%s' will be truncated to stringlen %d!", draft.value, maximum));
        Cut(draft.value, maximum);
    }
    if (IsLongerThan(draft.defaultText, maximum)) Cut(draft.defaultText, maximum);
    FillPlainItem(definition, draft, item, std::move(draft.value));
    item.row->limit = maximum;
    return true;
}

bool LoadListComboBox(const Definition& definition, LoadedItem& item) {
    ItemDraft draft;
    TakeDefaultFirst(definition.attributes, draft);

    std::wstring selected;
    std::vector<LayoutRows::ColumnItem> entries;
    const auto own = [&](AttributeName attribute, std::wstring_view text) {
        if (attribute == AttributeName::Default) return Handling::Done;
        if (attribute != AttributeName::ListEntry) return Handling::Common;
        const auto entry = SplitListEntry(text);
        if (!entry) return Handling::Drop;
        // An entry meets the value as it is known by now: a stored value is, for names that sort after "globaldata".
        if (entry->data == draft.value) selected = entry->data;
        entries.emplace_back(CoTranslateText(entry->text), std::wstring(entry->data), static_cast<int>(entries.size()),
                             nullptr);
        return Handling::Done;
    };
    if (!WalkAttributes(definition, draft, TextReader(definition, draft), own)) return false;

    FillPlainItem(definition, draft, item, std::move(selected));
    item.row->SetColumnItemList(std::move(entries));
    return true;
}

}  // namespace qv
