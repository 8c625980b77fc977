// The reference host's framework object: hands plug-ins the session data, the multi-user manager and the dialog
// service.
#pragma once

#include <functional>

#include "base/com.h"
#include "base/com_module.h"
#include "host/interfaces/dialog_service.h"
#include "host/interfaces/multi_user.h"
#include "host/interfaces/session_data.h"
#include "host/interfaces/tpf.h"

namespace qv {

class HostObject final : public ComObjectRoot, public ITPFHost {
public:
    // Makes a dialog service; null when there is none.
    using DialogServiceFactory = std::function<ComPtr<HostDialogService>()>;

    // Null managers and an empty factory are services that this host does not offer.
    [[nodiscard]] static ComPtr<HostObject> Create(ComPtr<ISessionDataManager> sessionData,
                                                   ComPtr<IMultiUserManager> multiUser,
                                                   DialogServiceFactory dialogService = {});

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return InternalAddRef(); }
    ULONG STDMETHODCALLTYPE Release() override { return InternalRelease(); }
    // E_POINTER for a null out pointer; E_NOINTERFACE with a null object for what this host does not offer.
    HRESULT STDMETHODCALLTYPE CreateObject(REFGUID id, DWORD number, IUnknown** object) override;
    HRESULT STDMETHODCALLTYPE Reserved1() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reserved2() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reserved3() override { return E_NOTIMPL; }

private:
    HostObject(ComPtr<ISessionDataManager> sessionData, ComPtr<IMultiUserManager> multiUser,
               DialogServiceFactory dialogService)
        : m_sessionData(std::move(sessionData)),
          m_multiUser(std::move(multiUser)),
          m_dialogService(std::move(dialogService)) {}

    ComPtr<ISessionDataManager> m_sessionData;
    ComPtr<IMultiUserManager> m_multiUser;
    DialogServiceFactory m_dialogService;
};

}  // namespace qv
