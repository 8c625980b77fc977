#include "qvclient/qvsettingsdialog/controls/password_edit.h"

#include "qvclient/qvsettingsdialog/controls/en_de_crypt.h"
#include "tests/component/controls/controls_fixture.h"

namespace {

constexpr unsigned kMaxLength = 26;
const std::wstring kInvalidValueText = L"Password not valid.\n(False length or invalid character)";

std::wstring Stored(std::wstring_view plain) {
    return XEnDeCrypt().Encrypt(plain);
}

std::wstring RefusalOf(int position, int code, const std::wstring& character) {
    return L"Invalid character in Password\nPosition: " + std::to_wstring(position) + L" Char.: " +
           std::to_wstring(code) + L" -> " + character +
           L"\n\nOnly characters in the range of 33 to 127 of ASCII-Table are allowed.";
}

class PasswordField : public ControlsTest {
protected:
    // What the field shows is masked, what it holds is not.
    void Hold(const std::wstring& plain) {
        edit.SetMaxLength(kMaxLength);
        edit.SetInitValue(Stored(plain));
        Show(edit);
    }
    void Type(const std::wstring& characters) {
        for (const wchar_t each : characters)
            edit.SendMessage(WM_CHAR, each, 1);
    }
    void Paste(const std::wstring& text) {
        edit.SendMessage(EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.c_str()));
    }

    XDynPasswordEdit edit;
};

TEST_F(PasswordField, ShowsTheDecipheredValueMaskedAndGivesItBackEnciphered) {
    Hold(L"secret");
    EXPECT_EQ(edit.GetWindowText(), L"secret");
    EXPECT_NE(edit.GetPasswordChar(), L'\0');
    EXPECT_EQ(edit.GetLimitText(), kMaxLength);
    EXPECT_EQ(edit.GetValue(), Stored(L"secret"));
    EXPECT_TRUE(boxes.empty());
}

TEST_F(PasswordField, LooksAtTheLastCharacterAfterEveryChange) {
    const struct {
        const char* name;
        std::wstring before;
        int caret;
        std::wstring input;
        bool typed;  // else pasted
        std::wstring after;
        std::wstring report;  // empty: none
    } cases[] = {
        {"good character", L"ab", 2, L"c", true, L"abc", L""},
        {"space at the end", L"ab", 2, L" ", true, L"", RefusalOf(2, 32, L" ")},
        {"first character", L"", 0, L" ", true, L"", RefusalOf(0, 32, L" ")},
        {"wide, low byte in range", L"ab", 2, L"\x0141", true, L"ab\x0141", L""},
        {"wide, reported by its low byte", L"ab", 2, L"\x20AC", true, L"", RefusalOf(2, 0xAC, L"\x20AC")},
        {"space in the middle passes", L"ab", 1, L" ", true, L"a b", L""},
        {"pasted, bad inside passes", L"", 0, L"a b", false, L"a b", L""},
        {"pasted, bad at the end", L"x", 1, L"ab ", false, L"", RefusalOf(3, 32, L" ")},
        {"pasted before a bad end", L"ab", 0, L"\x00E9", false,
         L"\x00E9"
         L"ab",
         L""},
    };
    edit.SetMaxLength(kMaxLength);
    Show(edit);
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        edit.SetWindowText(each.before);
        edit.SetSel(each.caret, each.caret);
        boxes.clear();
        if (each.typed) {
            Type(each.input);
        } else {
            Paste(each.input);
        }
        EXPECT_EQ(edit.GetWindowText(), each.after);
        if (each.report.empty()) {
            EXPECT_TRUE(boxes.empty());
        } else {
            ASSERT_EQ(boxes.size(), 1U);
            EXPECT_EQ(boxes[0].kind, qv::MessageBoxCall::Kind::Error);
            EXPECT_EQ(boxes[0].caption, L"Invalid character in Password");
            EXPECT_EQ(boxes[0].text, each.report);
        }
    }
}

TEST_F(PasswordField, ChecksWhatTheProgramPutsInToo) {
    Hold(L"abc");
    edit.SetWindowText(L"abc ");
    EXPECT_EQ(edit.GetWindowText(), L"");
    EXPECT_EQ(boxes.size(), 1U);
}

TEST_F(PasswordField, StoresAnEmptyPasswordForABadCharacterInside) {
    Hold(L"ab");
    edit.SetSel(1, 1);
    Type(L" ");
    ASSERT_FALSE(page.Taken(EN_CHANGE).empty()) << "the page hears of it";
    EXPECT_EQ(page.Taken(EN_CHANGE)[0].control, edit.m_hWnd);
    EXPECT_EQ(edit.GetValue(), L"");
    EXPECT_TRUE(boxes.empty());
}

TEST_F(PasswordField, ReportsAStoredTextThatCannotBeDeciphered) {
    edit.SetMaxLength(kMaxLength);
    edit.SetInitValue(Stored(L"ab").substr(0, 3));
    edit.SetDefaultValue(Stored(L"x") + L"f");
    ASSERT_EQ(boxes.size(), 2U);
    for (const auto& box : boxes) {
        EXPECT_EQ(box.owner, nullptr);
        EXPECT_EQ(box.caption, L"Initialize Password field");
        EXPECT_EQ(box.text, kInvalidValueText);
    }
    Show(edit);
    EXPECT_EQ(edit.GetWindowText(), L"");
    edit.SetInitValue(L"123");
    ASSERT_EQ(boxes.size(), 3U);
    EXPECT_EQ(boxes[2].owner, edit.m_hWnd);
}

// Deliberate: the two setters cut by different lengths.
TEST_F(PasswordField, InitialValueIsCutByTheOneBeforeAndDefaultByItself) {
    edit.SetMaxLength(4);
    edit.SetInitValue(Stored(L"abcdef"));
    edit.SetDefaultValue(Stored(L"abcdef"));
    Show(edit);
    EXPECT_EQ(edit.GetValue(), Stored(L"abcdef"));
    edit.ShowDefaultValue();
    EXPECT_EQ(edit.GetValue(), Stored(L"ab"));
    edit.SetInitValue(Stored(L"uvwxyz"));  // six characters are held, more than four
    edit.ShowInitValue();
    EXPECT_EQ(edit.GetValue(), Stored(L"uv"));
    edit.SetInitValue(Stored(L"uvwxyz"));  // two are held
    edit.ShowInitValue();
    EXPECT_EQ(edit.GetValue(), Stored(L"uvwxyz"));
    EXPECT_TRUE(boxes.empty());
}

TEST_F(PasswordField, WithoutAMaximumTheDefaultIsCutToNothingAndThePlatformLimits) {
    edit.SetInitValue(Stored(L"abc"));
    edit.SetDefaultValue(Stored(L"abc"));
    Show(edit);
    EXPECT_EQ(edit.GetWindowText(), L"abc");
    EXPECT_GT(edit.GetLimitText(), kMaxLength);
    edit.ShowDefaultValue();
    EXPECT_EQ(edit.GetWindowText(), L"");
    EXPECT_TRUE(boxes.empty());
}

// Deliberate: 26 characters can be typed, but only what was made of 13 is read back.
TEST_F(PasswordField, ALongPasswordIsStoredWholeAndReadBackAsItsFirstHalf) {
    const std::wstring typed = L"abcdefghijklmnopqrstuvwxyz";
    Hold(L"");
    Type(typed + L"!");
    EXPECT_EQ(edit.GetWindowText(), typed);
    const std::wstring stored = edit.GetValue();
    EXPECT_EQ(stored.size(), 52U);

    XDynPasswordEdit next;
    next.SetMaxLength(kMaxLength);
    next.SetInitValue(std::wstring_view(stored).substr(0, kMaxLength));
    ASSERT_TRUE(next.CreateOnPage(page, kControlId + 1));
    next.ShowInitValue();
    EXPECT_EQ(next.GetWindowText(), typed.substr(0, 13));
}

TEST_F(PasswordField, ReadOnlyIsMaskedAndTakesNoInput) {
    edit.SetReadOnly(true);
    Hold(L"secret");
    EXPECT_NE(edit.GetStyle() & ES_READONLY, 0U);
    EXPECT_NE(edit.GetPasswordChar(), L'\0');
    Type(L"x");
    EXPECT_EQ(edit.GetWindowText(), L"secret");
}

}  // namespace
