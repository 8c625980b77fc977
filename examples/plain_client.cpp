// A plain COM caller: creates the settings dialog's manager by name and by identifier and asks for a dialog. Only a
// framework host can give the manager its session data and users, so what appears is a box that says so; the call
// succeeds and its result is -1. plain_client [--unattended]: presses OK by itself and checks what it met.
#include <initguid.h>
// Identifiers are defined by the headers that follow.
#include <qvsettingsdialog.h>

#include <cstdio>

#include "unattended.h"

namespace {

constexpr const wchar_t* kProgId = L"QVSettingsDialog.QVSettingsDialogManager";
constexpr const wchar_t* kMissing = L"Can't get SessionDataManager or MultiUserManager!";

// Whether the manager answered as it should.
bool AskForDialog(REFCLSID classId, const char* how) {
    IQVSettingsDialogManager* manager = nullptr;
    HRESULT status = CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, IID_IQVSettingsDialogManager,
                                      reinterpret_cast<void**>(&manager));
    if (FAILED(status)) {
        std::printf("by %s: not created, status %08lx\n", how, static_cast<unsigned long>(status));
        return false;
    }
    long result = 0;
    const BSTR caption = SysAllocString(L"Settings of a plain caller");
    status = manager->CreateModalDialogEx(caption, nullptr, &result);
    SysFreeString(caption);
    manager->Release();
    std::printf("by %s: status %08lx, result %ld\n", how, static_cast<unsigned long>(status), result);
    return status == S_OK && result == -1;
}

bool MetTheBox(std::size_t times) {
    const auto& shown = unattended::ShownDialogs();
    bool good = shown.size() == times;
    for (const auto& box : shown) {
        std::printf("box: %ls: %ls\n", box.caption.c_str(), box.text.c_str());
        good = good && box.caption == L"Settings of a plain caller" && box.text == kMissing;
    }
    return good;
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    const bool alone = argc > 1 && lstrcmpW(argv[1], L"--unattended") == 0;
    if (FAILED(OleInitialize(nullptr))) return 1;
    if (alone) unattended::Start();
    CLSID byName{};
    bool good = CLSIDFromProgID(kProgId, &byName) == S_OK && AskForDialog(byName, "name");
    good = AskForDialog(CLSID_QVSettingsDialogManager, "identifier") && good;
    if (alone) good = MetTheBox(2) && good;
    CoFreeUnusedLibrariesEx(0, 0);
    OleUninitialize();
    return good ? 0 : 1;
}
