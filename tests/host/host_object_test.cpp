#include "host/services/host_object.h"

#include <gtest/gtest.h>

#include "host/services/multi_user_manager.h"
#include "tests/support/memory_session_data.h"

namespace {

using qv::ComPtr;

TEST(HostObject, HandsOutTheServicesItHasAndNothingElse) {
    const auto session = qv::MemorySessionData::Create();
    const auto users = qv::MultiUserManager::CreateWithAllRights();
    const auto host =
        qv::HostObject::Create(ComPtr<ISessionDataManager>(session.Get()), ComPtr<IMultiUserManager>(users.Get()));
    const struct {
        const char* name;
        const GUID& service;
        const IID& wanted;
        bool isOffered;
    } cases[] = {
        {"session data", SID_SessionData, IID_ISessionDataManager, true},
        {"users", SID_MultiUser, IID_IMultiUserManager, true},
        {"dialogs, without a factory", CLSID_HostDialogService, IID_HostDialogService, false},
        {"unknown", IID_ITPFObject, IID_ITPFObject, false},
    };
    for (const auto& c : cases) {
        auto* raw = reinterpret_cast<IUnknown*>(session.Get());
        EXPECT_EQ(host->CreateObject(c.service, 1, &raw), c.isOffered ? S_OK : E_NOINTERFACE) << c.name;
        const auto object = ComPtr<IUnknown>::Adopt(raw);
        ASSERT_EQ(static_cast<bool>(object), c.isOffered) << c.name;
        if (!object) continue;
        EXPECT_TRUE(qv::QueryFor<IUnknown>(*object.Get(), c.wanted)) << c.name;
        EXPECT_FALSE(qv::QueryFor<IUnknown>(*object.Get(), IID_ITPFMenuCommand));
    }
    EXPECT_EQ(host->CreateObject(SID_SessionData, 1, nullptr), E_POINTER);
}

TEST(HostObject, FailingDialogServiceFactoryLeavesNothingBehind) {
    IUnknown* object = nullptr;
    const auto empty = qv::HostObject::Create({}, {}, [] { return ComPtr<HostDialogService>(); });
    EXPECT_EQ(empty->CreateObject(CLSID_HostDialogService, 1, &object), E_NOINTERFACE);
    EXPECT_EQ(empty->CreateObject(SID_SessionData, 1, &object), E_NOINTERFACE);
    const auto throwing = qv::HostObject::Create({}, {}, []() -> ComPtr<HostDialogService> { throw 1; });
    EXPECT_EQ(throwing->CreateObject(CLSID_HostDialogService, 1, &object), E_FAIL);
    EXPECT_EQ(object, nullptr);
}

TEST(MultiUserManager, RightIsGrantedToWhomItWasGivenOnly) {
    const qv::MultiUserManager::UserRights users{{L"anna", {L"Change settings/User data"}}, {L"bert", {}}};
    const struct {
        const wchar_t* user;
        const wchar_t* right;
        HRESULT answer;
    } cases[] = {
        {L"anna", L"Change settings/User data", S_OK},      {L"anna", L"change settings/user data", S_FALSE},
        {L"anna", L"Change settings/Global data", S_FALSE}, {L"bert", L"Change settings/User data", S_FALSE},
        {L"nobody", L"Change settings/User data", S_FALSE}, {L"anna", L"", S_FALSE},
    };
    for (const auto& c : cases) {
        const auto manager = qv::MultiUserManager::Create(users, c.user);
        EXPECT_EQ(manager->CheckRight(qv::Bstr(c.right).Get()), c.answer) << c.user << L": " << c.right;
    }
    const auto all = qv::MultiUserManager::CreateWithAllRights();
    for (const std::wstring& right : qv::AllSettingsRights())
        EXPECT_EQ(all->CheckRight(qv::Bstr(right).Get()), S_OK);
    EXPECT_EQ(all->CheckRight(nullptr), S_FALSE);
}

}  // namespace
