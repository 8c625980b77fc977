// Storing a page: first what its rows show, then what its special controls hold, each into its own data scope.
#include "framework/text.h"
#include "qvclient/qvsettingsdialog/model/construction_set.h"
#include "qvclient/qvsettingsdialog/model/item_row.h"
#include "qvclient/qvsettingsdialog/model/range.h"
#include "qvclient/qvsettingsdialog/model/settings_path.h"

namespace {

// The one item that may not be stored empty: hosts read it as a number.
constexpr std::wstring_view kRecentItems = L"common/numberofrecentitems";

}  // namespace

bool XConstructionSet::StoreSettings(SettingsPage& page, PageRecord& record) {
    if (!m_sessionData) return false;

    // deliberate: an item without a scope of its own is stored where the one before it was.
    SESSIONDATATYPE scope = SDT_userData;
    const auto takeScopeOf = [&](const std::wstring& itemKey) {
        if (const SESSIONDATATYPE* own = record.FindScope(itemKey)) scope = *own;
    };

    // The host may take the windows away while it writes.
    CWnd& window = page.PageWindow();
    const XLayout& layout = page.GetLayout();
    for (XLayout::ColumnReference& row : layout.GetReferenceList()) {
        if (!window.IsLive()) return true;
        if (row.excluded) continue;
        std::wstring& text = row.text;
        if (text.empty() && row.name == kRecentItems) text = L"0";
        if (!qv::IsTextEdit(layout.GetColumn(row.name))) qv::NormaliseSeparator(text);
        takeScopeOf(row.name);
        if (const auto place = qv::SplitItemKey(row.name)) {
            WriteAndSave(place->key, place->name, text, scope, window);
        }
    }

    for (const SpecialControlKind kind : record.ControlKinds()) {
        for (const auto& control : record.Controls(kind)) {
            // One whose window could not be created, or is gone, shows nothing that the user could have meant.
            if (control->Window().GetSafeHwnd() == nullptr) continue;
            const std::wstring text = control->GetValue();
            if (control->IsReadOnly()) continue;
            std::wstring key;
            std::wstring name;
            if (!control->GetStorageKey(key, name)) continue;
            takeScopeOf(key + L'/' + name);
            WriteAndSave(key, name, text, scope, window);
        }
    }
    return true;
}
