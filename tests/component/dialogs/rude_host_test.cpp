// A host that destroys windows, throws or ends the thread's loop in the middle of any of its calls: the dialog ends, or
// goes on, and nothing of it is touched that is gone.
#include <algorithm>
#include <map>
#include <memory>
#include <stdexcept>

#include "framework/app.h"
#include "qvclient/qvsettingsdialog/controls/module_host.h"
#include "qvclient/qvsettingsdialog/resources/resource_ids.h"
#include "tests/component/dialogs/whole_dialog.h"
#include "tests/support/watched_host.h"

namespace {

std::wstring ExistingFolder() {
    std::wstring path(MAX_PATH, L'\0');
    path.resize(GetTempPathW(MAX_PATH, path.data()));
    return path;
}

class RudeHost : public WholeDialog {
protected:
    // What is done to the dialog in the middle of a call; false when there is nothing yet to do it to.
    using Deed = std::function<bool()>;
    struct Call {
        std::wstring name;
        bool whileLoading;
    };

    RudeHost() : watched(host) {
        SetModuleHostIfEmpty(watched.Host());
        watched.onCall = [this](const std::wstring& call) {
            calls.push_back({call, FrameWindow() == nullptr || IsWindowVisible(FrameWindow()) == FALSE});
            if (calls.size() == m_at && m_deed) deedWasDone = m_deed();
        };
        host.DefinePlainPage();
        host.DefinePage(L"2", L"Special");
        host.DefineItem(L"special/list", 5, 2, {{L"default", L"a"}});
        host.DefineItem(L"special/password", 6, 2, {{L"default", L""}});
        host.DefineItem(L"special/folder", 7, 2, {{L"checkpath", L"1"}, {L"default", ExistingFolder()}});
        host.DefineItem(L"special/colour", 8, 2, {{L"default", L"255"}});
        host.DefineItem(L"special/edit", 10, 2, {{L"default", L"text"}});
        host.DefineItem(L"special/beside", 13, 2, {{L"default", L"text"}});
    }
    ~RudeHost() override { ClearModuleHost(); }

    enum class Kind { InFrame, FreeModal, FreeModeless };

    // One dialog, walked through as a person would, with the deed done in the n-th call (from 1; 0: never). It ends by
    // itself or, where the deed leaves a dialog that nobody can go on with, by its close box. 0 for a modeless one.
    int Run(std::size_t at, Deed deed, Kind kind = Kind::InFrame) {
        ResetData();
        calls.clear();
        watched.boxes.clear();
        m_at = at;
        m_deed = std::move(deed);
        deedWasDone = false;
        m_step = 0;
        m_closings = 0;
        XConstructionSet model(qvtest::kOptionKey, SDT_machineData, nullptr,
                               qv::ComPtr<ISessionDataManager>(watched.Session()),
                               qv::ComPtr<IMultiUserManager>(watched.Users()));
        const qvtest::ScopedIdleHandler walk([this](int) { return OnIdle(); });
        int result = 0;
        if (kind == Kind::InFrame) {
            XDynDialogScroll frame(L"Test settings", model, true, nullptr);
            m_outermost = &frame;
            result = static_cast<int>(frame.DoModal());
            EXPECT_TRUE(qv::LiveLayouts().empty()) << "pages that outlive the dialog";
        } else if (kind == Kind::FreeModal) {
            XDynDialog dialog(model, nullptr);
            m_outermost = &dialog;
            result = static_cast<int>(dialog.DoModal());
        } else {
            XDynDialogModeless dialog(model, CWnd::FromHandle(GetActiveWindow()));
            m_outermost = &dialog;
            if (dialog.Create(IDD_SETTINGS_MODELESS, CWnd::FromHandle(GetActiveWindow()))) {
                dialog.ShowWindow(SW_SHOW);
                RunMessageLoop([&] { return dialog.IsLive(); });
            }
        }
        m_outermost = nullptr;
        return result;
    }

    // A clean run's calls: the first, the middle and the last one of each operation.
    std::vector<std::size_t> Places(Kind kind = Kind::InFrame) {
        EXPECT_EQ(Run(0, {}, kind), kind == Kind::FreeModeless ? 0 : IDOK);
        std::map<std::wstring, std::vector<std::size_t>> byOperation;
        for (std::size_t i = 0; i < calls.size(); ++i)
            byOperation[calls[i].name.substr(0, calls[i].name.find(L' '))].push_back(i + 1);
        EXPECT_EQ(byOperation.size(), 11U) << "an operation that the walk does not reach";
        std::vector<std::size_t> places;
        for (const auto& [operation, at] : byOperation) {
            for (const std::size_t i : {std::size_t{0}, at.size() / 2, at.size() - 1})
                places.push_back(at[i]);
        }
        std::sort(places.begin(), places.end());
        places.erase(std::unique(places.begin(), places.end()), places.end());
        for (m_lastStore = calls.size(); !IsStoring(calls[m_lastStore - 1].name); --m_lastStore) {
        }
        return places;
    }
    // The first deed of a table is done in all places, the others in every second one, in turn.
    static std::vector<std::size_t> SomeOf(const std::vector<std::size_t>& places, std::ptrdiff_t deed) {
        std::vector<std::size_t> some;
        for (std::size_t i = 0; i < places.size(); ++i) {
            if (deed == 0 || (i + static_cast<std::size_t>(deed)) % 2 == 0) some.push_back(places[i]);
        }
        return some;
    }
    // Everything was stored by the time of that call.
    [[nodiscard]] bool IsAfterStoring(std::size_t place) const { return place > m_lastStore; }
    // A write or save of an item's value, not of the placement.
    static bool IsStoring(const std::wstring& call) {
        return (call.starts_with(L"WriteData") || call.starts_with(L"SaveData")) &&
               call.find(L"SizeConfigDialog") == std::wstring::npos;
    }
    // A value that was written is saved, and no other is stored after it. The placement is, in between.
    void ExpectStoringStoppedAfter(std::size_t place) const {
        std::vector<std::wstring> stored;
        for (std::size_t i = place; i < calls.size(); ++i) {
            if (IsStoring(calls[i].name)) stored.push_back(calls[i].name);
        }
        std::vector<std::wstring> expected;
        const std::wstring& there = calls[place - 1].name;
        if (there.starts_with(L"WriteData") && IsStoring(there)) {
            expected.push_back(L"SaveData" + there.substr(there.find(L' ')));
        }
        EXPECT_EQ(stored, expected);
    }
    [[nodiscard]] bool SaidThatItCannotOpen() const {
        return std::any_of(watched.boxes.begin(), watched.boxes.end(), [](const qv::MessageBoxCall& box) {
            return box.text == L"The settings dialog could not be opened." && box.owner == nullptr &&
                   box.caption == L"Test settings";
        });
    }

    // The frame, or the dialog that has none.
    [[nodiscard]] HWND FrameWindow() const { return m_outermost != nullptr ? m_outermost->m_hWnd : nullptr; }
    [[nodiscard]] HWND ViewWindow() const { return ChildOf<XFormViewDlg>(FrameWindow()); }
    [[nodiscard]] HWND DialogWindow() const { return ChildOf<XDialogForView>(ViewWindow()); }
    [[nodiscard]] HWND SheetWindow() const {
        HWND inside = ChildOf<XDynPropertySheet>(DialogWindow());
        return inside != nullptr ? inside : ChildOf<XDynPropertySheet>(FrameWindow());
    }
    // A window that the next dialog belongs to.
    void RenewOwner() {
        if (!owner.IsLive()) owner.CreateEx(0, nullptr, L"owner", WS_POPUP | WS_VISIBLE, {0, 0, 9, 9}, nullptr, 0);
        SetActiveWindow(owner.m_hWnd);
    }
    static bool Destroy(HWND window) { return window != nullptr && DestroyWindow(window) != FALSE; }

    qvtest::WatchedHost watched;
    CWnd owner;
    std::vector<Call> calls;
    bool deedWasDone = false;

private:
    template <class Window>
    static HWND ChildOf(HWND parent) {
        HWND child = parent != nullptr ? GetWindow(parent, GW_CHILD) : nullptr;
        while (child != nullptr && dynamic_cast<Window*>(CWnd::FromHandlePermanent(child)) == nullptr)
            child = GetWindow(child, GW_HWNDNEXT);
        return child;
    }

    // Whatever earlier runs have changed is put back: a count out of range, a password that is none, no such folder.
    void ResetData() {
        const auto put = [this](std::wstring_view key, std::wstring_view name, std::wstring_view text) {
            host.session->Put(SDT_userData, key, name, text);
        };
        put(L"common", L"configdialoginit", L"1");
        put(L"common", L"count", L"99");
        put(L"common", L"name", L"Anna");
        put(L"special", L"password", L"xyz");
        put(L"special", L"folder", L"?:\\none");
    }

    bool OnIdle() {
        if (m_inStep || FrameWindow() == nullptr) return false;
        const std::function<void()> steps[] = {
            [this] { driver.Press(IDC_HELP_BUTTON); },
            [this] { driver.Type(L"common/count", L"11"); },
            [this] { driver.Press(IDC_APPLY_BUTTON); },  // refused: the count, with a message
            [this] { driver.Type(L"common/count", L"5"); },
            [this] { driver.SwitchPage(1); },
            [this] { driver.Type(L"special/password", L" "); },  // refused, with a message
            [this] { Browse(L"special/folder"); },
            [this] { driver.Toggle(L"special/colour"); },
            [this] { driver.Toggle(L"special/edit"); },
            [this] { driver.Toggle(L"special/beside"); },
            [this] { driver.Press(IDC_APPLY_BUTTON); },  // refused: the folder, with a message
            [this] { driver.Press(IDC_DEFAULT_BUTTON); },
            [this] {
                // One value cannot be saved, with a message.
                host.session->FailNth(qv::SessionOperation::SaveData, 2);
                driver.Press(IDC_APPLY_BUTTON);
            },
            [this] { driver.SwitchPage(0); },
            [this] { driver.Type(L"common/name", L"Cora"); },
            [this] { driver.PressKey(VK_RETURN); },
        };
        if (m_step < std::size(steps) && SheetWindow() != nullptr) {
            m_inStep = true;
            steps[m_step++]();
            m_inStep = false;
        } else if (m_closings++ == 0) {
            SendMessageW(FrameWindow(), WM_CLOSE, 0, 0);
        } else {
            ADD_FAILURE() << "the frame could not be closed";
            DestroyWindow(FrameWindow());
        }
        return true;
    }
    void Browse(std::wstring_view itemKey) {
        const CWnd* chooser = driver.Control(itemKey);
        HWND button = chooser != nullptr ? FindWindowExW(chooser->m_hWnd, nullptr, L"BUTTON", nullptr) : nullptr;
        if (button != nullptr) SendMessageW(button, BM_CLICK, 0, 0);
    }

    CDialog* m_outermost = nullptr;
    std::size_t m_at = 0;
    Deed m_deed;
    std::size_t m_lastStore = 0;
    std::size_t m_step = 0;
    int m_closings = 0;
    bool m_inStep = false;
    qvtest::ScopedExceptionHandler m_silence{[](const std::exception_ptr&) {}};
};

TEST_F(RudeHost, MayDestroyAnyWindowInAnyCall) {
    const struct {
        const char* name;
        Deed deed;
        int whileLoading;  // the result; -1 comes with a message
    } cases[] = {
        {"frame", [this] { return Destroy(FrameWindow()); }, IDCANCEL},
        {"the frame's owner", [this] { return FrameWindow() != nullptr && Destroy(owner.m_hWnd); }, IDCANCEL},
        {"view", [this] { return Destroy(ViewWindow()); }, -1},
        {"dialog", [this] { return Destroy(DialogWindow()); }, -1},
        {"sheet", [this] { return Destroy(SheetWindow()); }, -1},
    };
    const std::vector<std::size_t> places = Places();
    const std::vector<Call> cleanCalls = calls;
    for (const auto& each : cases) {
        for (const std::size_t place : SomeOf(places, &each - cases)) {
            SCOPED_TRACE(std::string(each.name) + " in call " + std::to_string(place));
            RenewOwner();
            const int result = Run(place, each.deed);
            if (!deedWasDone) {
                EXPECT_EQ(result, IDOK);
                continue;
            }
            const bool whileLoading = cleanCalls[place - 1].whileLoading && !IsAfterStoring(place);
            EXPECT_EQ(result, IsAfterStoring(place) ? IDOK : whileLoading ? each.whileLoading : IDCANCEL);
            EXPECT_EQ(SaidThatItCannotOpen(), result == -1);
            ExpectStoringStoppedAfter(place);
            PumpPending();
        }
    }
}

TEST_F(RudeHost, MayDestroyAFreeStandingDialogInAnyCall) {
    const Deed deeds[] = {
        [this] { return Destroy(FrameWindow()); },
        [this] { return FrameWindow() != nullptr && Destroy(owner.m_hWnd); },
        [this] { return Destroy(SheetWindow()); },
    };
    for (const Kind kind : {Kind::FreeModal, Kind::FreeModeless}) {
        RenewOwner();
        const std::vector<std::size_t> places = Places(kind);
        for (const Deed& deed : deeds) {
            for (const std::size_t place : SomeOf(places, &deed - deeds)) {
                SCOPED_TRACE((kind == Kind::FreeModal ? "modal, deed " : "modeless, deed ") +
                             std::to_string(&deed - deeds) + " in call " + std::to_string(place));
                RenewOwner();
                const int result = Run(place, deed, kind);
                const bool isOk = kind == Kind::FreeModal && (!deedWasDone || IsAfterStoring(place));
                EXPECT_EQ(result, isOk ? IDOK : kind == Kind::FreeModal ? IDCANCEL : 0);
                if (deedWasDone) ExpectStoringStoppedAfter(place);
                EXPECT_FALSE(SaidThatItCannotOpen());
                PumpPending();
            }
        }
    }
}

// Inside the storing of one dialog the host opens another, which is owned by the first and goes with it.
TEST_F(RudeHost, MayDestroyADialogFromInsideASecondOne) {
    EXPECT_EQ(Run(0, {}), IDOK);
    const auto write =
        std::find_if(calls.begin(), calls.end(), [](const Call& call) { return call.name.starts_with(L"WriteData"); });
    const Deed openAnother = [this] {
        XConstructionSet model = MakeModel();
        XDynDialogScroll inner(L"Second", model, true, nullptr);
        bool done = false;
        const qvtest::ScopedIdleHandler destroy([&](int) {
            done = done || Destroy(FrameWindow());
            return false;
        });
        EXPECT_EQ(inner.DoModal(), IDCANCEL);
        EXPECT_EQ(qv::LiveLayouts().size(), 2U) << "the pages of the first, whose calls go on";
        return done;
    };
    const auto place = static_cast<std::size_t>(write - calls.begin()) + 1;
    EXPECT_EQ(Run(place, openAnother), IDCANCEL);
    EXPECT_TRUE(deedWasDone);
}

// Not only the window but the object, by whoever has made it.
TEST_F(RudeHost, MayDeleteAModelessFrameInsideACall) {
    for (const bool byKey : {false, true}) {
        XConstructionSet model = MakeModel();
        auto frame = std::make_unique<XDynDialogScroll>(L"Test settings", model, false, nullptr);
        ASSERT_TRUE(frame->Create(IDD_SETTINGS_FRAME, nullptr));
        frame->ShowWindow(SW_SHOW);
        PumpPending();
        host.session->SetFault([&](const qv::SessionCall& call) {
            if (call.operation == qv::SessionOperation::WriteData) frame.reset();
            return S_OK;
        });
        EXPECT_TRUE(byKey ? driver.PressKey(VK_RETURN) : driver.Press(IDOK));
        host.session->SetFault({});
        EXPECT_EQ(frame, nullptr);
        EXPECT_TRUE(qv::LiveLayouts().empty());
    }
}

TEST_F(RudeHost, ChangesNoEndCodeByDestroyingTheFrameAfterwards) {
    EXPECT_EQ(Show({[this] {
                  driver.Press(IDOK);
                  driver.Frame().DestroyWindow();
              }}),
              IDOK);
}

TEST_F(RudeHost, MayThrowInAnyCall) {
    for (const std::size_t place : Places()) {
        SCOPED_TRACE(place);
        const auto rude = [this]() -> bool {
            if (FrameWindow() == nullptr) return false;  // the caller's own business
            throw std::runtime_error("rude");
        };
        const int result = Run(place, rude);
        EXPECT_TRUE(result == IDOK || result == IDCANCEL || (result == -1 && SaidThatItCannotOpen())) << result;
    }
}

TEST_F(RudeHost, MayEndTheThreadsLoopInAnyCall) {
    for (const std::size_t place : Places()) {
        SCOPED_TRACE(place);
        const int result = Run(place, [] {
            PostQuitMessage(0);
            return true;
        });
        EXPECT_TRUE(result == IDOK || result == IDCANCEL) << result;
        MSG quit{};
        EXPECT_TRUE(PeekMessageW(&quit, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE)) << "the loop outside hears of it";
    }
}

}  // namespace
