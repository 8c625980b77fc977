// Objects that belong to their windows: their creator's until the creation has succeeded, then gone with the window,
// but not under the feet of a call that is inside them.
#include <functional>
#include <memory>

#include "framework/controls.h"
#include "framework/property_sheet.h"
#include "framework/view.h"
#include "tests/framework/test_windows.h"

namespace {

constexpr RECT kPlace{0, 0, 10, 10};
constexpr UINT kAct = WM_USER + 5;

int g_alive;

// Runs what it is given when it hears the message, and is used afterwards.
class Actor : public CWnd {
public:
    std::function<void()> act;
    std::function<bool(MSG&)> preTranslate;
    int uses = 0;
    const MessageMap* GetMessageMap() const override {
        static const MessageMap map{CWnd::GetThisMessageMap(), {on::Message<&Actor::OnAct>(kAct)}};
        return &map;
    }
    LRESULT OnAct(WPARAM, LPARAM) {
        if (act) act();
        ++uses;
        return Default();
    }
    bool PreTranslateMessage(MSG& message) override { return preTranslate && preTranslate(message); }
};

class CountedView : public CView {
public:
    CountedView() { ++g_alive; }
    ~CountedView() override { --g_alive; }
    std::function<void()> act;
    LRESULT answerToCreate = 0;
    int uses = 0;
    Actor inner;
    const MessageMap* GetMessageMap() const override {
        static const MessageMap map{CView::GetThisMessageMap(),
                                    {
                                        on::Create<&CountedView::OnCreate>(),
                                        on::Message<&CountedView::OnAct>(kAct),
                                    }};
        return &map;
    }
    int OnCreate(CREATESTRUCTW* cs) {
        if (act) act();
        return answerToCreate != 0 ? static_cast<int>(answerToCreate) : CView::OnCreate(cs);
    }
    LRESULT OnAct(WPARAM, LPARAM) {
        Act();
        return 0;
    }
    // As somebody who knows the object calls it, without a message.
    void Act() {
        if (act) act();
        ++uses;
    }
};

class ViewLifetime : public ::testing::Test {
protected:
    ViewLifetime() { g_alive = 0; }
    ~ViewLifetime() override { EXPECT_EQ(g_alive, 0); }

    // With an inner window that belongs to it.
    static CountedView* MakeView(CWnd& parent) {
        auto view = std::make_unique<CountedView>();
        EXPECT_TRUE(view->Create(nullptr, L"", WS_VISIBLE, kPlace, &parent, 1));
        EXPECT_TRUE(view->inner.Create(nullptr, L"", WS_VISIBLE, kPlace, view.get(), 1));
        return view.release();
    }
};

TEST_F(ViewLifetime, EndsWithItsWindow) {
    TopWindow top;
    MakeView(top)->DestroyWindow();
    EXPECT_EQ(g_alive, 0);
    MakeView(top);
    top.DestroyWindow();
    EXPECT_EQ(g_alive, 0);
}

TEST_F(ViewLifetime, IsItsCreatorsUntilTheCreationHasSucceeded) {
    const struct {
        const char* name;
        std::function<bool(CountedView&, TopWindow&)> create;
    } cases[] = {
        {"no such class", [](auto& view, auto& top) { return view.Create(L"QvNoSuch", L"", 0, kPlace, &top, 1); }},
        {"no parent", [](auto& view, auto&) { return view.Create(nullptr, L"", 0, kPlace, nullptr, 1); }},
        {"refused",
         [](auto& view, auto& top) {
             view.answerToCreate = -1;
             return view.Create(nullptr, L"", 0, kPlace, &top, 1);
         }},
        {"destroyed on the way",
         [](auto& view, auto& top) {
             view.act = [&top] { top.DestroyWindow(); };
             return view.Create(nullptr, L"", 0, kPlace, &top, 1);
         }},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        TopWindow top;
        auto view = std::make_unique<CountedView>();
        EXPECT_FALSE(each.create(*view, top));
        EXPECT_EQ(g_alive, 1);
        EXPECT_EQ(view->m_hWnd, nullptr);
        view.reset();
        EXPECT_EQ(g_alive, 0);
    }
    TopWindow top;
    auto form = std::make_unique<CFormView>(4711U);  // no such template
    EXPECT_FALSE(form->Create(nullptr, L"", 0, kPlace, &top, 1));
    const Builder layout(WS_CHILD, 10, 10);
    form = std::make_unique<CFormView>(layout.Bytes());
    EXPECT_FALSE(form->Create(nullptr, L"", 0, kPlace, nullptr, 1));
}

TEST_F(ViewLifetime, OutlivesEveryCallThatMayBeInsideIt) {
    const struct {
        const char* name;
        // Leads to destroy(), with the view's methods or its inner window's on the stack.
        std::function<void(CountedView&, Actor& top, std::function<void()> destroy)> call;
    } cases[] = {
        {"its own message",
         [](CountedView& view, Actor&, auto destroy) {
             view.act = destroy;
             view.SendMessage(kAct);
         }},
        {"an inner window's message",
         [](CountedView& view, Actor&, auto destroy) {
             view.inner.act = destroy;
             view.inner.SendMessage(kAct);
         }},
        {"a call of the window around it",
         [](CountedView& view, Actor& top, auto destroy) {
             view.act = destroy;
             top.act = [&view] { view.Act(); };
             top.SendMessage(kAct);
         }},
        {"a message inside a message",
         [](CountedView& view, Actor&, auto destroy) {
             view.act = [&view] { view.inner.SendMessage(kAct); };
             view.inner.act = destroy;
             view.SendMessage(kAct);
         }},
        {"a queued message that is looked at first",
         [](CountedView& view, Actor&, auto destroy) {
             view.inner.preTranslate = [destroy](MSG& message) {
                 if (message.message == kAct) destroy();
                 return true;
             };
             view.inner.PostMessage(kAct);
             PumpPending();
         }},
        {"a loop inside a message",
         [](CountedView& view, Actor&, auto destroy) {
             view.inner.act = destroy;
             view.act = [&view] {
                 view.inner.PostMessage(kAct);
                 PumpPending();
             };
             view.SendMessage(kAct);
         }},
    };
    for (const auto& each : cases) {
        for (const bool wholeTree : {true, false}) {
            SCOPED_TRACE(std::string(each.name) + (wholeTree ? ", whole tree" : ", view alone"));
            Actor top;
            ASSERT_TRUE(top.CreateEx(0, nullptr, L"", WS_OVERLAPPEDWINDOW, {0, 0, 100, 100}, nullptr, 0));
            CountedView* view = MakeView(top);
            bool destroyed = false;
            each.call(*view, top, [&] {
                if (wholeTree) {
                    top.DestroyWindow();
                } else {
                    view->DestroyWindow();
                }
                EXPECT_EQ(view->m_hWnd, nullptr);
                EXPECT_EQ(g_alive, 1) << "deleted while it was being used";
                destroyed = true;
            });
            EXPECT_TRUE(destroyed);
            EXPECT_EQ(g_alive, 0) << "kept longer than it was used";
        }
    }
}

// Otherwise a view would wait for as long as some handler of the host runs, which may be for the rest of the program.
TEST_F(ViewLifetime, IsNotKeptByCallsThatCannotBeInsideIt) {
    TopWindow top;
    Actor other;
    ASSERT_TRUE(other.CreateEx(0, nullptr, L"", WS_OVERLAPPEDWINDOW, kPlace, nullptr, 0));
    other.act = [&] {
        MakeView(top)->DestroyWindow();
        EXPECT_EQ(g_alive, 0) << "kept by another tree's call";
        other.DestroyWindow();
        MakeView(top)->DestroyWindow();
        EXPECT_EQ(g_alive, 0) << "kept by a call that was there before it";
    };
    other.SendMessage(kAct);
    EXPECT_EQ(other.uses, 1);
}

// Whoever ran the dialog may delete, when it is over, what the view refers to.
TEST_F(ViewLifetime, IsOverWhenTheDialogIsOverThatItWasMadeIn) {
    Actor top;
    ASSERT_TRUE(top.CreateEx(0, nullptr, L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, {0, 0, 100, 100}, nullptr, 0));
    const Builder layout(WS_POPUP | WS_CAPTION, 50, 50);
    CDialog dialog;
    dialog.InitModalIndirect(layout.Bytes(), &top);
    top.act = [&] {
        // A view in the very window whose call runs the dialog.
        const Script script({[&] { MakeView(top)->DestroyWindow(); },
                             [&] {
                                 EXPECT_EQ(g_alive, 1);
                                 dialog.EndDialog(IDOK);
                             }});
        EXPECT_EQ(dialog.DoModal(), IDOK);
        EXPECT_EQ(g_alive, 0);
    };
    top.SendMessage(kAct);
}

// The platform refuses the tab control here as it does when it has no handles left.
TEST(PropertySheetCreation, FailsWithoutATabControl) {
    class WithoutTabs : public CPropertySheet {
    public:
        using CPropertySheet::CPropertySheet;
        bool OnInitDialog() override { return true; }
    };
    TopWindow top;
    WithoutTabs sheet(L"", &top, 0);
    EXPECT_FALSE(sheet.Create(&top, WS_VISIBLE));
    EXPECT_EQ(sheet.m_hWnd, nullptr);
    EXPECT_EQ(::GetWindow(top.m_hWnd, GW_CHILD), nullptr);
}

}  // namespace
