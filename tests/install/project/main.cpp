// A host as somebody else would begin it: loads the component, asks for a dialog without giving it any services, and
// takes the message box that says so.
#include <cstdio>

#include "base/com.h"
#include "base/text.h"
#include "host/libraries/message_box.h"
#include "platform/module_address.h"
#include "qvclient/qvsettingsdialog/resources/settings_interfaces.h"

int main(int argc, char** argv) {
    if (argc < 2) return 1;
    std::wstring said;
    qv::SetMessageBoxSink([&](const qv::MessageBoxCall& box) {
        said = box.text;
        return IDOK;
    });
    std::wstring file = qv::FromUtf8(argv[1]);
    // An installed path may come with either separator; the platform's loader wants its own.
    if (file.ends_with(L".dll")) {
        for (wchar_t& c : file)
            c = c == L'/' ? L'\\' : c;
    }
    const HMODULE module = LoadLibraryW(file.c_str());
    if (module == nullptr) return 2;
    LONG result = 0;
    {
        using GetClassObject = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);
        const auto factory = qv::Receive<qv::ComPtr<IClassFactory>>([&](auto out) {
                                 return qv::ProcedureOf<GetClassObject>(module, "DllGetClassObject")(
                                     CLSID_QVSettingsDialogManager, IID_IClassFactory, out);
                             }).value;
        if (!factory) return 3;
        const auto manager = qv::Receive<qv::ComPtr<IQVSettingsDialogManager>>([&](auto out) {
                                 return factory->CreateInstance(nullptr, IID_IQVSettingsDialogManager, out);
                             }).value;
        if (!manager) return 3;
        const qv::Bstr caption(L"Small host");
        manager->CreateModalDialogEx(caption.Get(), nullptr, &result);
    }
    FreeLibrary(module);
    std::printf("result %d: %s\n", static_cast<int>(result), qv::ToUtf8(said).c_str());
    return result == -1 && said == L"Can't get SessionDataManager or MultiUserManager!" ? 0 : 4;
}
