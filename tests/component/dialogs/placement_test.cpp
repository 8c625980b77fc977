// The placement record: when it is read and written, in which order, and what faults do to it.
#include <memory>

#include "qvclient/qvsettingsdialog/dialogs/dyn_dialog.h"
#include "qvclient/qvsettingsdialog/dialogs/placement_record.h"
#include "qvclient/qvsettingsdialog/resources/resource_ids.h"
#include "tests/component/dialogs/whole_dialog.h"

using qv::SessionCall;
using qv::SessionOperation;

namespace {

constexpr const wchar_t* kRecord = L"SizeConfigDialog";
const std::vector<std::wstring> kOrder{L"flags", L"state", L"max.x", L"max.y",    L"min.x",
                                       L"min.y", L"top.x", L"top.y", L"bottom.x", L"bottom.y"};

class Placement : public WholeDialog {
protected:
    Placement() { host.DefinePlainPage(); }

    void SwitchOn() { host.session->Put(SDT_userData, L"common", L"configdialoginit", L"1"); }
    void PutRecord(std::initializer_list<std::pair<std::wstring_view, std::wstring_view>> values) {
        for (const auto& [name, text] : values)
            host.session->Put(SDT_userData, kRecord, name, text);
    }
    [[nodiscard]] std::wstring Recorded(std::wstring_view name) const {
        const std::wstring* text = host.session->GetSaved(SDT_userData, kRecord, name);
        return text != nullptr ? *text : L"(none)";
    }
    [[nodiscard]] std::vector<SessionCall> RecordCalls(SessionOperation operation) const {
        std::vector<SessionCall> calls = host.session->CallsOf(operation);
        std::erase_if(calls, [](const SessionCall& call) { return call.key != kRecord; });
        return calls;
    }
    void ExpectFrame(const CRect& expected) const {
        const CRect frame = driver.Frame().GetWindowRect();
        EXPECT_TRUE(EqualRect(&frame, &expected))
            << frame.left << ", " << frame.top << ": " << frame.Width() << " x " << frame.Height();
    }
    void OpenAndCancel() {
        InDialog([] {});
    }
};

TEST_F(Placement, SwitchReadsTheStoredValueElseTheDefinitionsDefault) {
    const struct {
        const char* name;
        const wchar_t* stored;  // null: none
        const wchar_t* defaultText;
        bool on;
    } cases[] = {
        {"nothing", nullptr, nullptr, false},
        {"stored 1", L"1", nullptr, true},
        {"stored 0 beats default 1", L"0", L"1", false},
        {"default 1", nullptr, L"1", true},
        {"default 0", nullptr, L"0", false},
        {"stored 2", L"2", L"1", false},
        {"too large for 16 bits", L"65537", L"1", false},
        {"no number", L"yes", L"1", false},
        {"empty", L"", L"1", false},
        {"rounded", L"1.2", nullptr, true},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        qvtest::TestHost fresh;
        if (each.stored != nullptr) fresh.session->Put(SDT_userData, L"common", L"configdialoginit", each.stored);
        if (each.defaultText != nullptr) {
            fresh.session->Define(L"option-configuration/common/configdialoginit", L"default", each.defaultText);
        }
        const XConstructionSet constructionSet(qvtest::kOptionKey, SDT_machineData, nullptr,
                                               qv::ComPtr<ISessionDataManager>(fresh.session.Get()),
                                               qv::ComPtr<IMultiUserManager>(fresh.users.Get()));
        EXPECT_EQ(IsPlacementSwitchedOn(constructionSet), each.on);
    }
}

// Answers the stored switch with a number, the definition's default with a text.
class NumberSession final : public qv::SessionDataBase {
public:
    HRESULT STDMETHODCALLTYPE ReadData(BSTR, BSTR name, USHORT, VARIANT* value, SESSIONDATATYPE) override {
        const bool isStored = qv::TextOf(name) == L"configdialoginit";
        value->vt = isStored ? VT_I2 : VT_BSTR;
        if (isStored) {
            value->iVal = 1;
        } else {
            value->bstrVal = SysAllocString(defaultText);
        }
        return S_OK;
    }
    const wchar_t* defaultText = L"0";
};

TEST_F(Placement, ASwitchThatIsNoTextIsNotStored) {
    const qv::ComPtr<NumberSession> session(new NumberSession);
    const XConstructionSet constructionSet(qvtest::kOptionKey, SDT_machineData, nullptr,
                                           qv::ComPtr<ISessionDataManager>(session.Get()),
                                           qv::ComPtr<IMultiUserManager>(host.users.Get()));
    EXPECT_FALSE(IsPlacementSwitchedOn(constructionSet)) << "the number 1 is no stored switch";
    session->defaultText = L"1";
    EXPECT_TRUE(IsPlacementSwitchedOn(constructionSet));
}

TEST_F(Placement, NothingIsReadOrWrittenWhileTheSwitchIsOff) {
    PutRecord({{L"top.x", L"3"}, {L"top.y", L"4"}, {L"bottom.x", L"703"}, {L"bottom.y", L"504"}});
    InDialog([this] { EXPECT_NE(driver.Frame().GetWindowRect().Width(), 700); });
    EXPECT_TRUE(RecordCalls(SessionOperation::EnumValues).empty());
    EXPECT_TRUE(RecordCalls(SessionOperation::WriteData).empty());
}

// The first focus lies on OK, at the bottom.
TEST_F(Placement, ASmallRememberedFrameOpensWithItsBeginningInView) {
    SwitchOn();
    PutRecord({{L"top.x", L"30"}, {L"top.y", L"30"}, {L"bottom.x", L"330"}, {L"bottom.y", L"230"}});
    InDialog([this] {
        const HWND view = Dialog().GetParent()->m_hWnd;
        EXPECT_TRUE(driver.HasFocus(Dialog().GetDlgItem(IDOK)));
        EXPECT_EQ(GetScrollPos(view, SB_VERT), 0);
        EXPECT_EQ(GetScrollPos(view, SB_HORZ), 0);
        driver.PressKey(VK_TAB);
        EXPECT_GT(GetScrollPos(view, SB_VERT), 0) << "a person's step is followed";
    });
}

TEST_F(Placement, RecordIsReadFieldByField) {
    const struct {
        const char* name;
        std::initializer_list<std::pair<std::wstring_view, std::wstring_view>> values;
        RECT rect;
        UINT state;
    } cases[] = {
        {"empty record", {}, {0, 0, 470, 360}, 1},
        {"all",
         {{L"top.x", L"1"}, {L"top.y", L"2"}, {L"bottom.x", L"3"}, {L"bottom.y", L"4"}, {L"state", L"3"}},
         {1, 2, 3, 4},
         3},
        {"capitals", {{L"TOP.X", L"-5000"}, {L"Bottom.Y", L"77"}}, {-5000, 0, 470, 77}, 1},
        {"no numbers count as 0, digits lead", {{L"bottom.x", L"wide"}, {L"top.y", L" 12abc"}}, {0, 12, 0, 360}, 1},
        {"unknown names are passed over", {{L"left", L"9"}, {L"top", L"9"}}, {0, 0, 470, 360}, 1},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        qvtest::TestHost fresh;
        for (const auto& [name, text] : each.values)
            fresh.session->Put(SDT_userData, kRecord, name, text);
        WINDOWPLACEMENT placement = InitialPlacement();
        ReadPlacementRecord(*fresh.session.Get(), placement);
        EXPECT_TRUE(EqualRect(&placement.rcNormalPosition, &each.rect));
        EXPECT_EQ(placement.showCmd, each.state);
    }
}

TEST_F(Placement, TheFrameReopensWhereItWasLeft) {
    SwitchOn();
    PutRecord({{L"top.x", L"40"}, {L"top.y", L"50"}, {L"bottom.x", L"940"}, {L"bottom.y", L"750"}, {L"state", L"1"}});
    CRect left;
    InDialog(
        [&] {
            ExpectFrame({40, 50, 940, 750});
            driver.Frame().MoveWindow(80, 60, 860, 640);
            left = driver.Frame().GetWindowRect();
        },
        IDOK);
    EXPECT_EQ(Recorded(L"top.x"), L"80");
    EXPECT_EQ(Recorded(L"bottom.y"), L"700");
    InDialog([&] { ExpectFrame(left); });
}

TEST_F(Placement, AMaximisedFrameReopensMaximised) {
    SwitchOn();
    PutRecord({{L"top.x", L"40"}, {L"top.y", L"50"}, {L"bottom.x", L"940"}, {L"bottom.y", L"750"}, {L"state", L"3"}});
    InDialog([this] { EXPECT_TRUE(IsZoomed(driver.Frame().m_hWnd)); });
    EXPECT_EQ(Recorded(L"state") + L" " + Recorded(L"flags") + L" " + Recorded(L"top.x"), L"3 3 40");
}

TEST_F(Placement, AnOffScreenRecordIsUsedAsItIs) {
    SwitchOn();
    PutRecord({{L"top.x", L"-5000"}, {L"top.y", L"50"}, {L"bottom.x", L"-4100"}, {L"bottom.y", L"750"}});
    Show({[this] {
        EXPECT_EQ(driver.Frame().GetWindowRect().left, -5000);
        driver.Frame().PostMessage(WM_CLOSE);  // a window that nobody sees gets no keys
    }});
    EXPECT_EQ(Recorded(L"top.x"), L"-5000");
}

// No host is kept from storing numbers that no window has.
TEST_F(Placement, ARecordOfTheLargestNumbersOpensAllTheSame) {
    SwitchOn();
    struct Case {
        const wchar_t* low;
        const wchar_t* high;
        const wchar_t* state;
    };
    for (const Case& each : {Case{L"-2147483648", L"2147483647", L"1"}, Case{L"2147483647", L"-2147483648", L"1"},
                             Case{L"2147483647", L"2147483647", L"3"}, Case{L"-2147483648", L"2147483647", L"3"}}) {
        PutRecord({{L"top.x", each.low},
                   {L"top.y", each.low},
                   {L"bottom.x", each.high},
                   {L"bottom.y", each.high},
                   {L"max.x", each.low},
                   {L"max.y", each.high},
                   {L"min.x", each.high},
                   {L"min.y", each.low},
                   {L"state", each.state}});
        Show({
            [this] { EXPECT_GT(driver.Frame().GetWindowRect().Height(), 0); },
            [this] { driver.Frame().PostMessage(WM_CLOSE); },
        });
        // On its own the dialog starts from the record itself.
        ShowFree({
            [this] { EXPECT_GT(Dialog().GetWindowRect().Height(), 0); },
            [this] { Dialog().PostMessage(WM_CLOSE); },
        });
    }
}

TEST(WindowSpace, KeepsWhatAWindowCanBeAndClipsTheRest) {
    WINDOWPLACEMENT placement = InitialPlacement();
    placement.rcNormalPosition = {-5000, 50, -4100, 750};
    EXPECT_EQ(WithinWindowSpace(placement).rcNormalPosition.left, -5000);
    EXPECT_EQ(WithinWindowSpace(placement).rcNormalPosition.right, -4100);
    placement.rcNormalPosition = {-100000, 40000, -99000, 40100};
    const RECT clipped = WithinWindowSpace(placement).rcNormalPosition;
    EXPECT_EQ(clipped.left, -32768);
    EXPECT_EQ(clipped.right - clipped.left, 1000) << "the size stays";
    EXPECT_EQ(clipped.top, 32767);
    EXPECT_EQ(clipped.bottom - clipped.top, 100);
}

// The dialog's own placement first, then the frame's over it; all writes of one before its saves.
TEST_F(Placement, WritesAndSavesInOrderTheFramesLast) {
    SwitchOn();
    OpenAndCancel();
    std::vector<std::pair<SessionOperation, std::wstring>> expected;
    for (int round = 0; round < 2; ++round) {
        for (const SessionOperation operation : {SessionOperation::WriteData, SessionOperation::SaveData}) {
            for (const std::wstring& name : kOrder)
                expected.emplace_back(operation, name);
        }
    }
    std::vector<std::pair<SessionOperation, std::wstring>> actual;
    std::vector<std::wstring> flags;
    for (const SessionCall& call : host.session->Calls()) {
        if (call.key != kRecord || call.operation == SessionOperation::EnumValues) continue;
        EXPECT_EQ(call.scope, SDT_userData);
        actual.emplace_back(call.operation, call.name);
        if (call.operation == SessionOperation::WriteData && call.name == L"flags") flags.push_back(call.text);
    }
    EXPECT_EQ(actual, expected);
    EXPECT_EQ(flags, (std::vector<std::wstring>{L"0", L"1"}));
    EXPECT_EQ(Recorded(L"flags"), Recorded(L"state"));
}

TEST_F(Placement, AFailedWriteEndsItsRoundUnsaved) {
    SwitchOn();
    host.session->FailNth(SessionOperation::WriteData, 3);
    OpenAndCancel();
    // Three of the dialog's own, then the frame's ten, which are saved.
    EXPECT_EQ(RecordCalls(SessionOperation::WriteData).size(), 13U);
    EXPECT_EQ(RecordCalls(SessionOperation::SaveData).size(), 10U);
}

TEST_F(Placement, FailingSavesAreNotLookedAt) {
    SwitchOn();
    host.session->SetFault(
        [](const SessionCall& call) { return call.operation == SessionOperation::SaveData ? E_FAIL : S_OK; });
    OpenAndCancel();
    EXPECT_EQ(RecordCalls(SessionOperation::SaveData).size(), 20U);
    EXPECT_TRUE(driver.boxes.empty());
}

// A listing that fails still counts as loaded: the initial rectangle is used instead of the fit to the screen.
TEST_F(Placement, AFailingListingLeavesTheInitialPlacement) {
    SwitchOn();
    host.session->SetFault([](const SessionCall& call) {
        return call.operation == SessionOperation::EnumValues && call.key == kRecord ? E_FAIL : S_OK;
    });
    InDialog([this] { ExpectFrame({0, 0, 470, 360}); });
}

TEST_F(Placement, SwitchingOnInTheDialogSavesAtThisVeryClose) {
    host.DefineItem(L"common/configdialoginit", 0, 1);
    InDialog([this] { EXPECT_TRUE(driver.Toggle(L"common/configdialoginit")); }, IDOK);
    EXPECT_EQ(RecordCalls(SessionOperation::WriteData).size(), 20U);
    EXPECT_NE(Recorded(L"top.x"), L"(none)");
}

// Its owner may delete it without closing it first.
TEST_F(Placement, AModelessFrameDeletedWhileItIsShownRemembersItsPlace) {
    SwitchOn();
    XConstructionSet constructionSet = MakeModel();
    auto frame = std::make_unique<XDynDialogScroll>(L"Test settings", constructionSet, false, nullptr);
    ASSERT_TRUE(frame->Create(IDD_SETTINGS_FRAME, nullptr));
    frame->ShowWindow(SW_SHOW);
    frame->MoveWindow(80, 60, 860, 640);
    frame.reset();
    EXPECT_EQ(Recorded(L"top.x"), L"80");
    EXPECT_EQ(Recorded(L"bottom.x"), L"940");
    EXPECT_EQ(Recorded(L"state"), L"1");
    EXPECT_TRUE(qv::LiveLayouts().empty());
}

// The frame has not been told of its end by then, so nobody has handed its placement down.
TEST_F(Placement, TheFramesIsRememberedWhenTheDialogInItGoesByItself) {
    SwitchOn();
    EXPECT_EQ(Show({
                  [this] { driver.Frame().MoveWindow(80, 60, 860, 640); },
                  [this] { driver.Dialog().DestroyWindow(); },
              }),
              IDCANCEL);
    EXPECT_EQ(Recorded(L"top.x"), L"80");
    EXPECT_EQ(Recorded(L"bottom.x"), L"940");
}

TEST_F(Placement, ADialogThatNeverStoodThereLeavesTheRecordAlone) {
    SwitchOn();
    PutRecord({{L"top.x", L"40"}, {L"top.y", L"50"}, {L"bottom.x", L"940"}, {L"bottom.y", L"750"}});
    XConstructionSet constructionSet = MakeModel();
    XDynDialogScroll frame(L"Test settings", constructionSet, true, nullptr);
    host.session->SetFault([&](const SessionCall& call) {
        if (call.operation == SessionOperation::ReadData && call.name == L"count") frame.DestroyWindow();
        return S_OK;
    });
    EXPECT_EQ(frame.DoModal(), IDCANCEL);
    EXPECT_TRUE(RecordCalls(SessionOperation::WriteData).empty());
}

}  // namespace
