// The one walk over an item's attributes that every typed loader shares: it fills an ItemDraft with what all kinds have
// in common and shows the loader every attribute first, so that a kind says only where it departs from the others.
#pragma once

#include "framework/text.h"
#include "host/libraries/translation.h"
#include "qvclient/qvsettingsdialog/model/construction_set.h"

// Whether blanks around attribute names and texts count.
enum class Blanks { Trim, Keep };

// What a loader makes of an attribute that the walk shows it.
enum class Handling {
    Common,  // to be handled as for every kind
    Done,
    Drop,  // the item is not to be created
};

// Walks the attributes once, in their order. own(attribute, lower-case name, text) is asked first; readValue(scope)
// reads the stored value into the draft and is false, with the draft unchanged, when there is none. Returns false when
// the item is dropped; the walk ends there.
template <class ReadValue, class Own>
[[nodiscard]] bool WalkAttributes(XConstructionSet& model, const AttributeMap& attributes, Blanks blanks,
                                  ItemDraft& draft, const ReadValue& readValue, const Own& own) {
    for (const Attribute& pair : attributes) {
        const std::wstring_view name = blanks == Blanks::Trim ? qv::TrimView(pair.name) : pair.name;
        const std::wstring_view text = blanks == Blanks::Trim ? qv::TrimView(pair.text) : pair.text;
        const AttributeName attribute = FindAttributeName(name);
        switch (own(attribute, name, text)) {
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
                draft.order = qv::LeadingInteger(text);
                break;
            case AttributeName::PageNumber:
                draft.page = qv::LeadingInteger(text);
                break;
            case AttributeName::FunctionGroup:
                if (const auto granted = model.IsGroupGranted(qv::LeadingInteger(text))) draft.disabled = !*granted;
                break;
            case AttributeName::GlobalData:
                if (const auto scope = model.FindScope(qv::LeadingInteger(text))) {
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
inline constexpr auto kNothingOwn = [](AttributeName, std::wstring_view, std::wstring_view) {
    return Handling::Common;
};

// readValue of the kinds whose stored value is shown as it is.
[[nodiscard]] inline auto TextReader(XConstructionSet& model, std::wstring_view definitionName, ItemDraft& draft) {
    return [&model, definitionName, &draft](SESSIONDATATYPE scope) {
        std::wstring stored;
        if (!model.ReadString(definitionName, scope, stored)) return false;
        draft.value = std::move(stored);
        return true;
    };
}
