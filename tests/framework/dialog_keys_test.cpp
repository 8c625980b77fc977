// The keyboard in a frame whose content is nested: a frame without buttons, a form view in it, in that a child dialog
// with the buttons, and in that a property sheet whose pages hold the controls.
#include <memory>

#include "framework/controls.h"
#include "framework/property_sheet.h"
#include "framework/view.h"
#include "tests/framework/template_builder.h"
#include "tests/framework/test_windows.h"

namespace {

constexpr int kHelp = 126;
constexpr int kApply = 128;
constexpr int kEdit = 201;
constexpr int kCombo = 202;
constexpr int kPush = 203;
constexpr int kMultiLine = 204;
constexpr int kRadioA = 205;
constexpr int kRadioB = 206;
constexpr int kEditableCombo = 207;

using Builder = TemplateBuilder;

const Builder& FrameLayout() {
    static const Builder layout(WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME, 306, 174);
    return layout;
}
const Builder& ViewLayout() {
    static const Builder layout(WS_CHILD, 300, 170);
    return layout;
}
// As in the settings dialog, three buttons carry the default style.
const Builder& InnerLayout() {
    static const Builder layout = Builder(WS_CHILD | DS_CONTROL, 300, 160)
                                      .Add(Builder::Button, kHelp, WS_TABSTOP | BS_DEFPUSHBUTTON, u"&Help", 195, 140)
                                      .Add(Builder::Button, IDOK, WS_TABSTOP | BS_DEFPUSHBUTTON, u"OK", 10, 140)
                                      .Add(Builder::Button, IDCANCEL, WS_TABSTOP, u"Cancel", 70, 140)
                                      .Add(Builder::Button, kApply, WS_TABSTOP | BS_DEFPUSHBUTTON, u"&Apply", 130, 140);
    return layout;
}
const Builder& PageLayout() {
    static const Builder layout =
        Builder(WS_CHILD | WS_DISABLED | WS_BORDER, 186, 95)
            .Add(Builder::Static, 0xFFFF, 0, u"&Name", 5, 5)
            .Add(Builder::Edit, kEdit, WS_TABSTOP, u"", 60, 5)
            .Add(Builder::ComboBox, kCombo, WS_TABSTOP | CBS_DROPDOWNLIST, u"", 60, 20, 50, 60)
            .Add(Builder::Button, kPush, WS_TABSTOP, u"Push", 60, 35)
            .Add(Builder::Edit, kMultiLine, WS_TABSTOP | ES_MULTILINE | ES_WANTRETURN | ES_AUTOVSCROLL, u"", 60, 50)
            .Add(Builder::Button, kRadioA, WS_TABSTOP | WS_GROUP | BS_AUTORADIOBUTTON, u"a", 60, 65, 20)
            .Add(Builder::Button, kRadioB, BS_AUTORADIOBUTTON, u"b", 85, 65, 20)
            .Add(Builder::ComboBox, kEditableCombo, WS_TABSTOP | WS_GROUP | CBS_DROPDOWN, u"", 60, 80, 50, 60);
    return layout;
}

struct Log {
    std::vector<std::string> lines;
    std::string Take() {
        std::string all;
        for (const auto& line : lines)
            all += line + ";";
        lines.clear();
        return all;
    }
};

class Page : public CPropertyPage {
public:
    explicit Page(Log& log) : CPropertyPage(PageLayout().Bytes()), m_log(log) {}
    const MessageMap* GetMessageMap() const override {
        static const MessageMap map{CPropertyPage::GetThisMessageMap(), {on::Command<&Page::OnPush>(kPush)}};
        return &map;
    }
    void OnPush() { m_log.lines.emplace_back("push"); }
    bool OnInitDialog() override {
        for (const int combo : {kCombo, kEditableCombo}) {
            for (const wchar_t* text : {L"one", L"two"}) {
                ::SendDlgItemMessageW(m_hWnd, combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text));
            }
        }
        return CPropertyPage::OnInitDialog();
    }

private:
    Log& m_log;
};

class Inner : public CDialog {
public:
    explicit Inner(Log& log) : m_log(log) {}
    const MessageMap* GetMessageMap() const override {
        static const MessageMap map{CDialog::GetThisMessageMap(),
                                    {on::Command<&Inner::OnHelp>(kHelp), on::Command<&Inner::OnApply>(kApply)}};
        return &map;
    }
    bool OnInitDialog() override {
        m_sheet = std::make_unique<CPropertySheet>(L"sheet", this, 0);
        for (int i = 0; i < 2; ++i) {
            pages.push_back(std::make_unique<Page>(m_log));
            m_sheet->AddPage(pages.back().get());
        }
        if (!m_sheet->Create(this, WS_CHILD | WS_VISIBLE | WS_TABSTOP)) return false;
        m_sheet->ModifyStyleEx(0, WS_EX_CONTROLPARENT);
        return CDialog::OnInitDialog();
    }
    void OnOK() override { m_log.lines.emplace_back("inner ok"); }
    void OnCancel() override { m_log.lines.emplace_back("inner cancel"); }
    void OnHelp() { m_log.lines.emplace_back("help"); }
    void OnApply() { m_log.lines.emplace_back("apply"); }
    CPropertySheet& Sheet() { return *m_sheet; }
    std::vector<std::unique_ptr<Page>> pages;

private:
    Log& m_log;
    std::unique_ptr<CPropertySheet> m_sheet;
};

class Frame : public CDialog {
public:
    explicit Frame(Log& log, CWnd* parent) : inner(log), m_log(log) {
        InitModalIndirect(FrameLayout().Bytes(), parent);
    }
    bool OnInitDialog() override {
        auto* view = new CFormView(ViewLayout().Bytes());
        if (!view->Create(nullptr, L"", WS_CHILD | WS_VISIBLE, GetClientRect(), this, 134)) return false;
        view->ModifyStyleEx(0, WS_EX_CONTROLPARENT);
        view->OnInitialUpdate();
        if (!inner.CreateIndirect(InnerLayout().Bytes(), view)) return false;
        inner.ShowWindow(SW_SHOW);
        return CDialog::OnInitDialog();
    }
    void OnOK() override { m_log.lines.emplace_back("frame ok"); }
    void OnCancel() override { m_log.lines.emplace_back("frame cancel"); }
    [[nodiscard]] HWND Item(int id) {
        HWND page = inner.Sheet().GetActivePage()->m_hWnd;
        HWND item = ::GetDlgItem(page, id);
        return item != nullptr ? item : ::GetDlgItem(inner.m_hWnd, id);
    }
    Inner inner;

private:
    Log& m_log;
};

// Runs the frame and lets the test act in it.
void InFrame(const std::function<void(Frame&, Log&, qv::User&)>& act) {
    TopWindow top;
    Log log;
    Frame frame(log, &top);
    qv::User user = MakeUser();
    const Script script({[&] {
        act(frame, log, user);
        frame.EndDialog(1);
    }});
    ASSERT_EQ(frame.DoModal(), 1);
}

int FocusId() {
    return ::GetDlgCtrlID(::GetFocus());
}

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

TEST(NestedDialogKeys, FocusHistoryDoesNotChangeWhatEnterMeans) {
    InFrame([](Frame& frame, Log& log, qv::User& user) {
        // Tab makes buttons the default one on the way.
        ASSERT_TRUE(user.Focus(frame.Item(kHelp)));
        for (int i = 0; i < 4; ++i)
            user.Press(VK_TAB);
        ASSERT_TRUE(user.Focus(frame.Item(kEdit)));
        ASSERT_TRUE(user.Press(VK_RETURN));
        EXPECT_EQ(log.Take(), "frame ok;");
    });
}

TEST(NestedDialogKeys, AnOpenListIsClosedFirst) {
    InFrame([](Frame& frame, Log& log, qv::User& user) {
        const struct {
            int combo;
            int key;
            const char* after;
        } cases[] = {
            {kCombo, VK_ESCAPE, "frame cancel;"},
            {kCombo, VK_RETURN, "frame ok;"},
            {kEditableCombo, VK_ESCAPE, "frame cancel;"},
            {kEditableCombo, VK_RETURN, "frame ok;"},
        };
        for (const auto& c : cases) {
            SCOPED_TRACE(testing::Message() << c.combo << " key " << c.key);
            HWND combo = frame.Item(c.combo);
            ASSERT_TRUE(user.Focus(combo));
            ::SendMessageW(combo, CB_SHOWDROPDOWN, TRUE, 0);
            ASSERT_TRUE(user.Press(c.key));
            EXPECT_EQ(::SendMessageW(combo, CB_GETDROPPEDSTATE, 0, 0), 0);
            EXPECT_EQ(log.Take(), "");
            ASSERT_TRUE(user.Press(c.key));
            EXPECT_EQ(log.Take(), c.after);
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

TEST(NestedDialogKeys, PagingKeysSwitchPagesFromAnywhere) {
    InFrame([](Frame& frame, Log&, qv::User& user) {
        CPropertySheet& sheet = frame.inner.Sheet();
        ASSERT_TRUE(user.Focus(frame.Item(kEdit)));
        user.Press(VK_TAB, {.control = true});
        EXPECT_EQ(sheet.GetActiveIndex(), 1);
        EXPECT_EQ(::GetFocus(), frame.Item(kEdit)) << "the focus goes along into the new page";
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
