// Controls made from what an item's definition and stored value came to.
#include "qvclient/qvsettingsdialog/controls/special_item.h"

#include "qvclient/qvsettingsdialog/controls/en_de_crypt.h"
#include "tests/component/controls/controls_fixture.h"

namespace {

std::wstring Enciphered(std::wstring_view plain) {
    return XEnDeCrypt().Encrypt(plain);
}

class MadeControl : public ControlsTest {
protected:
    // Made and shown.
    SpecialControl& Make(SpecialItem item) {
        control = qv::MakeSpecialControl(std::move(item));
        EXPECT_TRUE(control->CreateOnPage(page, kControlId));
        control->ShowInitValue();
        return *control;
    }
    void TearDown() override {
        control.reset();
        ControlsTest::TearDown();
    }
    std::unique_ptr<SpecialControl> control;
};

TEST_F(MadeControl, OfEveryKindShowsItsValueAndThenItsDefault) {
    struct Case {
        SpecialControlKind kind;
        std::int32_t typeCode;
        std::wstring value;
        std::wstring defaultText;
    };
    const Case cases[] = {
        {SpecialControlKind::Password, 6, Enciphered(L"Before2"), Enciphered(L"Secret1")},
        {SpecialControlKind::Path, 7, L"D:\\", L"C:\\"},
        {SpecialControlKind::Colour, 8, L"255", L"9"},
        {SpecialControlKind::File, 9, L"C:\\b", L"C:\\a"},
        {SpecialControlKind::Button, 12, L"set", L"reset"},
        {SpecialControlKind::CheckedList, 5, L"b", L"a|c"},
    };
    for (const Case& c : cases) {
        SpecialItem item;
        item.kind = c.kind;
        item.typeCode = c.typeCode;
        item.value = c.value;
        item.defaultText = c.defaultText;
        item.hasDefault = true;
        item.entries = {{L"a", L"Alpha"}, {L"b", L"Beta"}, {L"c", L"Gamma"}};
        item.keys = {L"b"};
        item.defaultKeys = {L"a", L"c"};
        SpecialControl& made = Make(std::move(item));
        EXPECT_EQ(made.GetValue(), c.value) << c.typeCode;
        made.ShowDefaultValue();
        EXPECT_EQ(made.GetValue(), c.defaultText) << c.typeCode;
        made.Window().DestroyWindow();
    }
    EXPECT_TRUE(boxes.empty());
}

TEST_F(MadeControl, ChooserReportsAValueThatIsNotThereUnderItsLabel) {
    SpecialItem item;
    item.kind = SpecialControlKind::File;
    item.value = L"/no/such/file";
    item.label = L"Log file";
    item.checkPath = true;
    Make(std::move(item));
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].caption, L"Log file");
}

// Stored and default text are enciphered, two digits a character.
TEST_F(MadeControl, PasswordHasTwentySixCharactersAndCutsEncipheredTextsToAsMany) {
    SpecialItem item;
    item.kind = SpecialControlKind::Password;
    item.value = Enciphered(L"abcdefghijklmno");
    item.defaultText = Enciphered(L"onmlkjihgfedcba");
    item.hasDefault = true;
    SpecialControl& password = Make(std::move(item));
    EXPECT_EQ(password.Window().SendMessage(EM_GETLIMITTEXT), 26);
    EXPECT_EQ(password.GetValue(), Enciphered(L"abcdefghijklm"));
    password.ShowDefaultValue();
    EXPECT_EQ(password.GetValue(), Enciphered(L"onmlkjihgfedc"));
    EXPECT_TRUE(boxes.empty());
}

}  // namespace
