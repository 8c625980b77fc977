// The one walk over an item's attributes that every typed loader shares: it fills an ItemDraft with what all kinds have
// in common and shows the loader every attribute first, so that a kind says only where it departs from the others.
#pragma once

#include "base/text.h"
#include "host/libraries/translation.h"
#include "qvclient/qvsettingsdialog/model/item_source.h"
#include "qvclient/qvsettingsdialog/model/item_types.h"

namespace qv {

// What a loader makes of an attribute that the walk shows it.
enum class Handling {
    Common,  // to be handled as for every kind
    Done,
    Drop,  // the item is not to be created
};

// Walks the attributes that the item's type knows once, in their order. own(attribute, text) is asked first;
// readValue(scope) reads the stored value into the draft and is false, with the draft unchanged, when there is none.
// Returns false when the item is dropped; the walk ends there.
template <class ReadValue, class Own>
[[nodiscard]] bool WalkAttributes(const Definition& definition, ItemDraft& draft, const ReadValue& readValue,
                                  const Own& own) {
    const bool trims = definition.type.blanks == Blanks::Trim;
    for (const Attribute& pair : definition.attributes.All()) {
        const AttributeName attribute = trims ? pair.withoutBlanks : pair.asWritten;
        if (!definition.type.knows.Has(attribute)) continue;
        const std::wstring_view text = trims ? TrimView(pair.text) : pair.text;
        switch (own(attribute, text)) {
            case Handling::Drop:
                return false;
            case Handling::Done:
                continue;
            case Handling::Common:
                break;
        }
        switch (attribute) {
            case AttributeName::Label:
                draft.label = CoTranslateText(text);
                break;
            case AttributeName::Default:
                draft.defaultText = text;
                draft.hasDefault = true;
                // A stored value wins, whichever of the two attributes comes first.
                if (!draft.valueRead) draft.value = draft.defaultText;
                break;
            case AttributeName::OrderNumber:
                draft.order = LeadingInteger(text);
                break;
            case AttributeName::PageNumber:
                draft.page = LeadingInteger(text);
                break;
            case AttributeName::FunctionGroup:
                if (const auto granted = definition.source.IsGroupGranted(LeadingInteger(text)))
                    draft.disabled = !*granted;
                break;
            case AttributeName::GlobalData:
                if (const auto scope = ItemSource::FindScope(LeadingInteger(text))) {
                    draft.scope = *scope;
                    if (readValue(*scope)) draft.valueRead = true;
                }
                break;
            default:
                break;
        }
    }
    return true;
}

// For kinds without attributes of their own.
inline constexpr auto kNothingOwn = [](AttributeName, std::wstring_view) { return Handling::Common; };

// readValue of the kinds whose stored value is shown as it is.
[[nodiscard]] inline auto TextReader(const Definition& definition, ItemDraft& draft) {
    return [&definition, &draft](SESSIONDATATYPE scope) {
        std::wstring stored;
        if (!definition.source.ReadString(definition.name, scope, stored)) return false;
        draft.value = std::move(stored);
        return true;
    };
}

// Gives the item the row of its type, without a value; takes the draft's label over.
void FillItem(const Definition& definition, ItemDraft& draft, LoadedItem& item);
// The same for an item whose value the layout's own control shows, with value and default.
void FillPlainItem(const Definition& definition, ItemDraft& draft, LoadedItem& item, std::wstring shown);

}  // namespace qv
