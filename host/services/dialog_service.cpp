#include "host/services/dialog_service.h"

#include <array>

#include "base/com_guard.h"
#include "base/text.h"
#include "host/libraries/translation.h"
#include "host/services/text_dialogs.h"

namespace qv {
namespace {

// The text of an in-out argument, replaced as its owner expects: the new one is there before the old one goes.
void Replace(BSTR& value, std::wstring_view text) {
    Bstr fresh(text);
    SysFreeString(value);
    value = fresh.Detach();
}

HRESULT StatusOf(INT_PTR dialogResult) {
    return dialogResult == IDOK ? S_OK : dialogResult == -1 ? E_FAIL : S_FALSE;
}

}  // namespace

std::vector<std::wstring> SplitChoices(std::wstring_view text) {
    std::vector<std::wstring> entries;
    while (!text.empty()) {
        const std::size_t end = text.find_first_of(L"|\r\n");
        if (const std::wstring_view entry = text.substr(0, end); !entry.empty()) entries.emplace_back(entry);
        if (end == std::wstring_view::npos) break;
        text.remove_prefix(end + 1);
    }
    return entries;
}

ComPtr<HostDialogService> DialogService::Create() {
    return {new DialogService};
}

HRESULT DialogService::QueryInterface(REFIID iid, void** object) {
    static const std::array<InterfaceEntry, 1> table{
        {{&IID_HostDialogService, InterfaceOffset<DialogService, HostDialogService>()}}};
    return QueryInterfaceTable(this, table, iid, object);
}

HRESULT DialogService::EditText(BSTR argument, BSTR* value) {
    if (value == nullptr) return E_POINTER;
    return Guarded([&] {
        TextDialog dialog(CoTranslateText(L"Edit text"), TextOf(argument), TextDialog::Mode::Edit);
        const HRESULT status = StatusOf(dialog.DoModal());
        if (status == S_OK) Replace(*value, dialog.Text());
        return status;
    });
}

HRESULT DialogService::ChooseText(BSTR argument, BSTR* value, LONG number) {
    if (value == nullptr) return E_POINTER;
    return Guarded([&] {
        const std::vector<std::wstring> entries = SplitChoices(TextOf(argument));
        if (entries.empty()) return S_FALSE;
        ChoiceDialog dialog(CoTranslateText(L"Choose"), entries, static_cast<int>(number));
        const HRESULT status = StatusOf(dialog.DoModal());
        if (status != S_OK) return status;
        const auto chosen = static_cast<std::size_t>(dialog.Chosen());
        std::wstring text = entries[chosen];
        for (std::size_t i = 0; i < entries.size(); ++i) {
            if (i != chosen) text += L"|" + entries[i];
        }
        Replace(*value, text);
        return status;
    });
}

HRESULT DialogService::ViewText(BSTR argument, BSTR*) {
    return Guarded([&] {
        TextDialog dialog(CoTranslateText(L"View text"), TextOf(argument), TextDialog::Mode::View);
        return dialog.DoModal() == -1 ? E_FAIL : S_OK;
    });
}

HRESULT DialogService::PlaceBeside(BSTR argument, LONG frame) {
    return Guarded([&] {
        TextDialog dialog(CoTranslateText(L"Details"), TextOf(argument), TextDialog::Mode::View,
                          reinterpret_cast<HWND>(static_cast<LONG_PTR>(frame)));
        return dialog.DoModal() == -1 ? E_FAIL : S_OK;
    });
}

}  // namespace qv
