#include <algorithm>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "platform/headless/base/com.h"
#include "platform/headless/base/module.h"
#include "platform/headless/base/registry.h"
#include "platform/module_address.h"

namespace {

struct Server {
    std::wstring path;
    LPFNGETCLASSOBJECT getClassObject;
};

struct Table {
    std::recursive_mutex mutex;
    std::vector<Server> servers;
};

Table& Classes() {
    static Table s_table;
    return s_table;
}

thread_local unsigned t_initialized = 0;

std::optional<std::wstring> ServerPath(REFCLSID clsid) {
    wchar_t guid[40];
    StringFromGUID2(clsid, guid, 40);
    const std::wstring subKey = std::wstring(L"CLSID\\") + guid + L"\\InprocServer32";
    HKEY key = nullptr;
    if (RegOpenKeyExW(HKEY_CLASSES_ROOT, subKey.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return std::nullopt;
    DWORD size = 0;
    std::wstring path;
    if (RegQueryValueExW(key, nullptr, nullptr, nullptr, nullptr, &size) == ERROR_SUCCESS) {
        path.resize(size / sizeof(wchar_t) + 1);
        RegQueryValueExW(key, nullptr, nullptr, nullptr, reinterpret_cast<BYTE*>(path.data()), &size);
        path.resize(path.find(L'\0'));
    }
    RegCloseKey(key);
    if (path.size() >= 2 && path.front() == L'"' && path.back() == L'"') path = path.substr(1, path.size() - 2);
    return path;
}

HRESULT Load(const std::wstring& path, LPFNGETCLASSOBJECT& getClassObject) {
    auto& servers = Classes().servers;
    const auto known =
        std::find_if(servers.begin(), servers.end(), [&](const Server& server) { return server.path == path; });
    if (known != servers.end()) {
        getClassObject = known->getClassObject;
        return S_OK;
    }
    const HMODULE module = LoadLibraryW(path.c_str());
    if (module == nullptr) return HRESULT_FROM_WIN32(ERROR_MOD_NOT_FOUND);
    getClassObject = qv::ProcedureOf<LPFNGETCLASSOBJECT>(module, "DllGetClassObject");
    if (getClassObject == nullptr) {
        FreeLibrary(module);
        return CO_E_ERRORINDLL;
    }
    servers.push_back({path, getClassObject});
    return S_OK;
}

}  // namespace

HRESULT CoInitialize(LPVOID) {
    return t_initialized++ == 0 ? S_OK : S_FALSE;
}

void CoUninitialize() {
    if (t_initialized != 0) --t_initialized;
}

HRESULT OleInitialize(LPVOID reserved) {
    return CoInitialize(reserved);
}
void OleUninitialize() {
    CoUninitialize();
}

HRESULT CoGetClassObject(REFCLSID clsid, DWORD context, LPVOID, REFIID riid, LPVOID* object) {
    if (object == nullptr) return E_INVALIDARG;
    *object = nullptr;
    if (t_initialized == 0) return CO_E_NOTINITIALIZED;
    auto& table = Classes();
    LPFNGETCLASSOBJECT getClassObject = nullptr;
    {
        const std::lock_guard lock(table.mutex);
        // Servers in processes of their own cannot be started here.
        if ((context & CLSCTX_INPROC_SERVER) == 0) return REGDB_E_CLASSNOTREG;
        const auto path = ServerPath(clsid);
        if (!path) return REGDB_E_CLASSNOTREG;
        if (const HRESULT loaded = Load(*path, getClassObject); FAILED(loaded)) return loaded;
    }
    return getClassObject(clsid, riid, object);
}

HRESULT CoCreateInstance(REFCLSID clsid, IUnknown* outer, DWORD context, REFIID riid, LPVOID* object) {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    IClassFactory* factory = nullptr;
    const HRESULT found =
        CoGetClassObject(clsid, context, nullptr, IID_IClassFactory, reinterpret_cast<LPVOID*>(&factory));
    if (FAILED(found)) return found;
    const HRESULT created = factory->CreateInstance(outer, riid, object);
    factory->Release();
    return created;
}
