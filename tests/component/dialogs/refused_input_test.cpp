// What a page does when the model refuses an input, or when a value was written and cannot be saved.
#include "base/text.h"
#include "qvclient/qvsettingsdialog/resources/resource_ids.h"
#include "tests/component/dialogs/whole_dialog.h"

using qv::MessageBoxCall;

namespace {

class RefusedInput : public WholeDialog {
protected:
    RefusedInput() {
        host.DefinePage(L"1", L"One");
        host.DefinePage(L"2", L"Two");
        host.DefineItem(L"a/flag", 0, 1);
        host.DefineItem(L"a/other", 3, 2);
        host.DefineItem(L"a/count", 1, 2,
                        {{L"label", L"&Count"}, {L"lowerbound", L"10"}, {L"upperbound", L"99"}, {L"default", L"50"}});
    }
    // The only box so far, above the dialog.
    void ExpectBox(MessageBoxCall::Kind kind, std::wstring_view caption, std::wstring_view text) {
        ASSERT_EQ(driver.boxes.size(), 1U);
        EXPECT_EQ(driver.boxes[0].kind, kind);
        EXPECT_EQ(driver.boxes[0].caption, caption);
        EXPECT_EQ(driver.boxes[0].text, text);
        EXPECT_EQ(driver.boxes[0].owner, Dialog().m_hWnd);
    }
    static constexpr std::wstring_view kReason =
        L"Data out of range !\nRange[10, 99]\nActValue = 5\nCorrect your inputs";
};

bool IsWholeTextSelected(const CWnd& edit) {
    DWORD first = 99;
    DWORD last = 99;
    edit.SendMessage(EM_GETSEL, reinterpret_cast<WPARAM>(&first), reinterpret_cast<LPARAM>(&last));
    return first == 0 && last != 0 && last == static_cast<DWORD>(edit.GetWindowText().size());
}

TEST_F(RefusedInput, IsExplainedUnderItsPromptAndSelectedOnItsPage) {
    Show({
        [this] { EXPECT_TRUE(driver.SwitchPage(1)); },
        [this] { EXPECT_TRUE(driver.Type(L"a/count", L"5")); },
        [this] { EXPECT_TRUE(driver.SwitchPage(0)); },
        [this] { driver.Press(IDOK); },
        [this] {
            ExpectBox(MessageBoxCall::Kind::Info, L"&Count", kReason);
            EXPECT_EQ(Sheet().GetActiveIndex(), 1);
            EXPECT_EQ(Sheet().GetTabControl()->GetCurSel(), 1);
            CWnd* count = driver.Control(L"a/count");
            EXPECT_TRUE(driver.HasFocus(count));
            EXPECT_TRUE(IsWholeTextSelected(*count));
            EXPECT_TRUE(host.session->CallsOf(qv::SessionOperation::WriteData).empty());
            EXPECT_TRUE(driver.Type(L"a/count", L"10"));
        },
        [this] { driver.Press(IDOK); },
    });
    EXPECT_EQ(host.Stored(L"a/count"), L"10");
}

TEST_F(RefusedInput, OfAChooserThatHasSaidWhyShowsNoSecondBox) {
    host.DefineItem(L"a/folder", 7, 2, {{L"checkpath", L"1"}});
    Show({
        [this] { EXPECT_TRUE(driver.SwitchPage(1)); },
        [this] {
            driver.boxes.clear();  // what it said of the value that it began with
            const HWND field = ::FindWindowExW(driver.Control(L"a/folder")->m_hWnd, nullptr, L"Edit", nullptr);
            ASSERT_NE(field, nullptr);
            ::SetWindowTextW(field, L"/no/such/place/anywhere");
        },
        [this] { EXPECT_TRUE(driver.SwitchPage(0)); },
        [this] { driver.Press(IDOK); },
        [this] {
            EXPECT_EQ(driver.boxes.size(), 1U);
            EXPECT_EQ(Sheet().GetActiveIndex(), 1);
            const CWnd* focused = CWnd::FromHandle(::GetFocus());
            ASSERT_NE(focused, nullptr);
            EXPECT_TRUE(::IsChild(driver.Control(L"a/folder")->m_hWnd, focused->m_hWnd) != FALSE);
            EXPECT_TRUE(IsWholeTextSelected(*focused));
        },
        [this] { driver.Press(IDCANCEL); },
    });
}

TEST_F(RefusedInput, AValueThatCannotBeSavedIsReportedAboveTheDialog) {
    host.session->FailNth(qv::SessionOperation::SaveData, 1);
    Show({
        [this] { driver.Press(IDC_APPLY_BUTTON); },
        [this] { EXPECT_TRUE(driver.Toggle(L"a/flag")); },
        [this] { driver.Press(IDC_APPLY_BUTTON); },
        [this] { ExpectBox(MessageBoxCall::Kind::Error, L"Store Settings", L"Can't store data."); },
        [this] { driver.Press(IDCANCEL); },
    });
}

// There is nobody to own a message then.
TEST_F(RefusedInput, WithoutAWindowAroundTheSheetIsRefusedSilently) {
    Show({
        [this] {
            auto* page = DynamicDownCast<XDynPropertyPage>(Sheet().GetPage(1));
            const HWND parent = ::SetParent(Sheet().m_hWnd, nullptr);
            Sheet().ModifyStyle(WS_CHILD, WS_POPUP);
            EXPECT_TRUE(page->RefuseInput(*page->GetLayout().GetColumn(L"a/count"), L"why"));
            page->ReportFailedSave(L"why");
            EXPECT_TRUE(driver.boxes.empty());
            EXPECT_EQ(Sheet().GetActiveIndex(), 1);
            Sheet().ModifyStyle(WS_POPUP, WS_CHILD);
            ::SetParent(Sheet().m_hWnd, parent);
        },
        [this] { driver.Press(IDCANCEL); },
    });
}

// Nobody is left to see what else would be loaded.
TEST_F(RefusedInput, LoadingEndsWithTheDialogThatItIsFor) {
    for (const auto* key : {L"b/first", L"b/second"}) {
        host.DefineItem(key, 1, 1, {{L"lowerbound", L"1"}, {L"default", L"0"}});
    }
    int boxes = 0;
    const qvtest::ScopedMessageBoxSink sink([&boxes](const MessageBoxCall&) {
        ++boxes;
        ::DestroyWindow(::FindWindowExW(nullptr, nullptr, nullptr, L"Test settings"));
        return IDOK;
    });
    EXPECT_NE(Show({}), IDOK);
    EXPECT_EQ(boxes, 1);
}

}  // namespace
