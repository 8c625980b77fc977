#include "framework/text.h"
#include "host/libraries/numbers.h"
#include "qvclient/qvsettingsdialog/controls/en_de_crypt.h"
#include "tests/component/model/page_fixture.h"

namespace {

struct InputCase {
    const char* name;
    const wchar_t* type;
    const wchar_t* lower;
    const wchar_t* upper;
    const wchar_t* entered;
    const wchar_t* message;  // what follows "Data out of range !\n"; null: accepted
};

class NumericInput : public PageTest, public ::testing::WithParamInterface<InputCase> {};

TEST_P(NumericInput, IsAcceptedOrReportedAndSelected) {
    const InputCase& c = GetParam();
    Define(L"common/number",
           {{L"type", c.type}, {L"lowerbound", c.lower}, {L"upperbound", c.upper}, {L"default", c.lower}});
    Shown().Enter(L"common/number", c.entered);
    m_boxes.clear();
    EXPECT_EQ(Validate(), c.message == nullptr);
    if (c.message == nullptr) {
        EXPECT_TRUE(m_boxes.empty()) << ::testing::PrintToString(m_boxes);
        EXPECT_EQ(Shown().Activations(), 0);
        return;
    }
    EXPECT_EQ(OnlyText(m_boxes), std::wstring(L"Data out of range !\n") + c.message + L"\nCorrect your inputs");
    EXPECT_EQ(m_boxes.at(0).kind, qv::MessageBoxCall::Kind::Info);
    EXPECT_EQ(m_boxes.at(0).caption, Shown().GetLayout().GetColumnPrompt(L"common/number")->GetWindowText());
    EXPECT_EQ(m_boxes.at(0).owner, Shown().Top());
    EXPECT_EQ(Shown().Activations(), 1);
    CWnd* control = Shown().GetLayout().GetColumnControl(L"common/number");
    EXPECT_EQ(::GetFocus(), control->m_hWnd);
    DWORD first = 99;
    DWORD last = 99;
    control->SendMessage(EM_GETSEL, reinterpret_cast<WPARAM>(&first), reinterpret_cast<LPARAM>(&last));
    EXPECT_EQ(first, 0U);
    EXPECT_EQ(last, static_cast<DWORD>(std::wstring_view(c.entered).size()));
}

INSTANTIATE_TEST_SUITE_P(
    Cases, NumericInput,
    ::testing::Values(
        InputCase{"IntegerAbove", L"1", L"1", L"10", L"11", L"Range[1, 10]\nActValue = 11"},
        InputCase{"IntegerAtBound", L"1", L"1", L"10", L"10", nullptr},
        InputCase{"IntegerSameAtThreeDigits", L"1", L"0", L"1000", L"1004", nullptr},
        InputCase{"IntegerAboveAtThreeDigits", L"1", L"0", L"1000", L"1010", L"Range[0, 1000]\nActValue = 1010"},
        InputCase{"IntegerEmptyIsZero", L"1", L"1", L"10", L"", L"Range[1, 10]\nActValue = 0"},
        InputCase{"RealWithoutDecimals", L"2", L"0.5", L"2.25", L"3", L"Range[0.5, 2.25]\nActValue = 3"},
        InputCase{"RealBelow", L"2", L"0.5", L"2.25", L"-0.125", L"Range[0.5, 2.25]\nActValue = -0.125"},
        InputCase{"RealSameAtThreeDigits", L"2", L"0", L"1", L"1.004", nullptr},
        InputCase{"RealAboveAtThreeDigits", L"2", L"0", L"1", L"1.006", L"Range[0, 1]\nActValue = 1.006"},
        InputCase{"TextIsZeroAndInside", L"2", L"-1", L"1", L"abc", nullptr},
        // Whole numbers show their low 32 bits only; those beyond 64 bits count as having a fraction.
        InputCase{"WholeBeyond32Bits", L"2", L"0", L"1", L"4294967297", L"Range[0, 1]\nActValue = 1"},
        InputCase{"WholeWithBit31", L"2", L"0", L"1", L"2147483648", L"Range[0, 1]\nActValue = -2147483648"},
        InputCase{"WholeBeyond64Bits", L"2", L"0", L"1", L"1e300", L"Range[0, 1]\nActValue = 1e+300"},
        InputCase{"WholeAt64Bits", L"2", L"0", L"1", L"9223372036854775808", L"Range[0, 1]\nActValue = 9.22337e+18"}),
    kCaseName);

TEST_F(PageTest, TheFirstBadInputInDisplayOrderEndsTheCheck) {
    const Pairs range = {{L"type", L"1"}, {L"lowerbound", L"1"}, {L"upperbound", L"9"}, {L"default", L"5"}};
    Pairs later = range;
    later.insert(later.end(), {{L"ordernumber", L"2"}, {L"label", L"Later"}});
    Pairs sooner = range;
    sooner.insert(sooner.end(), {{L"ordernumber", L"1"}, {L"label", L"Sooner"}});
    Define(L"common/later", later);
    Define(L"common/sooner", sooner);
    Define(L"common/text", {{L"type", L"3"}, {L"default", L"77"}});
    Shown().Enter(L"common/later", L"20");
    Shown().Enter(L"common/sooner", L"30");
    EXPECT_FALSE(Validate());
    EXPECT_EQ(OnlyText(m_boxes), L"Data out of range !\nRange[1, 9]\nActValue = 30\nCorrect your inputs");
    EXPECT_TRUE(m_session->Calls().empty());
}

TEST_F(PageTest, WithoutAWindowAboveTheSheetABadInputIsRefusedSilently) {
    Define(L"common/number", {{L"type", L"1"}, {L"lowerbound", L"1"}, {L"upperbound", L"9"}, {L"default", L"5"}});
    Shown().Enter(L"common/number", L"20");
    Shown().MoveSheetToTop();
    EXPECT_FALSE(Validate());
    EXPECT_TRUE(m_boxes.empty());
    EXPECT_EQ(Shown().Activations(), 1);
}

TEST_F(PageTest, AChooserThatRefusesItsInputGetsTheFocus) {
    const wchar_t* const absent = L"/no/such/place/anywhere";
    Define(L"common/file", {{L"type", L"9"}, {L"checkpath", L" 1 "}, {L"default", L""}});
    Define(L"common/unchecked", {{L"type", L"7"}, {L"checkpath", L"2"}, {L"default", absent}});
    Define(L"common/folder", {{L"type", L"7"}, {L"checkpath", L"1"}, {L"default", absent}});
    Shown();
    m_boxes.clear();
    EXPECT_FALSE(Validate());
    EXPECT_EQ(m_boxes.size(), 1U) << ::testing::PrintToString(m_boxes);  // the chooser's own
    EXPECT_EQ(Shown().Activations(), 1);
    CWnd& folder = Page()->Controls(SpecialControlKind::Path).at(1)->Window();
    EXPECT_TRUE(::GetFocus() == folder.m_hWnd || ::IsChild(folder.m_hWnd, ::GetFocus()));
}

// --- defaults ----------------------------------------------------------------------------------------------------

TEST_F(PageTest, DefaultsComeBackIntoRowsWithTheirSeparatorNormalised) {
    Define(L"common/real", {{L"type", L"2"}, {L"default", L"1,5"}, {L"ordernumber", L"1"}}, L"3");
    Define(L"common/text", {{L"type", L"3"}, {L"default", L"1,5"}}, L"other");
    Define(L"common/list", {{L"type", L"4"}, {L"default", L"b"}, {L"value1", L"a|A"}, {L"value2", L"b|B"}}, L"a");
    Define(L"common/flag", {{L"type", L"0"}, {L"default", L"1"}}, L"0");
    Define(L"common/none", {{L"type", L"1"}}, L"6");
    const qv::NumberLocale before = qv::SetNumberLocale({true, L",", L"."});
    Reset();
    qv::SetNumberLocale(before);
    EXPECT_EQ(Shown().Shown(L"common/real"), L"1.5");
    EXPECT_EQ(Shown().Shown(L"common/text"), L"1,5");
    EXPECT_EQ(Shown().Shown(L"common/list"), L"b");
    EXPECT_EQ(Shown().Shown(L"common/flag"), L"1");
    EXPECT_EQ(Shown().Shown(L"common/none"), L"6");
    EXPECT_TRUE(m_session->Calls().empty());
}

TEST_F(PageTest, ControlsComeBackToTheirDefaultsUnlessReadOnlyOrWithoutOne) {
    const std::wstring secret = XEnDeCrypt().Encrypt(L"Secret1");
    const std::wstring initial = XEnDeCrypt().Encrypt(L"Before2");
    m_rights->Refuse(L"Change settings/Machine data");
    const Pairs entries = {{L"value1", L"a|Alpha"}, {L"value2", L"b|Beta"}, {L"value3", L"c|Gamma"}};
    Pairs list = entries;
    list.insert(list.end(), {{L"type", L"5"}, {L"default", L"a|c"}});
    Define(L"common/list", list, L"b");
    Define(L"common/password", {{L"type", L"6"}, {L"default", secret}}, initial);
    Define(L"common/path", {{L"type", L"7"}}, L"D:\\");
    Define(L"common/colour", {{L"type", L"8"}, {L"default", L"9"}, {L"functiongroup", L"1"}}, L"255");
    Define(L"common/file", {{L"type", L"9"}, {L"default", L"C:\\a"}}, L"C:\\b");
    Define(L"common/button", {{L"type", L"12"}, {L"default", L"reset"}}, L"set");
    Reset();
    EXPECT_EQ(Control(SpecialControlKind::CheckedList).GetValue(), L"a|c");
    EXPECT_EQ(Control(SpecialControlKind::Password).GetValue(), secret);
    EXPECT_EQ(Control(SpecialControlKind::Path).GetValue(), L"D:\\");
    EXPECT_EQ(Control(SpecialControlKind::Colour).GetValue(), L"255");
    EXPECT_EQ(Control(SpecialControlKind::File).GetValue(), L"C:\\a");
    EXPECT_EQ(Control(SpecialControlKind::Button).GetValue(), L"reset");
    EXPECT_TRUE(m_boxes.empty()) << ::testing::PrintToString(m_boxes);
}

TEST_F(PageTest, APasswordHasTwentySixCharactersWhateverItsDefinitionSays) {
    const XEnDeCrypt cipher;
    Define(L"common/password",
           {{L"type", L"6"}, {L"maxstringlength", L"10"}, {L"default", cipher.Encrypt(L"onmlkjihgfedcba")}},
           cipher.Encrypt(L"abcdefghijklmno"));
    Shown();
    SpecialControl& password = Control(SpecialControlKind::Password);
    EXPECT_EQ(password.Window().SendMessage(EM_GETLIMITTEXT), 26);
    // Stored and default text are enciphered, two digits a character.
    EXPECT_EQ(password.GetValue(), cipher.Encrypt(L"abcdefghijklm"));
    Reset();
    EXPECT_EQ(password.GetValue(), cipher.Encrypt(L"onmlkjihgfedc"));
    EXPECT_TRUE(m_boxes.empty());
}

// The user, or whoever runs the program meanwhile, may close everything while the message stands there.
TEST_F(PageTest, AnInputThatIsRefusedWhileThePageGoesIsRefusedAllTheSame) {
    Define(L"common/number", {{L"type", L"1"}, {L"lowerbound", L"1"}, {L"default", L"1"}});
    Shown().Enter(L"common/number", L"0");
    HWND top = Shown().Top();
    int boxes = 0;
    const auto before = qv::SetMessageBoxSink([&](const qv::MessageBoxCall&) {
        ++boxes;
        ::DestroyWindow(top);
        return IDOK;
    });
    EXPECT_FALSE(Validate());
    qv::SetMessageBoxSink(before);
    EXPECT_EQ(boxes, 1);
    // With nothing left to look at there is nothing to refuse: whoever asks looks at the windows.
    EXPECT_TRUE(Validate());
}

TEST_F(PageTest, AChooserThatIsRefusedWhileThePageGoesIsNotBroughtToTheFront) {
    Define(L"common/folder", {{L"type", L"7"}, {L"checkpath", L"1"}});
    HWND top = Shown().Top();
    const auto before = qv::SetMessageBoxSink([top](const qv::MessageBoxCall&) {
        ::DestroyWindow(top);
        return IDOK;
    });
    EXPECT_FALSE(Validate());
    qv::SetMessageBoxSink(before);
    EXPECT_EQ(Shown().Activations(), 0);
}

}  // namespace
