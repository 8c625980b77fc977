#include "qvclient/qvsettingsdialog/com/settings_dialog_manager.h"

#include <array>

#include "base/text.h"
#include "host/libraries/browser_settings.h"
#include "host/libraries/message_box.h"
#include "host/libraries/translation.h"
#include "qvclient/qvsettingsdialog/com/settings_module.h"
#include "qvclient/qvsettingsdialog/controls/module_host.h"
#include "qvclient/qvsettingsdialog/dialogs/dyn_dialog_scroll.h"
#include "qvclient/qvsettingsdialog/model/construction_set.h"

namespace {

constexpr LONG kDefaultCtrlPath = SDT_machineData;
constexpr std::wstring_view kDefaultOptionKey = L"option-configuration";
constexpr std::wstring_view kMenuCommand = L"tools/settings/change...";
constexpr std::wstring_view kMenuCaption = L"Settings";
constexpr std::wstring_view kNoManagers = L"Can't get SessionDataManager or MultiUserManager!";
constexpr std::wstring_view kNoSessionData = L"Can't get SessionDataManager !";
constexpr std::wstring_view kNothingDefined = L"No settings defined";
constexpr std::int32_t kNoDialog = -1;
constexpr DWORD kLookUp = 1;

bool IsMenuCommand(LPCWSTR command) {
    return command != nullptr && qv::EqualIgnoringCase(command, kMenuCommand);
}

// A service of the host; null when it has none such.
qv::ComPtr<IUnknown> LookUp(ITPFHost& host, REFGUID service) {
    return qv::Receive<qv::ComPtr<IUnknown>>([&](IUnknown** out) { return host.CreateObject(service, kLookUp, out); })
        .value;
}

// Tells the host to read its settings again, whatever became of the dialog.
void RefreshBrowserSettings() {
    XQVBrowserSettings* settings = XQVBrowserSettings::GetBrowserSettingsObject();
    if (settings == nullptr) return;
    struct Release {
        ~Release() { XQVBrowserSettings::ReleaseBrowserSettingsObject(); }
    } const atTheEnd;
    settings->Initialize();
}

}  // namespace

CQVSettingsDialogManager::CQVSettingsDialogManager()
    : m_lock(SettingsComModule()), m_ctrlPath(kDefaultCtrlPath), m_optionKey(kDefaultOptionKey) {}

CQVSettingsDialogManager::~CQVSettingsDialogManager() {
    // Deliberate: any manager's end empties the module host, also one that another manager set.
    ClearModuleHost();
    m_sessionData.Reset();
}

HRESULT CQVSettingsDialogManager::CreateInstance(REFIID iid, void** object) {
    return Enter([&] {
        auto* manager = new CQVSettingsDialogManager;
        manager->InternalAddRef();
        const HRESULT result = manager->QueryInterface(iid, object);
        manager->Release();
        return result;
    });
}

HRESULT CQVSettingsDialogManager::QueryInterface(REFIID iid, void** result) noexcept {
    static const std::array<qv::InterfaceEntry, 3> table{{
        {&IID_IQVSettingsDialogManager, qv::InterfaceOffset<CQVSettingsDialogManager, IQVSettingsDialogManager>()},
        {&IID_ITPFObject, qv::InterfaceOffset<CQVSettingsDialogManager, ITPFObject>()},
        {&IID_ITPFMenuCommand, qv::InterfaceOffset<CQVSettingsDialogManager, ITPFMenuCommand>()},
    }};
    return qv::QueryInterfaceTable(this, table, iid, result);
}

ULONG CQVSettingsDialogManager::Release() noexcept {
    const SettingsModuleEntry entry;  // what the last reference frees is the module's
    return InternalRelease();
}

HRESULT CQVSettingsDialogManager::CreateModalDialog(BSTR bstrCaption) noexcept {
    return CreateModalDialogEx(bstrCaption, nullptr, nullptr);
}

HRESULT CQVSettingsDialogManager::CreateModalDialogEx(BSTR bstrCaption, IQVSettingsDialogDataIO* piSettingsDialogDataIO,
                                                      LONG* pRetVal) noexcept {
    // A host may let go of the manager while its dialog is open.
    const qv::ComPtr<IQVSettingsDialogManager> self(this);
    std::int32_t result = kNoDialog;
    Enter([&] {
        result = ShowSettingsDialog(qv::TextOf(bstrCaption), piSettingsDialogDataIO);
        return S_OK;
    });
    if (pRetVal != nullptr) *pRetVal = result;
    return S_OK;
}

// Deliberate: the value is not delivered. Callers pass a variable that they have set up and go on with it.
HRESULT CQVSettingsDialogManager::get_m_CtrlPath(LONG* /*pVal*/) noexcept {
    return S_OK;
}

HRESULT CQVSettingsDialogManager::put_m_CtrlPath(LONG newValue) noexcept {
    m_ctrlPath = newValue;
    return S_OK;
}

// Deliberate: the key is not delivered. The string that the caller's variable holds is taken over and released, the
// variable itself stays as it is; a caller that passes an empty variable finds it empty.
HRESULT CQVSettingsDialogManager::GetOptionKey(BSTR* pbstrOptionKey) noexcept {
    return Enter([&] {
        if (pbstrOptionKey != nullptr) const qv::Bstr takenOver = qv::Bstr::Adopt(*pbstrOptionKey);
        return S_OK;
    });
}

HRESULT CQVSettingsDialogManager::SetOptionKey(BSTR bstrOptionKey) noexcept {
    return Enter([&] {
        m_optionKey = qv::TextOf(bstrOptionKey);
        return S_OK;
    });
}

std::int32_t CQVSettingsDialogManager::ShowSettingsDialog(const std::wstring& caption,
                                                          IQVSettingsDialogDataIO* dataIO) {
    std::int32_t result = kNoDialog;
    // Borders of their own: a dialog that fails on its way may have stored something already, and a host that fails to
    // read it changes nothing about how the dialog ended.
    Enter([&] {
        result = RunDialog(caption, dataIO);
        return S_OK;
    });
    Enter([] {
        RefreshBrowserSettings();
        return S_OK;
    });
    return result;
}

// Deliberate: these two messages are shown as they stand, those of ConnectServices translated.
std::int32_t CQVSettingsDialogManager::RunDialog(const std::wstring& caption, IQVSettingsDialogDataIO* dataIO) {
    if (!m_sessionData || !m_multiUser) {
        CoInfoBox(nullptr, caption, kNoManagers, 0);
        return kNoDialog;
    }
    XConstructionSet constructionSet(m_optionKey, static_cast<std::int32_t>(m_ctrlPath), dataIO, m_sessionData,
                                     m_multiUser);
    if (!constructionSet.HasSettings()) {
        CoInfoBox(nullptr, caption, kNothingDefined, 0);
        return kNoDialog;
    }
    XDynDialogScroll dialog(caption, constructionSet, true, nullptr);
    return static_cast<std::int32_t>(dialog.DoModal());
}

HRESULT CQVSettingsDialogManager::ConnectServices(DWORD /*reserved*/, void* /*context*/) noexcept {
    // A host may let go of the manager while it is asked, or while a message stands there.
    const qv::ComPtr<IQVSettingsDialogManager> self(this);
    return Enter([&] { return FetchServices(); });
}

HRESULT CQVSettingsDialogManager::FetchServices() {
    if (const auto host = m_host) {  // kept: the host may let go of this object while it is asked
        // Deliberate: a host without session data is told only when a dialog is asked for; one whose service is of
        // another kind is told here.
        if (const auto service = LookUp(*host.Get(), SID_SessionData)) {
            m_sessionData = qv::QueryFor<ISessionDataManager>(*service.Get(), IID_ISessionDataManager);
            if (!m_sessionData) {
                CoPlainBox(CoTranslateText(kNoSessionData));
                return E_FAIL;
            }
        }
        if (const auto service = LookUp(*host.Get(), SID_MultiUser)) {
            m_multiUser = qv::QueryFor<IMultiUserManager>(*service.Get(), IID_IMultiUserManager);
            if (m_multiUser) return S_OK;
        }
    }
    CoPlainBox(CoTranslateText(kNoManagers));
    return E_FAIL;
}

// The two services stay: a dialog that is open, or opened later, still needs them.
HRESULT CQVSettingsDialogManager::ReleaseHost() noexcept {
    const qv::ComPtr<IQVSettingsDialogManager> self(
        this);  // the host may answer with the manager's end, here and below
    return Enter([&] {
        m_host.Reset();
        m_hostCompanion.Reset();
        return S_OK;
    });
}

HRESULT CQVSettingsDialogManager::SetHost(ITPFHost* host, IUnknown* companion) noexcept {
    const qv::ComPtr<IQVSettingsDialogManager> self(this);
    return Enter([&] {
        m_host = qv::ComPtr<ITPFHost>(host);
        m_hostCompanion = qv::ComPtr<IUnknown>(companion);
        SetModuleHostIfEmpty(host);
        return S_OK;
    });
}

HRESULT CQVSettingsDialogManager::Reserved4(void* /*argument*/) noexcept {
    return S_OK;
}

HRESULT CQVSettingsDialogManager::Reserved5(void* /*argument*/) noexcept {
    return S_OK;
}

HRESULT CQVSettingsDialogManager::Reserved6(void* /*argument*/, DWORD /*number*/) noexcept {
    return S_OK;
}

HRESULT CQVSettingsDialogManager::ExecuteCommand(LPCWSTR command) noexcept {
    return Enter([&] {
        if (!IsMenuCommand(command)) return S_FALSE;
        // The menu means the default tree, and for good: later dialogs of this object show it too.
        const qv::Bstr optionKey(kDefaultOptionKey);
        const qv::Bstr caption(kMenuCaption);
        put_m_CtrlPath(kDefaultCtrlPath);
        SetOptionKey(optionKey.Get());
        CreateModalDialog(caption.Get());
        return S_OK;
    });
}

HRESULT CQVSettingsDialogManager::QueryCommandState(LPCWSTR command, DWORD* state) noexcept {
    return Enter([&] {
        if (!IsMenuCommand(command)) return S_FALSE;
        if (state == nullptr) return E_POINTER;
        *state = 0;
        return S_OK;
    });
}

HRESULT CQVSettingsDialogManager::Reserved3(void* /*first*/, void* /*second*/, void* /*third*/) noexcept {
    return E_NOTIMPL;
}
