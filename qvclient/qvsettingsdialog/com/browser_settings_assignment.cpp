// The host's browser settings are declared in the host's library; their copy assignment lives here and is exported, for
// the host's modules that copy the shared object.
#include "host/libraries/browser_settings.h"

XQVBrowserSettings& XQVBrowserSettings::operator=(const XQVBrowserSettings& other) {
    m_source = other.m_source;  // shares the new reference before the old one goes: safe for an object itself
    m_numbers = other.m_numbers;
    m_flags = other.m_flags;
    m_texts = other.m_texts;
    return *this;
}
