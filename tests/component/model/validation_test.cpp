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

TEST_P(NumericInput, IsAcceptedOrRefusedWithAReason) {
    const InputCase& c = GetParam();
    Define(L"common/number",
           {{L"type", c.type}, {L"lowerbound", c.lower}, {L"upperbound", c.upper}, {L"default", c.lower}});
    Shown().Enter(L"common/number", c.entered);
    EXPECT_EQ(Validate(), c.message == nullptr);
    std::vector<std::wstring> expected;
    if (c.message != nullptr) {
        expected.push_back(std::wstring(L"common/number\nData out of range !\n") + c.message +
                           L"\nCorrect your inputs");
    }
    EXPECT_EQ(Shown().refusals, expected);
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
        InputCase{"RealJustBelow", L"2", L"1000", L"2000", L"999.9", nullptr},
        InputCase{"RealBelowAtThreeDigits", L"2", L"1000", L"2000", L"998", L"Range[1000, 2000]\nActValue = 998"},
        InputCase{"RealNegative", L"2", L"-1", L"0", L"-1.006", L"Range[-1, 0]\nActValue = -1.006"},
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
    EXPECT_EQ(Shown().refusals,
              std::vector<std::wstring>{
                  L"common/sooner\nData out of range !\nRange[1, 9]\nActValue = 30\nCorrect your inputs"});
    EXPECT_TRUE(m_session->Calls().empty());
}

// Folders before files, and only once every number is fine.
TEST_F(PageTest, TheFirstChooserThatRefusesItsInputEndsTheCheck) {
    Define(L"common/file", {{L"type", L"9"}});
    Define(L"common/folder", {{L"type", L"7"}});
    Define(L"common/other", {{L"type", L"7"}});
    Define(L"common/number", {{L"type", L"1"}, {L"upperbound", L"9"}, {L"default", L"5"}});
    FakeControl& file = Control(SpecialControlKind::File);
    auto& folder = dynamic_cast<FakeControl&>(*Page()->Controls(SpecialControlKind::Path).at(1));
    file.accepts = false;
    folder.accepts = false;
    Shown().Enter(L"common/number", L"10");
    EXPECT_FALSE(Validate());
    EXPECT_TRUE(Shown().refusedControls.empty());
    Shown().Enter(L"common/number", L"9");
    EXPECT_FALSE(Validate());
    folder.accepts = true;
    EXPECT_FALSE(Validate());
    file.accepts = true;
    EXPECT_TRUE(Validate());
    EXPECT_EQ(Shown().refusedControls, (std::vector<SpecialControl*>{&folder, &file}));
}

// --- defaults ----------------------------------------------------------------------------------------------------

TEST_F(PageTest, DefaultsComeBackIntoRowsWithTheirSeparatorNormalised) {
    Define(L"common/real", {{L"type", L"2"}, {L"default", L"1,5"}, {L"ordernumber", L"1"}}, L"3");
    Define(L"common/text", {{L"type", L"3"}, {L"default", L"1,5"}}, L"other");
    Define(L"common/list", {{L"type", L"4"}, {L"default", L"b"}, {L"value1", L"a|A"}, {L"value2", L"b|B"}}, L"a");
    Define(L"common/flag", {{L"type", L"0"}, {L"default", L"1"}}, L"0");
    Define(L"common/none", {{L"type", L"1"}}, L"6");
    const qvtest::ScopedNumberLocale comma({true, L",", L"."});
    Reset();
    EXPECT_EQ(Shown().Shown(L"common/real"), L"1.5");
    EXPECT_EQ(Shown().Shown(L"common/text"), L"1,5");
    EXPECT_EQ(Shown().Shown(L"common/list"), L"b");
    EXPECT_EQ(Shown().Shown(L"common/flag"), L"1");
    EXPECT_EQ(Shown().Shown(L"common/none"), L"6");
    EXPECT_TRUE(m_session->Calls().empty());
}

TEST_F(PageTest, ControlsComeBackToTheirDefaultsUnlessReadOnlyOrWithoutOne) {
    m_rights->Refuse(L"Change settings/Machine data");
    Define(L"common/path", {{L"type", L"7"}}, L"D:\\");
    Define(L"common/colour", {{L"type", L"8"}, {L"default", L"9"}, {L"functiongroup", L"1"}}, L"255");
    Define(L"common/file", {{L"type", L"9"}, {L"default", L"C:\\a"}}, L"C:\\b");
    Define(L"common/button", {{L"type", L"12"}, {L"default", L"reset"}}, L"set");
    Reset();
    EXPECT_EQ(Control(SpecialControlKind::Path).text, L"D:\\");
    EXPECT_EQ(Control(SpecialControlKind::Colour).text, L"255");
    EXPECT_EQ(Control(SpecialControlKind::File).text, L"C:\\a");
    EXPECT_EQ(Control(SpecialControlKind::Button).text, L"reset");
}

}  // namespace
