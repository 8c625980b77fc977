// The DLL as the platform sees it: class factory, interfaces, locks, the one exported operator.
#include "tests/component/com/component_dll.h"

namespace {

TEST_F(ComponentDll, OneObjectAnswersForItsThreeInterfaces) {
    const auto manager = Create<IQVSettingsDialogManager>(IID_IQVSettingsDialogManager);
    const auto identity = Query<IUnknown>(manager, IID_IUnknown);
    for (const IID* id : {&IID_IQVSettingsDialogManager, &IID_ITPFObject, &IID_ITPFMenuCommand, &IID_IUnknown}) {
        const auto face = Query<IUnknown>(manager, *id);
        ASSERT_TRUE(face);
        EXPECT_EQ(Query<IUnknown>(face, IID_IUnknown).Get(), identity.Get());
    }
    EXPECT_FALSE(Query<IUnknown>(manager, IID_IDispatch));
    EXPECT_EQ(manager->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
}

TEST_F(ComponentDll, RefusalsLeaveANullResultAndNoLock) {
    auto* const stale = reinterpret_cast<void*>(0x1234);
    void* out = stale;
    EXPECT_EQ(GetClassObject(IID_IQVSettingsDialogManager, IID_IClassFactory, &out), CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(out, nullptr);
    out = stale;
    EXPECT_EQ(GetClassObject(CLSID_QVSettingsDialogManager, IID_ITPFObject, &out), E_NOINTERFACE);
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(GetClassObject(CLSID_QVSettingsDialogManager, IID_IUnknown, nullptr), E_POINTER);

    out = stale;
    EXPECT_EQ(Factory()->CreateInstance(nullptr, IID_IDispatch, &out), E_NOINTERFACE);
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(Factory()->CreateInstance(nullptr, IID_ITPFObject, nullptr), E_POINTER);
    EXPECT_EQ(Factory()->CreateInstance(hostObject.Get(), IID_IUnknown, &out), CLASS_E_NOAGGREGATION);
    EXPECT_EQ(CanUnloadNow(), S_OK);
}

TEST_F(ComponentDll, UnloadsOnlyWhenNothingOfItIsAlive) {
    EXPECT_EQ(CanUnloadNow(), S_OK);
    {
        auto factory = Factory();
        ASSERT_TRUE(factory);
        EXPECT_EQ(CanUnloadNow(), S_FALSE);
        factory->LockServer(TRUE);
        factory.Reset();
        EXPECT_EQ(CanUnloadNow(), S_FALSE) << "the server lock stays";
        factory = Factory();
        ASSERT_TRUE(factory);
        factory->LockServer(FALSE);
    }
    EXPECT_EQ(CanUnloadNow(), S_OK);
    {
        const auto manager = Create<IQVSettingsDialogManager>(IID_IQVSettingsDialogManager);
        EXPECT_EQ(CanUnloadNow(), S_FALSE);
    }
    EXPECT_EQ(CanUnloadNow(), S_OK);
}

TEST_F(ComponentDll, BrowserSettingsAreCopiedMemberByMember) {
    using Assign = XQVBrowserSettings* (*)(XQVBrowserSettings*, const XQVBrowserSettings*);
    const auto assign = Export<Assign>("_ZN18XQVBrowserSettingsaSERKS_");
    ASSERT_NE(assign, nullptr);
    XQVBrowserSettings from;
    from.m_source = qv::ComPtr<IUnknown>(hostObject.Get());
    from.m_numbers = {1, 2, 3};
    from.m_flags = {1, 0, 1, 0, 1, 0, 1, 0, 1, 1};
    from.m_texts = {L"one", L"two"};
    XQVBrowserSettings to;
    to.m_source = qv::ComPtr<IUnknown>(host.session.Get());
    const ULONG sessionBefore = ReferencesOf(host.session.Get());
    const ULONG hostBefore = ReferencesOf(hostObject.Get());
    EXPECT_EQ(assign(&to, &from), &to);
    EXPECT_EQ(to.m_source.Get(), from.m_source.Get());
    EXPECT_EQ(to.m_numbers, from.m_numbers);
    EXPECT_EQ(to.m_flags, from.m_flags);
    EXPECT_EQ(to.m_texts, from.m_texts);
    EXPECT_EQ(ReferencesOf(host.session.Get()), sessionBefore - 1);
    EXPECT_EQ(ReferencesOf(hostObject.Get()), hostBefore + 1);
    EXPECT_EQ(assign(&to, &to), &to);
    EXPECT_EQ(to.m_texts[1], L"two");
}

}  // namespace
