#include "qvclient/qvsettingsdialog/controls/module_host.h"

#include <utility>

namespace {

// Counted by hand, so that no destructor calls into the host when the module goes.
ITPFHost* g_moduleHost = nullptr;

}  // namespace

qv::ComPtr<ITPFHost> GetModuleHost() {
    return {g_moduleHost};
}

void SetModuleHostIfEmpty(ITPFHost* host) {
    if (g_moduleHost != nullptr || host == nullptr) return;
    g_moduleHost = host;
    g_moduleHost->AddRef();
}

void ClearModuleHost() {
    if (ITPFHost* old = std::exchange(g_moduleHost, nullptr)) old->Release();
}

void ForgetModuleHost() noexcept {
    g_moduleHost = nullptr;
}
