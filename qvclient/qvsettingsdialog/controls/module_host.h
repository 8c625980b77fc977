// The module host: one counted reference to the host framework's object, shared by the whole module. The manager sets
// and empties it, the dialog button takes its own reference when it needs the host.
#pragma once

#include "base/com.h"
#include "host/interfaces/tpf.h"

[[nodiscard]] qv::ComPtr<ITPFHost> GetModuleHost();
// Keeps the host unless one is set already.
void SetModuleHostIfEmpty(ITPFHost* host);
void ClearModuleHost();
// The same without a call into the host: for the module's end, when the host may be gone already. A reference that is
// left then stays with the host.
void ForgetModuleHost() noexcept;
