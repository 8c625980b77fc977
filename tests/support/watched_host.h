// A host that can do anything at any of its calls: every call into it (session data, rights, the dialog service), every
// message box and every picker first passes through one function, which may count, destroy windows, throw or run a
// message loop before the call is carried out.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "tests/support/host_stubs.h"
#include "tests/support/recorders.h"
#include "tests/support/test_host.h"

namespace qvtest {

class WatchedHost {
public:
    // The user may do everything.
    explicit WatchedHost(TestHost& host);

    // Told what is called, as "ReadData common/count", "CheckRight ...", "box <caption>", "picker", "dialog".
    std::function<void(const std::wstring& call)> onCall;

    [[nodiscard]] ISessionDataManager* Session() noexcept { return &m_session; }
    [[nodiscard]] IMultiUserManager* Users() noexcept { return &m_users; }
    // Offers the three of them.
    [[nodiscard]] ITPFHost* Host() noexcept { return &m_services; }
    std::vector<qv::MessageBoxCall> boxes;

private:
    void Tell(const std::wstring& call) const;
    std::optional<std::wstring> Pick(const qv::PathPickerRequest& request) const;

    class WatchedSession final : public SessionStub {
    public:
        WatchedSession(const WatchedHost& host, ISessionDataManager* behind) : SessionStub(behind), m_host(host) {}
        void OnCall(const wchar_t* operation, BSTR key, BSTR name) override;

    private:
        const WatchedHost& m_host;
    };
    class WatchedUsers final : public UsersStub {
    public:
        explicit WatchedUsers(const WatchedHost& host) : m_host(host) {}
        HRESULT STDMETHODCALLTYPE CheckRight(BSTR right) override;

    private:
        const WatchedHost& m_host;
    };
    class WatchedDialogs final : public DialogsStub {
    public:
        explicit WatchedDialogs(const WatchedHost& host) : m_host(host) {}

    private:
        HRESULT Open(const wchar_t* dialog, BSTR argument, BSTR* value, LONG number) override;
        const WatchedHost& m_host;
    };
    class WatchedServices final : public HostStub {
    public:
        explicit WatchedServices(WatchedHost& host)
            : HostStub(&host.m_session, &host.m_users, &host.m_dialogs), m_host(host) {}
        HRESULT STDMETHODCALLTYPE CreateObject(REFGUID id, DWORD number, IUnknown** object) override;

    private:
        const WatchedHost& m_host;
    };

    WatchedSession m_session;
    WatchedUsers m_users{*this};
    WatchedDialogs m_dialogs{*this};
    WatchedServices m_services{*this};
    ScopedMessageBoxSink m_boxes;
    ScopedPickerSink m_pickers;
};

}  // namespace qvtest
