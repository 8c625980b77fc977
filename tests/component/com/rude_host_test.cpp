// Whatever a host leaves in its out parameters when a call fails, the dialog lives: each call of a whole run that hands
// something out misbehaves once, in each way. That nothing is freed twice or left is for the sanitizers to say.
#include "tests/component/com/rude_host.h"
#include "qvclient/qvsettingsdialog/resources/resource_ids.h"
#include "tests/component/com/component_dll.h"

namespace {

struct RudeCase {
    const char* name;
    Rudeness how;
    bool hasStore;  // the caller hands in a store of its own
};

class RudeHostRun : public ComponentDll, public ::testing::WithParamInterface<RudeCase> {
protected:
    RudeHostRun() {
        host.DefinePage(L"1", L"General");
        host.DefineItem(L"common/count", 1, 1, {{L"default", L"4"}});
        host.DefineItem(L"common/list", 5, 1, {{L"value1", L"a|Alpha"}});
        for (const int type : {10, 11, 12})
            host.DefineItem(L"common/button" + std::to_wstring(type), type, 1, {{L"default", L"old"}});
        host.session->Put(SDT_userData, L"common", L"count", L"7");
        host.session->Put(SDT_userData, L"common", L"configdialoginit", L"1");
        host.session->Put(SDT_userData, L"SizeConfigDialog", L"top.x", L"10");
    }

    // Everything a person does in the dialog, as far as there is one.
    bool Step() {
        const auto press = [this](const wchar_t* button) {
            CWnd* control = driver.Control(button);
            if (control != nullptr) control->SendMessage(BM_CLICK);
        };
        const std::function<void()> steps[] = {
            [&] { press(L"common/button10"); },         [&] { press(L"common/button11"); },
            [&] { press(L"common/button12"); },         [this] { driver.Type(L"common/count", L"8"); },
            [this] { driver.Press(IDC_APPLY_BUTTON); }, [this] { driver.Press(IDOK); },
        };
        if (driver.Control(L"common/count") != nullptr && m_step < std::size(steps)) {
            steps[m_step++]();
        } else {
            // What is still open then is closed; a sheet without pages is all that should be.
            ::PostMessageW(::GetAncestor(::GetActiveWindow(), GA_ROOT), WM_CLOSE, 0, 0);
        }
        return true;
    }

    // Connects a manager to a rude host and shows the dialog; the number of calls that handed something out.
    int Run(int rudeCall) {
        RudeTurn turn{rudeCall, GetParam().how};
        RudeSession session(turn, host.session.Get());
        Rude<qvtest::UsersStub> users(turn);
        RudeDialogs dialogs(turn);
        RudeHost rude(turn, &session, &users, &dialogs);
        RudeStore store(turn, *host.session.Get());
        m_step = 0;
        {
            const auto manager = Create<IQVSettingsDialogManager>(IID_IQVSettingsDialogManager);
            const auto object = Query<ITPFObject>(manager, IID_ITPFObject);
            object->SetHost(&rude, nullptr);
            object->ConnectServices(0, nullptr);
            const qvtest::ScopedIdleHandler steps([this](int) { return Step(); });
            LONG result = 0;
            const qv::Bstr caption(L"Rude");
            manager->CreateModalDialogEx(caption.Get(), GetParam().hasStore ? &store : nullptr, &result);
            if (rudeCall == 0) {
                EXPECT_EQ(result, IDOK);
                EXPECT_TRUE(driver.boxes.empty());
            }
        }
        EXPECT_EQ(session.references + users.references + dialogs.references + rude.references + store.references, 0U);
        EXPECT_EQ(CanUnloadNow(), S_OK);
        return turn.calls;
    }

private:
    std::size_t m_step = 0;
};

TEST_P(RudeHostRun, IsSurvivedWhicheverCallItIs) {
    const int calls = Run(0);
    EXPECT_EQ(host.Stored(L"common/count"), L"8");
    EXPECT_EQ(host.Stored(L"common/button10"), L"edited");
    ASSERT_GT(calls, 25);
    for (int call = 1; call <= calls; ++call) {
        SCOPED_TRACE(call);
        Run(call);
    }
}

INSTANTIATE_TEST_SUITE_P(Hosts, RudeHostRun,
                         ::testing::Values(RudeCase{"FailsWithPoison", Rudeness::FailsWithPoison, false},
                                           RudeCase{"FailsWithPoisonInTheStore", Rudeness::FailsWithPoison, true},
                                           RudeCase{"AnswersFalseWithPoison", Rudeness::FalseWithPoison, false},
                                           RudeCase{"DeliversNothing", Rudeness::NothingDelivered, false},
                                           RudeCase{"DeliversSomethingElse", Rudeness::SomethingElse, true}),
                         [](const auto& tested) { return std::string(tested.param.name); });

}  // namespace
