// A host of its own: it implements the host's interfaces itself, connects the settings dialog to them, hands in its own
// value store and shows the dialog. framework_client [--unattended]: presses OK by itself and checks what came of it.
#include <initguid.h>
// Identifiers are defined by the headers that follow.
#include <cstdio>

#include "settings_data.h"
#include "unattended.h"

namespace {

class EveryRight final : public ComObject<IMultiUserManager> {
public:
    EveryRight() : ComObject(__uuidof(IMultiUserManager)) {}
    HRESULT STDMETHODCALLTYPE CheckRight(BSTR) override { return S_OK; }

    HRESULT STDMETHODCALLTYPE Reserved1() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reserved2() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reserved3() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reserved4() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reserved5() override { return E_NOTIMPL; }
};

class Host final : public ComObject<ITPFHost> {
public:
    Host(IUnknown& sessionData, IUnknown& multiUser)
        : ComObject(__uuidof(ITPFHost)), m_sessionData(sessionData), m_multiUser(multiUser) {}

    HRESULT STDMETHODCALLTYPE CreateObject(REFGUID id, DWORD, IUnknown** object) override {
        if (object == nullptr) return E_POINTER;
        *object = id == SID_SessionData ? &m_sessionData : id == SID_MultiUser ? &m_multiUser : nullptr;
        if (*object == nullptr) return E_NOINTERFACE;
        (*object)->AddRef();
        return S_OK;
    }

    HRESULT STDMETHODCALLTYPE Reserved1() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reserved2() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reserved3() override { return E_NOTIMPL; }

private:
    IUnknown& m_sessionData;
    IUnknown& m_multiUser;
};

Definitions SampleDefinitions() {
    const auto item = [](const wchar_t* type, const wchar_t* label, const wchar_t* byDefault, const wchar_t* order) {
        return Attributes{{L"type", type},         {L"label", label},     {L"default", byDefault},
                          {L"ordernumber", order}, {L"pagenumber", L"1"}, {L"globaldata", L"0"},
                          {L"functiongroup", L"0"}};
    };
    return {
        {L"option-configuration/pages", {{L"1", L"Reading"}}},
        {L"option-configuration/reader/spoken", item(L"0", L"Read &aloud", L"1", L"10")},
        {L"option-configuration/reader/speed", item(L"1", L"&Words a minute", L"120", L"20")},
        {L"option-configuration/reader/voice", item(L"3", L"&Voice", L"Ada", L"30")},
    };
}

// The dialog's end code, -2 when it could not be asked for.
long ShowDialog(Host& host, SettingsStore& store) {
    IQVSettingsDialogManager* manager = nullptr;
    if (FAILED(CoCreateInstance(CLSID_QVSettingsDialogManager, nullptr, CLSCTX_INPROC_SERVER,
                                IID_IQVSettingsDialogManager, reinterpret_cast<void**>(&manager)))) {
        return -2;
    }
    long result = -2;
    ITPFObject* plugIn = nullptr;
    if (SUCCEEDED(manager->QueryInterface(__uuidof(ITPFObject), reinterpret_cast<void**>(&plugIn)))) {
        plugIn->SetHost(&host, nullptr);
        if (SUCCEEDED(plugIn->ConnectServices(0, nullptr))) {
            const BSTR caption = SysAllocString(L"Reader settings");
            manager->CreateModalDialogEx(caption, &store, &result);
            SysFreeString(caption);
        }
        plugIn->ReleaseHost();
        plugIn->Release();
    }
    manager->Release();
    return result;
}

// After an OK without an edit: the stored speed and, where nothing was stored, the defaults, each saved once.
bool StoredAsExpected(const SettingsStore& store) {
    const std::map<std::wstring, std::wstring> expected{
        {L"reader/spoken", L"1"}, {L"reader/speed", L"90"}, {L"reader/voice", L"Ada"}};
    return store.values == expected && store.saved.size() == expected.size();
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    const bool alone = argc > 1 && lstrcmpW(argv[1], L"--unattended") == 0;
    if (FAILED(OleInitialize(nullptr))) return 1;
    if (alone) unattended::Start();

    DefinitionData sessionData(SampleDefinitions());
    EveryRight rights;
    SettingsStore store;
    store.values[L"reader/speed"] = L"90";
    Host host(sessionData, rights);
    const long result = ShowDialog(host, store);
    std::printf("end code %ld\n", result);
    for (const auto& [item, text] : store.values)
        std::printf("  %ls = %ls\n", item.c_str(), text.c_str());
    const ULONG left = sessionData.References() + rights.References() + store.References() + host.References();
    std::printf("references that nobody gave back: %lu\n", left);

    bool good = left == 0;
    if (alone) good = good && result == IDOK && unattended::ShownDialogs().size() == 1 && StoredAsExpected(store);
    CoFreeUnusedLibrariesEx(0, 0);
    OleUninitialize();
    return good ? 0 : 1;
}
