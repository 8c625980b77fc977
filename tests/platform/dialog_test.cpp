// Dialogs from templates: creation, units, focus, and what keys do in them.
#include <algorithm>
#include <optional>

#include "platform/user.h"
#include "tests/platform/window_fixture.h"
#include "tests/support/dialog_template.h"

namespace qv::test {

namespace {

using qvtest::DialogTemplateBuilder;

constexpr DWORD kControl = WS_CHILD | WS_VISIBLE;
constexpr DWORD kStop = kControl | WS_TABSTOP;
constexpr DWORD kDialog = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_VISIBLE | DS_SETFONT | DS_MODALFRAME;

enum Id { kLabel = 100, kName, kFirst = 103, kSecond, kThird, kCheck, kApply, kLines };

struct Command {
    int id;
    int code;
    bool operator==(const Command&) const = default;
};

// What the dialog procedure under test saw, and how it answers.
struct Record {
    std::vector<Command> commands;
    int initFocus = -1;
    LPARAM initParam = 0;
    INT_PTR initAnswer = TRUE;
};
Record g_record;

INT_PTR CALLBACK DialogProcedure(HWND, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        g_record.initFocus = GetDlgCtrlID(reinterpret_cast<HWND>(wParam));
        g_record.initParam = lParam;
        return g_record.initAnswer;
    }
    // Notifications of edit controls are of no interest here.
    if (message == WM_COMMAND && HIWORD(wParam) < 0x100) {
        g_record.commands.push_back({LOWORD(wParam), HIWORD(wParam)});
        return TRUE;
    }
    return FALSE;
}

DialogTemplateBuilder Template(DialogTemplateBuilder::Layout layout = DialogTemplateBuilder::Layout::Extended) {
    DialogTemplateBuilder dialog(kDialog, L"Dialog", layout);
    dialog.Add(L"Static", L"&Name", kControl, kLabel, {5, 5, 50, 15})
        .Add(L"Edit", L"text", kStop | ES_AUTOHSCROLL, kName, {60, 5, 120, 17})
        .Add(L"Button", L"R&1", kStop | WS_GROUP | BS_AUTORADIOBUTTON, kFirst, {5, 20, 50, 30})
        .Add(L"Button", L"R&2", kControl | BS_AUTORADIOBUTTON, kSecond, {5, 30, 50, 40})
        .Add(L"Button", L"R&3", kControl | BS_AUTORADIOBUTTON, kThird, {5, 40, 50, 50})
        .Add(L"Button", L"&Check", kStop | WS_GROUP | BS_AUTOCHECKBOX, kCheck, {5, 50, 50, 60})
        .Add(L"Button", L"OK", kStop | WS_GROUP | BS_DEFPUSHBUTTON, IDOK, {5, 100, 50, 114})
        .Add(L"Button", L"Cancel", kStop | BS_PUSHBUTTON, IDCANCEL, {55, 100, 100, 114})
        .Add(L"Button", L"&Apply", kStop | WS_DISABLED, kApply, {105, 100, 150, 114})
        .Add(L"Edit", L"", kStop | ES_MULTILINE | ES_WANTRETURN, kLines, {60, 20, 120, 40});
    return dialog;
}

}  // namespace

class Dialog : public WindowFixture {
protected:
    Dialog() : m_user([this] { PumpMessages([this](MSG& message) { return IsDialogMessageW(m_dialog, &message); }); }) {
        g_record = {};
        m_dialog =
            CreateDialogIndirectParamW(GetModuleHandleW(nullptr), Template().Get(), nullptr, DialogProcedure, 77);
    }
    ~Dialog() override {
        if (IsWindow(m_dialog)) DestroyWindow(m_dialog);
    }

    [[nodiscard]] HWND Item(int id) const { return GetDlgItem(m_dialog, id); }
    [[nodiscard]] static int FocusId() { return GetFocus() ? GetDlgCtrlID(GetFocus()) : -1; }
    // Which button wears the ring of the default.
    [[nodiscard]] int Ring() const {
        for (HWND child = GetWindow(m_dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
            if (SendMessageW(child, WM_GETDLGCODE, 0, 0) & DLGC_DEFPUSHBUTTON) return GetDlgCtrlID(child);
        }
        return 0;
    }
    std::vector<Command> TakeCommands() { return std::exchange(g_record.commands, {}); }

    HWND m_dialog = nullptr;
    User m_user;
};

TEST_F(Dialog, StartsWithItsFirstTabStopAndTheParameter) {
    EXPECT_EQ(g_record.initFocus, kName);
    EXPECT_EQ(g_record.initParam, 77);
    EXPECT_EQ(FocusId(), kName);
    EXPECT_TRUE(IsWindowVisible(m_dialog));
    EXPECT_EQ(GetActiveWindow(), m_dialog);
    EXPECT_EQ(Ring(), IDOK);
    EXPECT_NE(GetWindowLongW(m_dialog, GWL_EXSTYLE) & WS_EX_CONTROLPARENT, 0);
    EXPECT_NE(GetWindowLongW(m_dialog, GWL_EXSTYLE) & WS_EX_DLGMODALFRAME, 0);
    EXPECT_EQ(SendMessageW(Item(kName), WM_GETFONT, 0, 0), SendMessageW(m_dialog, WM_GETFONT, 0, 0));
    // The text field is ready to be typed over.
    const LRESULT selection = SendMessageW(Item(kName), EM_GETSEL, 0, 0);
    EXPECT_EQ(HIWORD(selection), 4);
}

TEST_F(Dialog, ItemsStandWhereDialogUnitsSay) {
    for (const auto layout : {DialogTemplateBuilder::Layout::Plain, DialogTemplateBuilder::Layout::Extended}) {
        DestroyWindow(m_dialog);
        m_dialog =
            CreateDialogIndirectParamW(GetModuleHandleW(nullptr), Template(layout).Get(), nullptr, DialogProcedure, 0);
        RECT units{60, 5, 120, 17};
        ASSERT_TRUE(MapDialogRect(m_dialog, &units));
        RECT place{};
        GetWindowRect(Item(kName), &place);
        MapWindowPoints(nullptr, m_dialog, reinterpret_cast<POINT*>(&place), 2);
        EXPECT_EQ(place.left, units.left);
        EXPECT_EQ(place.top, units.top);
        EXPECT_NEAR(place.right, units.right, 1);
        EXPECT_NEAR(place.bottom, units.bottom, 1);
        RECT whole{0, 0, 200, 150};
        MapDialogRect(m_dialog, &whole);
        RECT client{};
        GetClientRect(m_dialog, &client);
        EXPECT_EQ(client.right, whole.right);
        EXPECT_EQ(client.bottom, whole.bottom);
    }
}

TEST_F(Dialog, LeavesTheFocusAloneWhenItsProcedureSaysSo) {
    DestroyWindow(m_dialog);
    g_record.initAnswer = FALSE;
    const DialogTemplateBuilder hidden(WS_POPUP | DS_SETFONT, L"hidden");
    m_dialog = CreateDialogIndirectParamW(GetModuleHandleW(nullptr), hidden.Get(), nullptr, DialogProcedure, 0);
    EXPECT_FALSE(IsWindowVisible(m_dialog));
    EXPECT_NE(GetActiveWindow(), m_dialog);
}

TEST_F(Dialog, KeysDoWhatTheyMean) {
    struct Case {
        const char* name;
        int focus;
        int key;
        User::Held held;
        int focusAfter;
        std::vector<Command> commands;
    };
    const User::Held none;
    const User::Held alt{.alt = true};
    const Case cases[] = {
        {"enter in a field", kName, VK_RETURN, none, kName, {{IDOK, BN_CLICKED}}},
        {"enter on a button", IDCANCEL, VK_RETURN, none, IDCANCEL, {{IDCANCEL, BN_CLICKED}}},
        {"space on a check box", kCheck, VK_SPACE, none, kCheck, {{kCheck, BN_CLICKED}}},
        {"arrow in a group", IDOK, VK_RIGHT, none, IDCANCEL, {}},
        {"arrow in a field stays there", kName, VK_RIGHT, none, kName, {}},
        {"mnemonic of a check box", kName, 'C', alt, kCheck, {{kCheck, BN_CLICKED}}},
        {"mnemonic without alt", IDOK, 'C', none, kCheck, {{kCheck, BN_CLICKED}}},
        {"letter in a field is text", kName, 'C', none, kName, {}},
        {"mnemonic of a disabled button", kName, 'A', alt, kName, {}},
        {"mnemonic nobody has", kName, 'Z', alt, kName, {}},
    };
    for (const Case& test : cases) {
        SendMessageW(m_dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(Item(test.focus)), TRUE);
        TakeCommands();
        EXPECT_TRUE(m_user.Press(test.key, test.held)) << test.name;
        EXPECT_EQ(FocusId(), test.focusAfter) << test.name;
        EXPECT_EQ(TakeCommands(), test.commands) << test.name;
    }
}

// With the focus nowhere every key is a system key for the active window, in which the dialog sees no Tab, Enter or
// Escape; only a letter still finds its mnemonic.
TEST_F(Dialog, IsDeafWhileNobodyHasTheFocus) {
    std::vector<MSG> keys;
    const User recorded([&] {
        PumpMessages([&](MSG& message) {
            if (message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST) keys.push_back(message);
            return IsDialogMessageW(m_dialog, &message) != FALSE;
        });
    });
    SetFocus(Item(IDCANCEL));
    EnableWindow(Item(IDCANCEL), FALSE);
    ASSERT_EQ(GetFocus(), nullptr);
    for (const int key : {VK_TAB, VK_RETURN, VK_ESCAPE, VK_F4}) {
        SCOPED_TRACE(key);
        keys.clear();
        ASSERT_TRUE(recorded.Press(key));
        ASSERT_EQ(keys.size(), key == VK_F4 ? 2U : 3U);
        EXPECT_EQ(keys.front().message, UINT{WM_SYSKEYDOWN});
        EXPECT_EQ(keys.back().message, UINT{WM_SYSKEYUP});
        for (const MSG& message : keys) {
            EXPECT_EQ(message.hwnd, m_dialog);
            EXPECT_EQ(HIWORD(message.lParam) & KF_ALTDOWN, 0);
        }
        EXPECT_EQ(GetFocus(), nullptr);
        EXPECT_EQ(TakeCommands(), std::vector<Command>{});
    }
    recorded.Press('C');
    EXPECT_EQ(FocusId(), kCheck);
    EXPECT_EQ(TakeCommands(), (std::vector<Command>{{kCheck, BN_CLICKED}}));
    // With Alt, and somebody's focus, the same key closes, which is cancelling.
    recorded.Press(VK_F4, {.alt = true});
    EXPECT_EQ(TakeCommands(), (std::vector<Command>{{IDCANCEL, 0}}));
    EXPECT_TRUE(IsWindow(m_dialog));
}

TEST_F(Dialog, TheDefaultButtonCanBeChangedAndMustBeEnabled) {
    EXPECT_EQ(SendMessageW(m_dialog, DM_GETDEFID, 0, 0), MAKELONG(IDOK, DC_HASDEFID));
    EnableWindow(Item(kApply), TRUE);
    SendMessageW(m_dialog, DM_SETDEFID, kApply, 0);
    EXPECT_EQ(Ring(), kApply);
    m_user.Press(VK_RETURN);
    EXPECT_EQ(TakeCommands(), (std::vector<Command>{{kApply, BN_CLICKED}}));
    EnableWindow(Item(kApply), FALSE);
    m_user.Press(VK_RETURN);
    EXPECT_EQ(TakeCommands(), std::vector<Command>{});
}

TEST_F(Dialog, NextItemsByTabAndByGroup) {
    const auto tab = [&](int from, bool back) { return GetDlgCtrlID(GetNextDlgTabItem(m_dialog, Item(from), back)); };
    const auto group = [&](int from, bool back) {
        return GetDlgCtrlID(GetNextDlgGroupItem(m_dialog, Item(from), back));
    };
    EXPECT_EQ(GetDlgCtrlID(GetNextDlgTabItem(m_dialog, nullptr, FALSE)), kName);
    EXPECT_EQ(tab(kSecond, false), kCheck) << "from a control that is no tab stop";
    EXPECT_EQ(tab(kSecond, true), kFirst);
    EXPECT_EQ(tab(kLines, false), kName);
    EXPECT_EQ(group(kFirst, false), kSecond);
    EXPECT_EQ(group(kFirst, true), kThird);
    EXPECT_EQ(group(kCheck, false), kCheck) << "alone in its group";
    EXPECT_EQ(group(kName, false), IDOK) << "the last group goes on at the beginning, where nothing begins one";
}

TEST_F(Dialog, AnUnknownControlClassRefusesTheDialogUnlessItAllowsThat) {
    for (const bool allowed : {false, true}) {
        DialogTemplateBuilder broken(WS_POPUP | DS_SETFONT | (allowed ? DWORD{DS_NOFAILCREATE} : 0), L"broken");
        broken.Add(L"NoSuchClass", L"", kControl, 1);
        const HWND window =
            CreateDialogIndirectParamW(GetModuleHandleW(nullptr), broken.Get(), nullptr, DialogProcedure, 0);
        EXPECT_EQ(window != nullptr, allowed);
        if (window) DestroyWindow(window);
    }
}

TEST_F(Dialog, AClickReachesOnlyWhatAPersonCouldReach) {
    EXPECT_TRUE(m_user.Click(Item(kCheck)));
    EXPECT_EQ(IsDlgButtonChecked(m_dialog, kCheck), UINT{BST_CHECKED});
    EXPECT_EQ(FocusId(), kCheck);
    ASSERT_TRUE(m_user.Focus(Item(kName)));
    SendMessageW(Item(kName), EM_SETSEL, 0, -1);
    EXPECT_TRUE(m_user.Type(L"new"));
    wchar_t text[16] = {};
    GetDlgItemTextW(m_dialog, kName, text, 16);
    EXPECT_STREQ(text, L"new");
    TakeCommands();
    EXPECT_FALSE(m_user.Click(Item(kApply)));
    EnableWindow(m_dialog, FALSE);
    EXPECT_FALSE(m_user.Click(Item(IDOK)));
    EXPECT_EQ(TakeCommands(), std::vector<Command>{});
}

}  // namespace qv::test
