#include "host/services/host_object.h"

#include <array>
#include <utility>

#include "base/com_guard.h"

namespace qv {

ComPtr<HostObject> HostObject::Create(ComPtr<ISessionDataManager> sessionData, ComPtr<IMultiUserManager> multiUser,
                                      DialogServiceFactory dialogService) {
    return ComPtr<HostObject>(new HostObject(std::move(sessionData), std::move(multiUser), std::move(dialogService)));
}

HRESULT HostObject::QueryInterface(REFIID iid, void** object) {
    static const std::array<InterfaceEntry, 1> table{{{&IID_ITPFHost, InterfaceOffset<HostObject, ITPFHost>()}}};
    return QueryInterfaceTable(this, table, iid, object);
}

HRESULT HostObject::CreateObject(REFGUID id, DWORD, IUnknown** object) {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    return Guarded([&] {
        ComPtr<IUnknown> found;
        if (IsEqualGUID(id, SID_SessionData)) {
            found = ComPtr<IUnknown>(m_sessionData.Get());
        } else if (IsEqualGUID(id, SID_MultiUser)) {
            found = ComPtr<IUnknown>(m_multiUser.Get());
        } else if (IsEqualGUID(id, CLSID_HostDialogService) && m_dialogService) {
            found = ComPtr<IUnknown>(m_dialogService().Get());
        }
        *object = found.Detach();
        return *object != nullptr ? S_OK : E_NOINTERFACE;
    });
}

}  // namespace qv
