#include "host/libraries/browser_settings.h"

#include <memory>

XQVBrowserSettings* XQVBrowserSettings::s_shared = nullptr;
void (*XQVBrowserSettings::s_reader)(XQVBrowserSettings&) = nullptr;
int XQVBrowserSettings::s_users = 0;

XQVBrowserSettings* XQVBrowserSettings::GetBrowserSettingsObject() {
    if (s_shared == nullptr) {
        if (s_reader == nullptr) return nullptr;
        s_shared = new XQVBrowserSettings;
    }
    ++s_users;
    return s_shared;
}

void XQVBrowserSettings::ReleaseBrowserSettingsObject() {
    if (s_users == 0 || --s_users != 0) return;
    delete s_shared;
    s_shared = nullptr;
}

void XQVBrowserSettings::SetReader(void (*reader)(XQVBrowserSettings&)) {
    s_reader = reader;
}

void XQVBrowserSettings::Initialize() {
    if (s_reader != nullptr) s_reader(*this);
}
