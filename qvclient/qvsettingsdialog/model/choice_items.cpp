// Items whose row holds a text or a choice: check boxes (type 0), texts (type 3) and one of several entries (type 4).
#include "host/libraries/message_box.h"
#include "qvclient/qvsettingsdialog/model/item_row.h"
#include "qvclient/qvsettingsdialog/model/item_walk.h"

namespace {

constexpr std::int32_t kLongestText = 1024;

bool IsLongerThan(std::wstring_view text, std::int32_t maximum) {
    return maximum < 0 || text.size() > static_cast<std::size_t>(maximum);
}

void Cut(std::wstring& text, std::int32_t maximum) {
    text.resize(maximum < 0 ? 0 : static_cast<std::size_t>(maximum));
}

}  // namespace

void XConstructionSet::DrawCheckBox(std::wstring_view name, const AttributeMap& attributes) {
    ItemDraft draft;
    const auto readValue = [&](SESSIONDATATYPE scope) {
        bool stored = false;
        if (!ReadBoolean(name, scope, stored)) return false;
        draft.value = stored ? L"1" : L"0";
        return true;
    };
    if (!WalkAttributes(*this, attributes, Blanks::Trim, draft, readValue, kNothingOwn)) return;
    AddPlainRow(qv::MakeRow(draft, MakeItemKey(name), std::move(draft.value),
                            {.dataType = XLayout::kBoolean, .controlType = XLayout::kCheckBox}),
                draft);
}

void XConstructionSet::DrawStringEdit(std::wstring_view name, const AttributeMap& attributes) {
    ItemDraft draft;
    std::int32_t maximum = kLongestText;
    const auto own = [&](AttributeName attribute, std::wstring_view, std::wstring_view text) {
        if (attribute != AttributeName::MaxStringLength) return Handling::Common;
        // deliberate: 0 and negative lengths are taken as they are and leave no text at all.
        maximum = qv::IntegerOr(text, kLongestText);
        return Handling::Done;
    };
    if (!WalkAttributes(*this, attributes, Blanks::Trim, draft, TextReader(*this, name, draft), own)) return;

    if (IsLongerThan(draft.value, maximum)) {
        CoInfoBox(GetActiveWindow(), draft.label,
                  qv::Format(L"String '%s' will be truncated to stringlen %d!", draft.value, maximum), 0);
        Cut(draft.value, maximum);
    }
    if (IsLongerThan(draft.defaultText, maximum)) Cut(draft.defaultText, maximum);
    AddPlainRow(qv::MakeRow(draft, MakeItemKey(name), std::move(draft.value),
                            {.dataType = XLayout::kText, .controlType = XLayout::kEdit, .limit = maximum}),
                draft);
}

void XConstructionSet::DrawListComboBox(std::wstring_view name, const AttributeMap& attributes) {
    ItemDraft draft;
    if (const auto text = FindDefault(attributes)) {
        draft.defaultText = *text;
        draft.value = *text;
        draft.hasDefault = true;
    }

    std::wstring selected;
    std::vector<XLayout::ColumnItem> entries;
    const auto own = [&](AttributeName attribute, std::wstring_view lowerName, std::wstring_view text) {
        if (attribute == AttributeName::Default) return Handling::Done;
        if (!IsListEntry(lowerName)) return Handling::Common;
        const auto entry = SplitListEntry(text);
        if (!entry) return Handling::Drop;
        // An entry meets the value as it is known by now: a stored value is, for names that sort after "globaldata".
        if (entry->data == draft.value) selected = entry->data;
        entries.emplace_back(CoTranslateText(entry->text), std::wstring(entry->data), static_cast<int>(entries.size()),
                             nullptr);
        return Handling::Done;
    };
    // deliberate: blanks are kept here, so that entries keep theirs.
    if (!WalkAttributes(*this, attributes, Blanks::Keep, draft, TextReader(*this, name, draft), own)) return;

    auto row = qv::MakeRow(draft, MakeItemKey(name), std::move(selected),
                           {.dataType = XLayout::kText, .controlType = XLayout::kComboBox});
    row->SetColumnItemList(std::move(entries));
    AddPlainRow(std::move(row), draft);
}
