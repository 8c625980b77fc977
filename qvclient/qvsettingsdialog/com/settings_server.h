// What the DLL's entry points do: class objects, the question whether the module may go, registration. The entry points
// themselves only forward here.
#pragma once

#include "platform/platform.h"

// The class factory of CQVSettingsDialogManager, queried for iid. Failures are the platform's status codes.
[[nodiscard]] HRESULT GetSettingsClassObject(REFCLSID classId, REFIID iid, void** factory) noexcept;
// S_OK when nothing keeps the module loaded: no live object or server lock, and no call of it on this thread; else
// S_FALSE.
[[nodiscard]] HRESULT CanUnloadSettingsModule() noexcept;
// Enters the module's classes and type library into the registry, and takes them out.
[[nodiscard]] HRESULT RegisterSettingsServer() noexcept;
[[nodiscard]] HRESULT UnregisterSettingsServer() noexcept;
