// The host's browser settings: one shared object that re-reads the host's settings when told to. Its copy assignment is
// defined in and exported by the settings component, where the host's other modules find it.
#pragma once

#include <array>
#include <string>

#include "base/com.h"

class XQVBrowserSettings {
public:
    // The shared object with one more user, or null when the host has none.
    static XQVBrowserSettings* GetBrowserSettingsObject();
    static void ReleaseBrowserSettingsObject();
    // Makes the shared object and its re-reading known; a null function takes the object away.
    static void SetReader(void (*reader)(XQVBrowserSettings&));

    void Initialize();
    XQVBrowserSettings& operator=(const XQVBrowserSettings& other);

    qv::ComPtr<IUnknown> m_source;
    std::array<int, 3> m_numbers{};
    std::array<unsigned char, 10> m_flags{};
    std::array<std::wstring, 2> m_texts{};

private:
    static XQVBrowserSettings* s_shared;
    static void (*s_reader)(XQVBrowserSettings&);
    static int s_users;
};
