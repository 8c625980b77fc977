// The reference host's dialog service: what its settings dialog's buttons open. An editor for a text of several lines,
// a choice from a list, a viewer, and a note beside the settings dialog. All are modal to the window in use and give it
// its focus back.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/com.h"
#include "base/com_module.h"
#include "host/interfaces/dialog_service.h"

namespace qv {

class DialogService final : public ComObjectRoot, public HostDialogService {
public:
    [[nodiscard]] static ComPtr<HostDialogService> Create();

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return InternalAddRef(); }
    ULONG STDMETHODCALLTYPE Release() override { return InternalRelease(); }
    HRESULT STDMETHODCALLTYPE Reserved1() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reserved2() override { return E_NOTIMPL; }
    // S_FALSE, with value untouched, when the user cancels; E_POINTER for a null value; E_FAIL when the dialog could
    // not be shown.
    HRESULT STDMETHODCALLTYPE EditText(BSTR argument, BSTR* value) override;
    // The argument's entries are separated by "|" or line ends; empty ones are passed over. number: the entry that is
    // selected at first, from 0. The value becomes all entries joined by "|", the chosen one first: it is the choice
    // and the next choice's list. S_FALSE when there is nothing to choose from; else as EditText.
    HRESULT STDMETHODCALLTYPE ChooseText(BSTR argument, BSTR* value, LONG number) override;
    HRESULT STDMETHODCALLTYPE ViewText(BSTR argument, BSTR* value) override;
    HRESULT STDMETHODCALLTYPE PlaceBeside(BSTR argument, LONG frame) override;

private:
    DialogService() = default;
};

// The entries of a choice's text, in their order.
[[nodiscard]] std::vector<std::wstring> SplitChoices(std::wstring_view text);

}  // namespace qv
