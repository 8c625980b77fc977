// Where the settings manual lies, as the host's session data say it. The dialog's Help opens it.
#pragma once

#include <optional>
#include <string>

#include "host/interfaces/session_data.h"

// help path \ language \Settingsmanual.pdf; nothing when the host names no help path.
[[nodiscard]] std::optional<std::wstring> SettingsManualPath(ISessionDataManager& sessionData);
