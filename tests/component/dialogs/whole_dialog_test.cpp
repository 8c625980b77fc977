// OK, Apply, Default, Cancel and the keyboard, on a dialog with an item of each plain kind.
#include "tests/component/dialogs/whole_dialog.h"

#include "qvclient/qvsettingsdialog/resources/resource_ids.h"

using qv::SessionOperation;

namespace {

class PlainDialog : public WholeDialog {
protected:
    PlainDialog() { host.DefinePlainPage(); }

    void ExpectNothingWritten() const {
        EXPECT_TRUE(host.session->CallsOf(SessionOperation::WriteData).empty());
        EXPECT_TRUE(host.session->CallsOf(SessionOperation::SaveData).empty());
    }
};

TEST_F(PlainDialog, ShowsStoredValuesAndOkStoresWhatThePersonEntered) {
    InDialog(
        [this] {
            EXPECT_EQ(driver.TabTitles(), std::vector<std::wstring>{L"General"});
            EXPECT_EQ(driver.Shown(L"common/flag"), L"0");
            EXPECT_EQ(driver.Shown(L"common/count"), L"7");
            EXPECT_EQ(driver.Shown(L"common/name"), L"Anna");
            EXPECT_EQ(driver.Shown(L"common/unit"), L"Millimetre");
            EXPECT_EQ(driver.Frame().GetWindowText(), L"Test settings");
            EXPECT_TRUE(driver.HasFocus(driver.Dialog().GetDlgItem(IDOK)));
            EXPECT_NE(driver.Frame().SendMessage(WM_GETICON, ICON_SMALL), 0);
            EXPECT_TRUE(driver.Toggle(L"common/flag"));
            EXPECT_TRUE(driver.Type(L"common/count", L"9"));
            EXPECT_TRUE(driver.Type(L"common/ratio", L"2.25"));
            EXPECT_TRUE(driver.Type(L"common/name", L"Berta"));
            EXPECT_TRUE(driver.Choose(L"common/unit", 1));
        },
        IDOK);
    EXPECT_EQ(host.Stored(L"common/flag"), L"1");
    EXPECT_EQ(host.Stored(L"common/count"), L"9");
    EXPECT_EQ(host.Stored(L"common/ratio"), L"2.25");
    EXPECT_EQ(host.Stored(L"common/name"), L"Berta");
    EXPECT_EQ(host.Stored(L"common/unit"), L"cm");
    EXPECT_TRUE(driver.boxes.empty());
}

// One change of each kind wakes Apply.
TEST_F(PlainDialog, EveryKindOfChangeEnablesApply) {
    const struct {
        const char* name;
        std::function<bool()> change;
    } cases[] = {
        {"check box", [this] { return driver.Toggle(L"common/flag"); }},
        {"edit", [this] { return driver.Type(L"common/name", L"x"); }},
        {"combo box", [this] { return driver.Choose(L"common/unit", 1); }},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        InDialog([&] {
            EXPECT_FALSE(driver.IsEnabled(IDC_APPLY_BUTTON));
            EXPECT_TRUE(each.change());
            EXPECT_TRUE(driver.IsEnabled(IDC_APPLY_BUTTON));
        });
    }
}

TEST_F(PlainDialog, ApplyStoresStaysOpenAndWakesAgainAtTheNextChange) {
    InDialog([this] {
        driver.Type(L"common/name", L"Dora");
        EXPECT_TRUE(driver.Press(IDC_APPLY_BUTTON));
        EXPECT_EQ(host.Stored(L"common/name"), L"Dora");
        EXPECT_FALSE(driver.IsEnabled(IDC_APPLY_BUTTON));
        host.session->ClearCalls();
        // What is not modified is not applied, even if someone gets at the button.
        driver.Dialog().SendMessage(WM_COMMAND, MAKEWPARAM(IDC_APPLY_BUTTON, BN_CLICKED));
        ExpectNothingWritten();
        driver.Type(L"common/name", L"Elsa");
        EXPECT_TRUE(driver.IsEnabled(IDC_APPLY_BUTTON));
    });
    EXPECT_EQ(host.Stored(L"common/name"), L"Dora");
}

TEST_F(PlainDialog, TheDialogHearsOfTheFirstChangeOnly) {
    InDialog([this] {
        driver.Type(L"common/name", L"F");
        // Were a second notice passed on, it would wake the button again.
        driver.Dialog().GetDlgItem(IDC_APPLY_BUTTON)->EnableWindow(false);
        driver.Type(L"common/name", L"G");
        driver.Toggle(L"common/flag");
        EXPECT_FALSE(driver.IsEnabled(IDC_APPLY_BUTTON));
    });
}

TEST_F(PlainDialog, DefaultShowsDefaultsWakesApplyAndStoresNothingItself) {
    InDialog(
        [this] {
            EXPECT_TRUE(driver.Press(IDC_DEFAULT_BUTTON));
            EXPECT_EQ(driver.Shown(L"common/count"), L"4");
            EXPECT_EQ(driver.Shown(L"common/name"), L"Anna");  // has no default
            EXPECT_TRUE(driver.IsEnabled(IDC_APPLY_BUTTON));
            ExpectNothingWritten();
        },
        IDOK);
    EXPECT_EQ(host.Stored(L"common/count"), L"4");
}

TEST_F(PlainDialog, DefaultWakesApplyEvenWhenNothingDiffers) {
    host.session->Put(SDT_userData, L"common", L"count", L"4");
    InDialog([this] {
        driver.Press(IDC_DEFAULT_BUTTON);
        driver.Press(IDC_APPLY_BUTTON);
        driver.Press(IDC_DEFAULT_BUTTON);
        EXPECT_TRUE(driver.IsEnabled(IDC_APPLY_BUTTON));
    });
}

// A control that takes the focus back (a password that was not repeated, say) keeps the dialog open without a word.
TEST_F(PlainDialog, OkStaysOpenWhenTheFocusDoesNotFollow) {
    InDialog([this] {
        EXPECT_TRUE(driver.FocusRow(L"common/name"));
        driver.Dialog().GetDlgItem(IDOK)->EnableWindow(false);  // a disabled button cannot take the focus
        driver.PressKey(VK_RETURN);
        ExpectNothingWritten();
        EXPECT_TRUE(driver.boxes.empty());
    });
}

// A value that cannot be written is passed over in silence.
TEST_F(PlainDialog, OkClosesThoughTheSessionRefusesEveryWrite) {
    const int code = Show({
        [this] { EXPECT_TRUE(driver.Type(L"common/name", L"Berta")); },
        [this] {
            host.session->SetFault([](const qv::SessionCall& call) {
                return call.operation == SessionOperation::WriteData ? E_FAIL : S_OK;
            });
            driver.Press(IDOK);
        },
    });
    EXPECT_EQ(code, IDOK);
    EXPECT_EQ(host.Stored(L"common/name"), L"Anna");
    EXPECT_TRUE(driver.boxes.empty());
}

// Without a help path there is nothing to open; that it was looked for tells that help was asked for.
TEST_F(PlainDialog, HelpIsAskedForByItsButtonAndByF1InAnyControl) {
    const auto asked = [this] {
        int reads = 0;
        for (const qv::SessionCall& call : host.session->CallsOf(SessionOperation::ReadData)) {
            if (call.name == L"help_path") ++reads;
        }
        return reads;
    };
    InDialog([&] {
        EXPECT_TRUE(driver.Press(IDC_HELP_BUTTON));
        EXPECT_EQ(asked(), 1);
        for (const CWnd* control : {driver.Control(L"common/name"), driver.Dialog().GetDlgItem(IDOK)}) {
            HELPINFO help{sizeof help, HELPINFO_WINDOW, control->GetDlgCtrlID(), control->m_hWnd, 0, {}};
            control->SendMessage(WM_HELP, 0, reinterpret_cast<LPARAM>(&help));
        }
        EXPECT_EQ(asked(), 3);
        EXPECT_TRUE(driver.boxes.empty());
    });
}

TEST_F(PlainDialog, CaptionsAreTranslated) {
    const qvtest::ScopedDictionary dictionary({{L"OK", L"Ja"}, {L"Apply", L"Anwenden"}, {L"Test settings", L"T"}});
    InDialog([this] {
        EXPECT_EQ(driver.Dialog().GetDlgItem(IDOK)->GetWindowText(), L"Ja");
        EXPECT_EQ(driver.Dialog().GetDlgItem(IDC_APPLY_BUTTON)->GetWindowText(), L"Anwenden");
        EXPECT_EQ(driver.Dialog().GetDlgItem(IDCANCEL)->GetWindowText(), L"Cancel");
        EXPECT_EQ(driver.Frame().GetWindowText(), L"T");
    });
}

TEST_F(PlainDialog, PlacementMessageWithoutARecordIsPassedOver) {
    InDialog([this] {
        const CRect before = driver.Frame().GetWindowRect();
        EXPECT_EQ(driver.Frame().SendMessage(WM_USER + 2, 0, 0), 0);
        EXPECT_EQ(driver.Frame().GetWindowRect().Width(), before.Width());
    });
}

}  // namespace
