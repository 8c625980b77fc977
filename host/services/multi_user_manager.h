// The reference host's multi-user manager: who is logged on and which rights that user has been granted.
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "base/com.h"
#include "base/com_module.h"
#include "host/interfaces/multi_user.h"

namespace qv {

// The four rights over the data scopes that settings dialogs ask for.
[[nodiscard]] const std::set<std::wstring>& AllSettingsRights();

class MultiUserManager final : public ComObjectRoot, public IMultiUserManager {
public:
    using UserRights = std::map<std::wstring, std::set<std::wstring>, std::less<>>;

    // One user who holds every settings right: for hosts that do not tell users apart.
    [[nodiscard]] static ComPtr<MultiUserManager> CreateWithAllRights();
    // A user who is not listed has no rights. Users and rights compare exactly.
    [[nodiscard]] static ComPtr<MultiUserManager> Create(UserRights users, std::wstring currentUser);

    // Takes the right from the current user.
    void Refuse(const std::wstring& right) { m_users[m_user].erase(right); }
    // The rights that were asked for, in order.
    [[nodiscard]] const std::vector<std::wstring>& Asked() const noexcept { return m_asked; }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return InternalAddRef(); }
    ULONG STDMETHODCALLTYPE Release() override { return InternalRelease(); }
    HRESULT STDMETHODCALLTYPE CheckRight(BSTR rightName) override;
    HRESULT STDMETHODCALLTYPE Reserved1() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reserved2() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reserved3() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reserved4() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reserved5() override { return E_NOTIMPL; }

private:
    MultiUserManager(UserRights users, std::wstring user) : m_users(std::move(users)), m_user(std::move(user)) {}

    UserRights m_users;
    std::wstring m_user;
    std::vector<std::wstring> m_asked;
};

}  // namespace qv
