#include "app/component.h"

#include "base/module_path.h"
#include "base/text.h"
#include "qvclient/qvsettingsdialog/resources/settings_interfaces.h"

namespace qv {

namespace {

constexpr const wchar_t* kCommand = L"tools/settings/change...";

// The folder of the running program, with its separator.
std::wstring ProgramFolder() {
    const std::wstring file = ModulePath(nullptr).value_or(std::wstring());
    return file.substr(0, file.find_last_of(L"\\/") + 1);
}

using GetClassObjectFunction = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);

}  // namespace

SettingsComponent::~SettingsComponent() {
    if (m_object) m_object->ReleaseHost();
    m_object.Reset();
    if (m_library != nullptr) FreeLibrary(m_library);
}

bool SettingsComponent::Connect(ITPFHost* host, std::wstring& problem) {
    const std::wstring file = ProgramFolder() + L"qvsettingsdialog.dll";
    m_library = LoadLibraryW(file.c_str());
    if (m_library == nullptr) {
        problem = Format(L"%s could not be loaded (error %d)", file, GetLastError());
        return false;
    }
    // The platform hands every exported function out as one type; the round trip through void* says that this is meant.
    const auto getClassObject = reinterpret_cast<GetClassObjectFunction>(
        reinterpret_cast<void*>(GetProcAddress(m_library, "DllGetClassObject")));
    ComPtr<IClassFactory> factory;
    if (getClassObject != nullptr) {
        factory = Receive<ComPtr<IClassFactory>>([&](auto out) {
                      return getClassObject(CLSID_QVSettingsDialogManager, IID_IClassFactory, out);
                  }).value;
    }
    if (factory) {
        m_object = Receive<ComPtr<ITPFObject>>([&](auto out) {
                       return factory->CreateInstance(nullptr, IID_ITPFObject, out);
                   }).value;
    }
    if (!m_object) {
        problem = L"qvsettingsdialog.dll does not offer the settings dialog";
        return false;
    }
    if (FAILED(m_object->SetHost(host, nullptr)) || FAILED(m_object->ConnectServices(0, nullptr))) {
        problem = L"the settings dialog could not connect to the host's services";
        return false;
    }
    return true;
}

bool SettingsComponent::ChangeSettings() {
    const auto command = QueryFor<ITPFMenuCommand>(*m_object.Get(), IID_ITPFMenuCommand);
    return command && command->ExecuteCommand(kCommand) == S_OK;
}

}  // namespace qv
