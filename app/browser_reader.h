// The sample host's browser settings: which stored values the shared object shows. The component has it read again when
// the dialog is over.
#pragma once

#include "host/interfaces/session_data.h"

namespace qv {
// Null: there are none any more. It is kept until then.
void ReadBrowserSettingsFrom(ISessionDataManager* sessionData);
}  // namespace qv
