#include "host/services/multi_user_manager.h"

#include <array>
#include <utility>

#include "base/com_guard.h"

namespace qv {

const std::set<std::wstring>& AllSettingsRights() {
    static const std::set<std::wstring> rights{L"Change settings/User data", L"Change settings/Machine data",
                                               L"Change settings/User DB data", L"Change settings/Global data"};
    return rights;
}

ComPtr<MultiUserManager> MultiUserManager::CreateWithAllRights() {
    return Create({{L"", AllSettingsRights()}}, L"");
}

ComPtr<MultiUserManager> MultiUserManager::Create(UserRights users, std::wstring currentUser) {
    return ComPtr<MultiUserManager>(new MultiUserManager(std::move(users), std::move(currentUser)));
}

HRESULT MultiUserManager::QueryInterface(REFIID iid, void** object) {
    static const std::array<InterfaceEntry, 1> table{
        {{&IID_IMultiUserManager, InterfaceOffset<MultiUserManager, IMultiUserManager>()}}};
    return QueryInterfaceTable(this, table, iid, object);
}

HRESULT MultiUserManager::CheckRight(BSTR rightName) {
    return Guarded([&] {
        std::wstring right = TextOf(rightName);
        const auto user = m_users.find(m_user);
        const bool granted = user != m_users.end() && user->second.contains(right);
        m_asked.push_back(std::move(right));
        return granted ? S_OK : S_FALSE;
    });
}

}  // namespace qv
