#include "tests/component/com/component_dll.h"

int ComponentDll::s_browserReads = 0;

ComponentDll::ComponentDll()
    : hostObject(qv::HostObject::Create(qv::ComPtr<ISessionDataManager>(host.session.Get()),
                                        qv::ComPtr<IMultiUserManager>(host.users.Get()))),
      m_module(LoadLibraryW(L"qvsettingsdialog.dll")) {
    s_browserReads = 0;
    XQVBrowserSettings::SetReader([](XQVBrowserSettings&) { ++s_browserReads; });
}

ComponentDll::~ComponentDll() {
    XQVBrowserSettings::SetReader(nullptr);
    if (m_module != nullptr) FreeLibrary(m_module);
}

HRESULT ComponentDll::GetClassObject(REFCLSID classId, REFIID iid, void** object) const {
    return Export<HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**)>("DllGetClassObject")(classId, iid, object);
}

HRESULT ComponentDll::CanUnloadNow() const {
    return Export<HRESULT(STDAPICALLTYPE*)()>("DllCanUnloadNow")();
}

HRESULT ComponentDll::Register() const {
    return Export<HRESULT(STDAPICALLTYPE*)()>("DllRegisterServer")();
}

HRESULT ComponentDll::Unregister() const {
    return Export<HRESULT(STDAPICALLTYPE*)()>("DllUnregisterServer")();
}

qv::ComPtr<IQVSettingsDialogManager> ComponentDll::CreateConnected() {
    auto manager = Create<IQVSettingsDialogManager>(IID_IQVSettingsDialogManager);
    const auto object = Query<ITPFObject>(manager, IID_ITPFObject);
    EXPECT_EQ(object->SetHost(hostObject.Get(), nullptr), S_OK);
    EXPECT_EQ(object->ConnectServices(0, nullptr), S_OK);
    return manager;
}
