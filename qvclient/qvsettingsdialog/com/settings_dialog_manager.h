// CQVSettingsDialogManager: the door through which a host reaches the settings dialog, as a COM class, as a plug-in of
// the host's framework, and as the answer to its menu command. It holds no settings logic: a construction set does.
#pragma once

#include <cstdint>
#include <string>

#include "base/com.h"
#include "base/com_module.h"
#include "host/interfaces/multi_user.h"
#include "host/interfaces/session_data.h"
#include "host/interfaces/tpf.h"
#include "qvclient/qvsettingsdialog/resources/settings_interfaces.h"

class CQVSettingsDialogManager final : public qv::ComObjectRoot,
                                       public IQVSettingsDialogManager,
                                       public ITPFObject,
                                       public ITPFMenuCommand {
public:
    // For the object map: a new manager queried for iid. *object is null on failure.
    static HRESULT CreateInstance(REFIID iid, void** object);

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** result) noexcept override;
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return InternalAddRef(); }
    ULONG STDMETHODCALLTYPE Release() noexcept override;

    // IQVSettingsDialogManager. Everything answers S_OK; what became of a dialog is its result alone.
    HRESULT STDMETHODCALLTYPE CreateModalDialog(BSTR bstrCaption) noexcept override;
    HRESULT STDMETHODCALLTYPE CreateModalDialogEx(BSTR bstrCaption, IQVSettingsDialogDataIO* piSettingsDialogDataIO,
                                                  LONG* pRetVal) noexcept override;
    HRESULT STDMETHODCALLTYPE get_m_CtrlPath(LONG* pVal) noexcept override;
    HRESULT STDMETHODCALLTYPE put_m_CtrlPath(LONG newValue) noexcept override;
    HRESULT STDMETHODCALLTYPE GetOptionKey(BSTR* pbstrOptionKey) noexcept override;
    HRESULT STDMETHODCALLTYPE SetOptionKey(BSTR bstrOptionKey) noexcept override;

    // ITPFObject.
    HRESULT STDMETHODCALLTYPE ConnectServices(DWORD reserved, void* context) noexcept override;
    HRESULT STDMETHODCALLTYPE ReleaseHost() noexcept override;
    HRESULT STDMETHODCALLTYPE SetHost(ITPFHost* host, IUnknown* companion) noexcept override;
    HRESULT STDMETHODCALLTYPE Reserved4(void* argument) noexcept override;
    HRESULT STDMETHODCALLTYPE Reserved5(void* argument) noexcept override;
    HRESULT STDMETHODCALLTYPE Reserved6(void* argument, DWORD number) noexcept override;

    // ITPFMenuCommand.
    HRESULT STDMETHODCALLTYPE ExecuteCommand(LPCWSTR command) noexcept override;
    HRESULT STDMETHODCALLTYPE QueryCommandState(LPCWSTR command, DWORD* state) noexcept override;
    HRESULT STDMETHODCALLTYPE Reserved3(void* first, void* second, void* third) noexcept override;

private:
    CQVSettingsDialogManager();
    ~CQVSettingsDialogManager() override;

    // The dialog's end code, or -1 when none was shown. dataIO may be null; the caller keeps it alive.
    std::int32_t ShowSettingsDialog(const std::wstring& caption, IQVSettingsDialogDataIO* dataIO);
    std::int32_t RunDialog(const std::wstring& caption, IQVSettingsDialogDataIO* dataIO);
    HRESULT FetchServices();

    qv::ModuleLock m_lock;  // first: the lock goes last
    qv::ComPtr<ITPFHost> m_host;
    qv::ComPtr<IUnknown> m_hostCompanion;
    qv::ComPtr<ISessionDataManager> m_sessionData;
    qv::ComPtr<IMultiUserManager> m_multiUser;
    LONG m_ctrlPath;
    std::wstring m_optionKey;
};
