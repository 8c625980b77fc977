// A host that can do anything at any of its calls: every call into it (session data, rights, the caller's own store,
// the dialog service), every message box and every picker first passes through one function, which may count, destroy
// windows, throw or run a message loop before the call is carried out.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "framework/com.h"
#include "host/interfaces/dialog_service.h"
#include "host/interfaces/tpf.h"
#include "host/libraries/message_box.h"
#include "host/libraries/pickers.h"
#include "tests/component/settings_driver.h"

namespace qvtest {

class WatchedHost {
public:
    explicit WatchedHost(TestHost& host);
    ~WatchedHost();
    WatchedHost(const WatchedHost&) = delete;
    WatchedHost& operator=(const WatchedHost&) = delete;

    // Told what is called, as "ReadData common/count", "CheckRight ...", "box <caption>", "picker", "dialog".
    std::function<void(const std::wstring& call)> onCall;

    [[nodiscard]] ISessionDataManager* Session() noexcept { return m_session.Get(); }
    [[nodiscard]] IMultiUserManager* Users() noexcept { return m_users.Get(); }
    // Offers the three of them.
    [[nodiscard]] ITPFHost* Host() noexcept { return m_host.Get(); }
    std::vector<qv::MessageBoxCall> boxes;

private:
    void Tell(const std::wstring& call) const;

    class SessionProxy;
    class UsersProxy;
    class DialogsProxy;
    class HostProxy;

    qv::ComPtr<ISessionDataManager> m_session;
    qv::ComPtr<IMultiUserManager> m_users;
    qv::ComPtr<ITPFHost> m_host;
    qv::MessageBoxSink m_boxesBefore;
    qv::PickerSink m_pickersBefore;
};

}  // namespace qvtest
