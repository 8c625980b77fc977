// The manager: what it answers, what it shows without a dialog, and the dialog through COM from end to end.
#include <new>
#include <stdexcept>

#include "qvclient/qvsettingsdialog/com/settings_module.h"
#include "qvclient/qvsettingsdialog/controls/module_host.h"
#include "tests/component/com/component_dll.h"
#include "tests/support/watched_host.h"

using qv::MessageBoxCall;
using qv::SessionOperation;

namespace {

constexpr const wchar_t* kNoManagers = L"Can't get SessionDataManager or MultiUserManager!";

class Manager : public ComponentDll {
protected:
    // Of the dialog, or -1.
    static LONG Open(IQVSettingsDialogManager& manager, std::wstring_view caption, IQVSettingsDialogDataIO* dataIO) {
        LONG result = 77;
        EXPECT_EQ(manager.CreateModalDialogEx(qv::Bstr(caption).Get(), dataIO, &result), S_OK);
        return result;
    }
    // Opens the dialog, acts in it and presses the button that ends it.
    void InDialog(IQVSettingsDialogManager& manager, std::function<void()> act, int end = IDOK,
                  IQVSettingsDialogDataIO* dataIO = nullptr) {
        EXPECT_EQ(driver.Run([&] { return static_cast<int>(Open(manager, L"Caption", dataIO)); },
                             {std::move(act), [this, end] { driver.Press(end); }}),
                  end);
    }
    void ExpectOneBox(MessageBoxCall::Kind kind, std::wstring_view caption, std::wstring_view text) {
        ASSERT_EQ(driver.boxes.size(), 1U);
        EXPECT_EQ(driver.boxes[0].kind, kind);
        EXPECT_EQ(driver.boxes[0].text, text);
        if (kind == MessageBoxCall::Kind::Info) {
            EXPECT_EQ(driver.boxes[0].caption, caption);
            EXPECT_EQ(driver.boxes[0].owner, nullptr);
            EXPECT_EQ(driver.boxes[0].flags, 0U);
        }
    }
};

TEST_F(Manager, GettersLeaveTheCallersVariablesAlone) {
    const auto manager = Create<IQVSettingsDialogManager>(IID_IQVSettingsDialogManager);
    LONG path = 7;
    EXPECT_EQ(manager->get_m_CtrlPath(&path), S_OK);
    EXPECT_EQ(manager->put_m_CtrlPath(2), S_OK);
    EXPECT_EQ(manager->get_m_CtrlPath(&path), S_OK);
    EXPECT_EQ(path, 7);

    BSTR key = nullptr;
    EXPECT_EQ(manager->GetOptionKey(&key), S_OK);
    EXPECT_EQ(key, nullptr);
    // A string that the variable holds is released; the variable still points where it did.
    BSTR held = SysAllocString(L"mine");
    BSTR const before = held;
    EXPECT_EQ(manager->GetOptionKey(&held), S_OK);
    EXPECT_EQ(held, before);

    EXPECT_EQ(manager->get_m_CtrlPath(nullptr), S_OK);
    EXPECT_EQ(manager->GetOptionKey(nullptr), S_OK);
}

TEST_F(Manager, WithoutServicesItSaysSoUntranslatedAndTheHostStillReadsAgain) {
    const qvtest::ScopedDictionary dictionary(qv::Dictionary{{kNoManagers, L"translated"}});
    const auto manager = Create<IQVSettingsDialogManager>(IID_IQVSettingsDialogManager);
    EXPECT_EQ(Open(*manager.Get(), L"My caption", nullptr), -1);
    ExpectOneBox(MessageBoxCall::Kind::Info, L"My caption", kNoManagers);
    EXPECT_EQ(s_browserReads, 1);
}

TEST_F(Manager, NothingDefinedIsSaidOnceAndTheHostStillReadsAgain) {
    const auto manager = CreateConnected();
    EXPECT_EQ(Open(*manager.Get(), L"My caption", nullptr), -1);
    ExpectOneBox(MessageBoxCall::Kind::Info, L"My caption", L"No settings defined");
    EXPECT_EQ(s_browserReads, 1);
    // Null arguments are taken: no caption, nobody who wants the result.
    EXPECT_EQ(manager->CreateModalDialogEx(nullptr, nullptr, nullptr), S_OK);
    EXPECT_EQ(manager->CreateModalDialog(nullptr), S_OK);
    EXPECT_EQ(driver.boxes.size(), 3U);
}

// Both messages of the manager are shown as they stand, this one too.
TEST_F(Manager, WhatIsThrownOnTheWayStaysInsideAndTheHostStillReadsAgain) {
    const qvtest::ScopedDictionary dictionary(qv::Dictionary{{L"No settings defined", L"translated"}});
    const auto manager = CreateConnected();
    std::wstring shown;
    const qvtest::ScopedMessageBoxSink sink([&](const MessageBoxCall& call) -> int {
        shown = call.text;
        throw std::bad_alloc();
    });
    EXPECT_EQ(Open(*manager.Get(), L"c", nullptr), -1);
    EXPECT_EQ(shown, L"No settings defined");
    EXPECT_EQ(s_browserReads, 1);
}

TEST_F(Manager, AHostWithoutBrowserSettingsIsLeftAlone) {
    XQVBrowserSettings::SetReader(nullptr);
    const auto manager = CreateConnected();
    EXPECT_EQ(Open(*manager.Get(), L"c", nullptr), -1);
    EXPECT_EQ(s_browserReads, 0);
}

TEST_F(Manager, MenuCommandIsKnownByItsWholeNameWithoutCase) {
    const auto command = Create<ITPFMenuCommand>(IID_ITPFMenuCommand);
    const struct {
        const wchar_t* name;
        HRESULT expected;
        std::size_t boxes;
    } cases[] = {
        {L"tools/settings/change...", S_OK, 1},
        {L"TOOLS/Settings/CHANGE...", S_OK, 1},
        {L"tools/settings/change", S_FALSE, 0},
        {L"tools/settings/change... ", S_FALSE, 0},
        {L"", S_FALSE, 0},
    };
    for (const auto& each : cases) {
        driver.boxes.clear();
        DWORD state = 5;
        EXPECT_EQ(command->QueryCommandState(each.name, &state), each.expected);
        EXPECT_EQ(state, each.expected == S_OK ? 0U : 5U);
        EXPECT_TRUE(driver.boxes.empty());
        EXPECT_EQ(command->ExecuteCommand(each.name), each.expected);  // S_OK even though nothing could be shown
        EXPECT_EQ(driver.boxes.size(), each.boxes);
    }
    EXPECT_EQ(command->Reserved3(nullptr, nullptr, nullptr), E_NOTIMPL);
}

TEST_F(Manager, MenuCommandSetsScopeAndKeyForGood) {
    const auto manager = CreateConnected();
    const auto scopeAndKey = [&] {
        host.session->ClearCalls();
        Open(*manager.Get(), L"c", nullptr);
        const auto loads = host.session->CallsOf(SessionOperation::LoadData);
        const auto keys = host.session->CallsOf(SessionOperation::EnumSubKeys);
        return std::pair{loads.at(0).scope, keys.at(0).key};
    };
    EXPECT_EQ(scopeAndKey(), (std::pair<SESSIONDATATYPE, std::wstring>{SDT_machineData, L"option-configuration"}));
    manager->put_m_CtrlPath(SDT_globalData);
    manager->SetOptionKey(qv::Bstr(L"other").Get());
    EXPECT_EQ(scopeAndKey(), (std::pair<SESSIONDATATYPE, std::wstring>{SDT_globalData, L"other"}));
    EXPECT_EQ(Query<ITPFMenuCommand>(manager, IID_ITPFMenuCommand)->ExecuteCommand(L"tools/settings/change..."), S_OK);
    EXPECT_EQ(driver.boxes.back().caption, L"Settings");
    EXPECT_EQ(scopeAndKey(), (std::pair<SESSIONDATATYPE, std::wstring>{SDT_machineData, L"option-configuration"}));
    manager->SetOptionKey(nullptr);
    EXPECT_EQ(scopeAndKey().second, L"");
}

// Acts when it is let go, once.
class PlainHost final : public qvtest::HostStub {
public:
    using HostStub::HostStub;
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = HostStub::Release();
        if (const auto act = std::exchange(onRelease, {})) act();
        return left;
    }
    std::function<void()> onRelease;
};

TEST_F(Manager, ConnectingTellsWhatTheHostLacks) {
    constexpr const wchar_t* kNoSessionData = L"Can't get SessionDataManager !";
    const qvtest::ScopedDictionary dictionary(qv::Dictionary{{kNoManagers, L"neither"}, {kNoSessionData, L"no data"}});
    IUnknown* const session = host.session.Get();
    IUnknown* const users = host.users.Get();
    const struct {
        const char* name;
        IUnknown* sessionData;
        IUnknown* multiUser;
        bool hasHost;
        HRESULT expected;
        const wchar_t* box;  // null: none
    } cases[] = {
        {"both", session, users, true, S_OK, nullptr},
        {"no session data: found out later", nullptr, users, true, S_OK, nullptr},
        {"no users", session, nullptr, true, E_FAIL, L"neither"},
        {"users of another kind", session, session, true, E_FAIL, L"neither"},
        {"nothing", nullptr, nullptr, true, E_FAIL, L"neither"},
        {"session data of another kind", users, users, true, E_FAIL, L"no data"},
        {"no host", session, users, false, E_FAIL, L"neither"},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        driver.boxes.clear();
        PlainHost offers(each.sessionData, each.multiUser);
        const ULONG sessionBefore = ReferencesOf(session);
        const ULONG usersBefore = ReferencesOf(users);
        {
            const auto object = Create<ITPFObject>(IID_ITPFObject);
            if (each.hasHost) object->SetHost(&offers, nullptr);
            EXPECT_EQ(object->ConnectServices(1, this), each.expected);
        }
        EXPECT_EQ(ReferencesOf(session), sessionBefore);
        EXPECT_EQ(ReferencesOf(users), usersBefore);
        EXPECT_EQ(offers.references, 0U);
        if (each.box == nullptr) {
            EXPECT_TRUE(driver.boxes.empty());
        } else {
            ExpectOneBox(MessageBoxCall::Kind::Plain, {}, each.box);
        }
    }
}

TEST_F(Manager, ReferencesAreBalanced) {
    const auto companion = qv::MultiUserManager::CreateWithAllRights();
    const auto counts = [&] {
        return std::vector<ULONG>{ReferencesOf(hostObject.Get()), ReferencesOf(companion.Get()),
                                  ReferencesOf(host.session.Get()), ReferencesOf(host.users.Get())};
    };
    const std::vector<ULONG> before = counts();
    {
        const auto object = Create<ITPFObject>(IID_ITPFObject);
        object->SetHost(hostObject.Get(), companion.Get());
        object->SetHost(hostObject.Get(), companion.Get());
        EXPECT_EQ(counts()[0], before[0] + 2) << "the manager's and the module's";
        EXPECT_EQ(object->ConnectServices(0, nullptr), S_OK);
        EXPECT_EQ(object->ConnectServices(0, nullptr), S_OK);
        EXPECT_EQ(counts()[2], before[2] + 1);
        EXPECT_EQ(object->ReleaseHost(), S_OK);
        EXPECT_EQ(counts()[0], before[0] + 1) << "the module keeps its own";
        EXPECT_EQ(counts()[1], before[1]);
        EXPECT_EQ(counts()[3], before[3] + 1) << "the services stay";
    }
    EXPECT_EQ(counts(), before);
}

TEST_F(Manager, AnyManagersEndEmptiesTheModuleHost) {
    const ULONG before = ReferencesOf(hostObject.Get());
    const auto first = Create<ITPFObject>(IID_ITPFObject);
    first->SetHost(hostObject.Get(), nullptr);
    { const auto second = Create<ITPFObject>(IID_ITPFObject); }
    EXPECT_EQ(ReferencesOf(hostObject.Get()), before + 1);
}

TEST_F(Manager, ShowsTheDialogOnTheHostsTreeAndOkStores) {
    host.DefinePlainPage();
    const auto manager = CreateConnected();
    const ULONG sessionBefore = ReferencesOf(host.session.Get());
    InDialog(*manager.Get(), [this] {
        EXPECT_EQ(driver.Frame().GetWindowText(), L"Caption");
        EXPECT_EQ(driver.Shown(L"common/count"), L"7");
        EXPECT_EQ(CanUnloadNow(), S_FALSE);
        driver.Type(L"common/count", L"3");
        driver.Toggle(L"common/flag");
    });
    EXPECT_EQ(host.Stored(L"common/count"), L"3");
    EXPECT_EQ(host.Stored(L"common/flag"), L"1");
    EXPECT_EQ(s_browserReads, 1);
    EXPECT_EQ(ReferencesOf(host.session.Get()), sessionBefore);

    InDialog(
        *manager.Get(), [] {}, IDCANCEL);
    EXPECT_EQ(s_browserReads, 2);
}

TEST_F(Manager, SurvivesBeingReleasedWhileItsDialogIsOpen) {
    host.DefinePlainPage();
    auto manager = CreateConnected();
    IQVSettingsDialogManager* plain = manager.Get();
    InDialog(*plain, [&] { manager.Reset(); });
    EXPECT_EQ(CanUnloadNow(), S_OK);
}

// A caller's own store: values come from it and go to it; the tree stays the host's.
class CallersStore final : public qvtest::StackObject<IQVSettingsDialogDataIO> {
public:
    CallersStore() : StackObject(IID_IQVSettingsDialogDataIO) {}
    HRESULT STDMETHODCALLTYPE GetData(BSTR, BSTR name, USHORT type, VARIANT* value, SESSIONDATATYPE scope) override {
        EXPECT_EQ(type, VT_BSTR);
        EXPECT_TRUE(scope == SDT_userDataDB || qv::TextOf(name) != L"name");
        if (qv::TextOf(name) != L"name") return E_FAIL;
        value->vt = VT_BSTR;
        value->bstrVal = SysAllocString(L"from the caller");
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE WriteData(BSTR key, BSTR name, VARIANT value, SESSIONDATATYPE scope) override {
        EXPECT_EQ(value.vt, VT_BSTR);
        calls.push_back(std::to_wstring(scope) + L" " + qv::TextOf(key) + L"/" + qv::TextOf(name) + L"=" +
                        qv::TextOf(value.bstrVal));
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE SaveData(SESSIONDATATYPE scope, BSTR key, BSTR name) override {
        calls.push_back(std::to_wstring(scope) + L" save " + qv::TextOf(key) + L"/" + qv::TextOf(name));
        return S_OK;
    }
    std::vector<std::wstring> calls;
};

TEST_F(Manager, ACallersStoreTakesTheValues) {
    host.DefinePage(L"1", L"General");
    host.DefineItem(L"common/name", 3, 1, {{L"globaldata", L"2"}});
    const auto manager = CreateConnected();
    CallersStore store;
    InDialog(
        *manager.Get(),
        [this] {
            EXPECT_EQ(driver.Shown(L"common/name"), L"from the caller");
            driver.Type(L"common/name", L"back");
        },
        IDOK, &store);
    EXPECT_EQ(store.calls, (std::vector<std::wstring>{L"2 common/name=back", L"2 save common/name"}));
    EXPECT_EQ(store.references, 0U);
    EXPECT_TRUE(host.session->CallsOf(SessionOperation::WriteData).empty());
}

TEST_F(Manager, SurvivesAHostThatDropsItWhenItIsLetGo) {
    for (const bool replaced : {false, true}) {
        PlainHost first;
        PlainHost second;
        auto object = Create<ITPFObject>(IID_ITPFObject);
        object->SetHost(&first, &first);
        first.onRelease = [&] { object.Reset(); };
        ITPFObject* plain = object.Get();
        EXPECT_EQ(replaced ? plain->SetHost(&second, &second) : plain->ReleaseHost(), S_OK);
        EXPECT_EQ(object.Get(), nullptr);
        EXPECT_EQ(first.references + second.references, 0U);
        EXPECT_EQ(CanUnloadNow(), S_OK);
    }
}

// How the dialog ended is told all the same, and the next one has the host read again.
TEST_F(Manager, ABrowserSettingsReaderThatThrowsChangesNoResult) {
    host.DefinePlainPage();
    XQVBrowserSettings::SetReader([](XQVBrowserSettings&) {
        ++s_browserReads;
        throw std::runtime_error("reader");
    });
    const auto manager = CreateConnected();
    InDialog(*manager.Get(), [] {});
    InDialog(
        *manager.Get(), [] {}, IDCANCEL);
    EXPECT_EQ(s_browserReads, 2);
    XQVBrowserSettings::SetReader(nullptr);
    EXPECT_EQ(XQVBrowserSettings::GetBrowserSettingsObject(), nullptr) << "given back after each of them";
}

// When the process ends the host may have gone before the component.
TEST_F(Manager, TheModulesEndCallsNoHost) {
    PlainHost last;
    CQVSettingsDialogApp app;
    EXPECT_TRUE(app.InitInstance());
    SetModuleHostIfEmpty(&last);
    EXPECT_EQ(last.references, 1U);
    app.ExitInstance();
    EXPECT_EQ(last.references, 1U);
    EXPECT_FALSE(GetModuleHost()) << "forgotten, though not released";
}

// A host that does the worst in each of its calls in turn, from the first service that is asked for on.
TEST_F(Manager, SurvivesAHostThatDropsItOrClosesItsWindowInAnyCall) {
    host.DefinePlainPage();
    host.session->Put(SDT_userData, L"common", L"configdialoginit", L"1");
    qvtest::WatchedHost watched(host);
    CWnd owner;
    qv::ComPtr<IQVSettingsDialogManager> manager;
    std::size_t calls = 0;
    std::size_t at = 0;
    std::function<void()> deed;
    watched.onCall = [&](const std::wstring&) {
        if (++calls == at) deed();
    };
    const auto run = [&](std::size_t place, std::function<void()> rude) {
        calls = 0;
        at = place;
        deed = std::move(rude);
        if (!owner.IsLive()) {
            owner.CreateEx(0, nullptr, L"owner", WS_OVERLAPPEDWINDOW | WS_VISIBLE, {0, 0, 300, 200}, nullptr, 0);
        }
        SetActiveWindow(owner.m_hWnd);
        manager = Create<IQVSettingsDialogManager>(IID_IQVSettingsDialogManager);
        {
            auto object = Query<ITPFObject>(manager, IID_ITPFObject);
            object->SetHost(watched.Host(), nullptr);
            ITPFObject* plain = object.Get();
            object.Reset();
            plain->ConnectServices(0, nullptr);
        }
        LONG result = -1;
        if (IQVSettingsDialogManager* plain = manager.Get()) {
            const qvtest::ScopedIdleHandler ok([&](int) { return driver.PressKey(VK_RETURN); });
            result = Open(*plain, L"Caption", nullptr);
        }
        manager.Reset();
        EXPECT_EQ(CanUnloadNow(), S_OK) << "something of the dialog is left";
        EXPECT_TRUE(qv::LiveLayouts().empty());
        PumpPending();
        return result;
    };
    EXPECT_EQ(run(0, {}), IDOK);
    const std::size_t all = calls;
    ASSERT_GT(all, 40U);
    constexpr std::size_t kStep = 3;
    for (std::size_t place = 1; place <= all; place += kStep) {
        SCOPED_TRACE(place);
        const LONG dropped = run(place, [&] { manager.Reset(); });
        EXPECT_TRUE(dropped == IDOK || (place <= 2 && dropped == -1)) << dropped;
        const LONG closed = run(place, [&] { owner.DestroyWindow(); });
        EXPECT_TRUE(closed == IDOK || closed == IDCANCEL) << closed;
    }
}

}  // namespace
