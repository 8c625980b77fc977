// The DLL's entry points, and the object whose life is the module's: it is made when the module is loaded and goes when
// it is unloaded. Names and order of the exports are in qvsettingsdialog.def and qvsettingsdialog.map.
#include "qvclient/qvsettingsdialog/com/settings_module.h"
#include "qvclient/qvsettingsdialog/com/settings_server.h"

namespace {

class ModuleLifetime {
public:
    ModuleLifetime() { m_app.InitInstance(); }
    ~ModuleLifetime() { m_app.ExitInstance(); }
    ModuleLifetime(const ModuleLifetime&) = delete;
    ModuleLifetime& operator=(const ModuleLifetime&) = delete;

private:
    CQVSettingsDialogApp m_app;
};

const ModuleLifetime g_module;

}  // namespace

// The platform's headers declare some of these for Windows; the declarations agree.
extern "C" {
HRESULT STDAPICALLTYPE DllGetClassObject(REFCLSID classId, REFIID iid, void** factory) {
    return GetSettingsClassObject(classId, iid, factory);
}
HRESULT STDAPICALLTYPE DllCanUnloadNow() {
    return CanUnloadSettingsModule();
}
HRESULT STDAPICALLTYPE DllRegisterServer() {
    return RegisterSettingsServer();
}
HRESULT STDAPICALLTYPE DllUnregisterServer() {
    return UnregisterSettingsServer();
}
}
