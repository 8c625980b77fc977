// Storing a page: first what its rows show, then what its special controls hold, each into its own data scope.
#include "qvclient/qvsettingsdialog/model/construction_set.h"
#include "qvclient/qvsettingsdialog/model/range.h"
#include "qvclient/qvsettingsdialog/model/settings_path.h"

namespace {

// The one item that may not be stored empty: hosts read it as a number.
constexpr std::wstring_view kRecentItems = L"common/numberofrecentitems";

}  // namespace

bool XConstructionSet::StoreSettings(SettingsPage& page, PageRecord& record) {
    if (!m_values) return false;

    // deliberate: an item without a scope of its own is stored where the one before it was.
    SESSIONDATATYPE scope = SDT_userData;
    const auto take = [&scope](const SESSIONDATATYPE* own) {
        if (own != nullptr) scope = *own;
    };

    // The host may take the windows away while it writes.
    for (qv::LayoutRows::ColumnReference& reference : page.GetLayout().GetReferenceList()) {
        if (!page.IsThere()) return true;
        if (reference.excluded) continue;
        std::wstring& text = reference.text;
        if (text.empty() && reference.name == kRecentItems) text = L"0";
        if (!reference.row.IsFreeText()) qv::NormaliseSeparator(text);
        take(record.SharedOf(reference.row).scope);
        if (const auto place = qv::SplitItemKey(reference.name)) {
            WriteAndSave(place->key, place->name, text, scope, page);
        }
    }

    for (const SpecialControlKind kind : record.ControlKinds()) {
        for (const auto& control : record.Controls(kind)) {
            if (!control->HasWindow()) continue;
            const std::wstring text = control->GetValue();
            if (control->IsReadOnly()) continue;
            std::wstring key;
            std::wstring name;
            if (!control->GetStorageKey(key, name)) continue;
            take(record.FindScope(key + L'/' + name));
            WriteAndSave(key, name, text, scope, page);
        }
    }
    return true;
}

void XConstructionSet::WriteAndSave(std::wstring_view key, std::wstring_view valueName, std::wstring_view text,
                                    SESSIONDATATYPE scope, SettingsPage& page) {
    const qv::Bstr keyText(key);
    const qv::Bstr name(valueName);
    const qv::Variant value(text);
    // deliberate: a refused write is silent; only a write that does not last is worth a word.
    if (m_values->Write(keyText.Get(), name.Get(), value.Get(), scope) != S_OK) return;
    if (m_values->Save(keyText.Get(), name.Get(), scope) == S_OK) return;
    page.ReportFailedSave(
        scope == m_controlPath
            ? L"Can't store data.\nPossibly user hasn't write access to registry key HKEY_LOCAL_MACHINE"
            : L"Can't store data.");
}
