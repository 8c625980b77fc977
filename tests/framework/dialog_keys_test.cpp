// The keyboard in a frame whose content is nested.
#include "tests/framework/nested_frame.h"

using namespace nested;

namespace {

TEST(NestedDialogKeys, EnterAndEscapeEndWhereTheyShould) {
    const struct {
        const char* name;
        int focus;
        int key;
        const char* expected;
    } cases[] = {
        {"enter in an edit", kEdit, VK_RETURN, "frame ok;"},
        {"enter in a closed combo box", kCombo, VK_RETURN, "frame ok;"},
        {"enter on a radio button", kRadioA, VK_RETURN, "frame ok;"},
        {"enter on a push button of the page", kPush, VK_RETURN, "push;"},
        {"enter on Apply", kApply, VK_RETURN, "apply;"},
        {"enter on Help", kHelp, VK_RETURN, "help;"},
        {"enter on OK", IDOK, VK_RETURN, "inner ok;"},
        {"enter on Cancel", IDCANCEL, VK_RETURN, "inner cancel;"},
        {"enter in an edit of several lines", kMultiLine, VK_RETURN, ""},
        {"escape in an edit", kEdit, VK_ESCAPE, "frame cancel;"},
        {"escape in an edit of several lines", kMultiLine, VK_ESCAPE, "frame cancel;"},
        {"escape on Apply", kApply, VK_ESCAPE, "frame cancel;"},
    };
    InFrame([&](Frame& frame, Log& log, qv::User& user) {
        for (const auto& c : cases) {
            SCOPED_TRACE(c.name);
            log.Take();
            ASSERT_TRUE(user.Focus(frame.Item(c.focus)));
            ASSERT_TRUE(user.Press(c.key));
            EXPECT_EQ(log.Take(), c.expected);
        }
    });
}

TEST(NestedDialogKeys, AnOpenListIsClosedFirst) {
    InFrame([](Frame& frame, Log& log, qv::User& user) {
        for (const int id : {kCombo, kEditableCombo}) {
            for (const int key : {VK_ESCAPE, VK_RETURN}) {
                SCOPED_TRACE(testing::Message() << id << " key " << key);
                HWND combo = frame.Item(id);
                ASSERT_TRUE(user.Focus(combo));
                ::SendMessageW(combo, CB_SHOWDROPDOWN, TRUE, 0);
                ASSERT_TRUE(user.Press(key));
                EXPECT_EQ(::SendMessageW(combo, CB_GETDROPPEDSTATE, 0, 0), 0);
                EXPECT_EQ(log.Take(), "");
                ASSERT_TRUE(user.Press(key));
                EXPECT_EQ(log.Take(), key == VK_RETURN ? "frame ok;" : "frame cancel;");
            }
        }
    });
}

TEST(NestedDialogKeys, TabWalksTheWholeFrame) {
    InFrame([](Frame& frame, Log&, qv::User& user) {
        const std::vector<int> expected{kHelp, IDOK, IDCANCEL, kApply, kEdit, kCombo, kPush};
        ASSERT_TRUE(user.Focus(frame.Item(kHelp)));
        std::vector<int> walked;
        for (std::size_t i = 0; i < expected.size(); ++i) {
            walked.push_back(FocusId());
            user.Press(VK_TAB);
        }
        EXPECT_EQ(walked, expected);
        // On from the page's last stop through the tab row, back to the first button, and backwards again.
        ASSERT_TRUE(user.Focus(frame.Item(kEditableCombo)));
        user.Press(VK_TAB);
        EXPECT_EQ(::GetFocus(), frame.inner.Sheet().GetTabControl()->m_hWnd);
        user.Press(VK_TAB);
        EXPECT_EQ(FocusId(), kHelp);
        user.Press(VK_TAB, {.shift = true});
        EXPECT_EQ(::GetFocus(), frame.inner.Sheet().GetTabControl()->m_hWnd);
    });
}

TEST(NestedDialogKeys, MnemonicsReachControlsAndButtons) {
    InFrame([](Frame& frame, Log& log, qv::User& user) {
        ASSERT_TRUE(user.Focus(frame.Item(kApply)));
        user.Press('N', {.alt = true});
        EXPECT_EQ(FocusId(), kEdit);
        user.Press('A', {.alt = true});
        EXPECT_EQ(log.Take(), "apply;");
    });
}

TEST(NestedDialogKeys, ArrowsMoveInsideAGroup) {
    InFrame([](Frame& frame, Log&, qv::User& user) {
        ASSERT_TRUE(user.Focus(frame.Item(kRadioA)));
        user.Press(VK_DOWN);
        EXPECT_EQ(FocusId(), kRadioB);
    });
}

TEST(DialogKeys, ArrowsPassLabelsAndStayWhereThereIsNothingElse) {
    constexpr int kCheck = 301;
    constexpr DWORD kGroup = WS_GROUP;
    static const Builder layout = Builder(WS_POPUP | WS_CAPTION, 100, 100)
                                      .Add(Builder::Static, 0xFFFF, kGroup, L"Alone", 5, 5)
                                      .Add(Builder::Button, kCheck, WS_TABSTOP | BS_AUTOCHECKBOX, L"", 50, 5)
                                      .Add(Builder::Static, 0xFFFF, kGroup, L"Together", 5, 20)
                                      .Add(Builder::Button, kPush, WS_TABSTOP, L"Push", 50, 20)
                                      .Add(Builder::Static, 0xFFFF, 0, L"more", 5, 35)
                                      .Add(Builder::Button, IDOK, WS_TABSTOP, L"OK", 50, 35);
    CDialog dialog;
    ASSERT_TRUE(dialog.CreateIndirect(layout.Bytes()));
    dialog.ShowWindow(SW_SHOW);
    const qv::User user = MakeUser();
    const struct {
        int from;
        int key;
        int to;
    } cases[] = {
        {kCheck, VK_DOWN, kCheck}, {kCheck, VK_LEFT, kCheck}, {kPush, VK_RIGHT, IDOK},
        {IDOK, VK_DOWN, kPush},    {kPush, VK_UP, IDOK},      {IDOK, VK_LEFT, kPush},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.from << " key " << c.key);
        ASSERT_TRUE(user.Focus(::GetDlgItem(dialog.m_hWnd, c.from)));
        user.Press(c.key);
        EXPECT_EQ(FocusId(), c.to);
    }
}

TEST(NestedDialogKeys, ArrowsWalkTheButtonsOfADialogAndNoFurther) {
    InFrame([](Frame& frame, Log&, qv::User& user) {
        for (const bool back : {false, true}) {
            ASSERT_TRUE(user.Focus(frame.Item(kHelp)));
            std::vector<int> walked;
            for (int i = 0; i < 5; ++i) {
                walked.push_back(FocusId());
                user.Press(back ? VK_LEFT : VK_RIGHT);
            }
            EXPECT_EQ(walked, (back ? std::vector<int>{kHelp, kApply, IDCANCEL, IDOK, kHelp}
                                    : std::vector<int>{kHelp, IDOK, IDCANCEL, kApply, kHelp}));
        }
    });
}

TEST(NestedDialogKeys, PagingKeysSwitchPagesFromAnywhere) {
    InFrame([](Frame& frame, Log&, qv::User& user) {
        CPropertySheet& sheet = frame.inner.Sheet();
        ASSERT_TRUE(user.Focus(frame.Item(kEdit)));
        user.Press(VK_TAB, {.control = true});
        EXPECT_EQ(sheet.GetActiveIndex(), 1);
        EXPECT_EQ(::GetFocus(), frame.Item(kEdit)) << "the focus goes along into the new page";
        EXPECT_EQ(::SendMessageW(frame.Item(kEdit), EM_GETSEL, 0, 0), MAKELONG(0, 4)) << "as Tab leaves it";
        user.Press(VK_NEXT, {.control = true});
        EXPECT_EQ(sheet.GetActiveIndex(), 0);
        user.Press(VK_PRIOR, {.control = true});
        EXPECT_EQ(sheet.GetActiveIndex(), 1);
        ASSERT_TRUE(user.Focus(frame.Item(kApply)));
        user.Press(VK_TAB, {.shift = true, .control = true});
        EXPECT_EQ(sheet.GetActiveIndex(), 0);
        EXPECT_EQ(FocusId(), kApply);
    });
}

TEST(NestedDialogKeys, PageKeysScrollWhereTheFocusedControlHasNoUseForThem) {
    InFrame([](Frame& frame, Log&, qv::User& user) {
        auto* view = DynamicDownCast<CScrollView>(CWnd::FromHandlePermanent(::GetParent(frame.inner.m_hWnd)));
        ASSERT_NE(view, nullptr);
        view->SetScrollSizes({100, 5000}, {0, 700});
        const struct {
            const char* name;
            int focus;
            bool scrolls;
        } cases[] = {
            {"edit", kEdit, true}, {"push button", kPush, true}, {"radio button", kRadioA, true},
            {"OK", IDOK, true},    {"combo box", kCombo, false}, {"edit of several lines", kMultiLine, false},
        };
        for (const auto& c : cases) {
            SCOPED_TRACE(c.name);
            ASSERT_TRUE(user.Focus(frame.Item(c.focus)));
            const LONG before = view->GetScrollPosition().y;
            ASSERT_TRUE(user.Press(VK_NEXT));
            EXPECT_EQ(view->GetScrollPosition().y - before, c.scrolls ? 700 : 0);
            ASSERT_TRUE(user.Press(VK_PRIOR));
            EXPECT_EQ(view->GetScrollPosition().y, before);
        }
    });
}

}  // namespace
