#include "qvclient/qvsettingsdialog/controls/dialog_button.h"

#include "base/com.h"
#include "host/libraries/translation.h"
#include "qvclient/qvsettingsdialog/controls/component_module.h"
#include "qvclient/qvsettingsdialog/controls/module_host.h"
#include "qvclient/qvsettingsdialog/controls/settings_frame.h"

namespace {

// Null when the host, the object or its interface is not to be had.
qv::ComPtr<HostDialogService> GetDialogService() {
    const auto host = GetModuleHost();
    if (!host) return nullptr;
    const auto object = qv::Receive<qv::ComPtr<IUnknown>>(
        [&](IUnknown** out) { return host->CreateObject(CLSID_HostDialogService, 1, out); });
    if (!object.value) return nullptr;
    return qv::QueryFor<HostDialogService>(*object.value.Get(), IID_HostDialogService);
}

// The number by which a window is known across the border, 32 bits on every platform.
LONG FrameHandle(const CWnd& button) {
    SettingsFrame* frame = FindEnclosing<SettingsFrame>(button);
    if (frame == nullptr || !frame->FrameWindow().IsLive()) return 0;
    return static_cast<LONG>(reinterpret_cast<LONG_PTR>(frame->FrameWindow().m_hWnd));
}

// The text, or the default when the call failed or left nothing.
std::wstring TextOrDefault(HRESULT status, const qv::Bstr& text, const std::wstring& defaultText) {
    std::wstring result = SUCCEEDED(status) ? qv::TextOf(text.Get()) : std::wstring();
    return result.empty() ? defaultText : result;
}

}  // namespace

QV_RUNTIME_CLASS(XDialogButton, CButton)

const MessageMap* XDialogButton::GetThisMessageMap() {
    static const MessageMap map{CButton::GetThisMessageMap(),
                                {
                                    on::ControlReflect<&XDialogButton::OnClicked>(BN_CLICKED),
                                }};
    return &map;
}

const MessageMap* XDialogButton::GetMessageMap() const {
    return GetThisMessageMap();
}

// Nothing visible changes: the button shows its caption.
void XDialogButton::ShowDefaultValue() {
    m_value = m_defaultValue;
}

void XDialogButton::ShowInitValue() {
    SetWindowText(m_caption);
    if (m_readOnly) EnableWindow(false);
}

void XDialogButton::SetStorageKey(std::wstring_view keyName, std::wstring_view valueName) {
    m_storageKey = keyName;
    m_storageName = valueName;
}

bool XDialogButton::GetStorageKey(std::wstring& keyName, std::wstring& valueName) const {
    keyName = m_storageKey;
    valueName = m_storageName;
    return !keyName.empty() && !valueName.empty();
}

void XDialogButton::SetCaption(std::wstring_view label) {
    m_caption = CoTranslateText(label);
}

bool XDialogButton::CreateOnPage(CWnd& page, UINT id) {
    return CButton::Create(L"", WS_CHILD, RECT{0, 0, 0, 0}, &page, id);
}

// The four types treat the outcome differently on purpose; each keeps its own row.
void XDialogButton::OnClicked() {
    const ModuleStateSwitch inComponent(GetComponentModuleState());
    if (m_type < 10 || m_type > 13) {
        m_value.clear();  // deliberate: an unknown type empties the value, whether or not there is a host
        return;
    }
    const auto service = GetDialogService();
    if (!service) return;
    // One variable is argument and result of the first three.
    switch (m_type) {
        case 10: {
            const auto edited =
                qv::Exchange(m_value, [&](BSTR argument, BSTR* result) { return service->EditText(argument, result); });
            m_value = TextOrDefault(edited.status, edited.value, m_defaultValue);
            break;
        }
        case 11: {
            const auto chosen = qv::Exchange(
                m_value, [&](BSTR argument, BSTR* result) { return service->ChooseText(argument, result, 0); });
            m_value = TextOrDefault(chosen.status, chosen.value, m_defaultValue);
            break;
        }
        case 12:
            // Deliberate: a viewer changes nothing, whatever it returns.
            (void)qv::Exchange(m_value,
                               [&](BSTR argument, BSTR* result) { return service->ViewText(argument, result); });
            break;
        case 13: {
            // Deliberate: the argument comes back as the value, so only an empty one or a failure changes anything.
            const qv::Bstr argument(m_value);
            const HRESULT status = service->PlaceBeside(argument.Get(), FrameHandle(*this));
            m_value = TextOrDefault(status, argument, m_defaultValue);
            break;
        }
        default:
            break;
    }
}
