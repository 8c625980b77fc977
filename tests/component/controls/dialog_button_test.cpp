#include "qvclient/qvsettingsdialog/controls/dialog_button.h"

#include <memory>
#include <optional>
#include <vector>

#include "qvclient/qvsettingsdialog/controls/component_module.h"
#include "qvclient/qvsettingsdialog/controls/module_host.h"
#include "qvclient/qvsettingsdialog/controls/settings_frame.h"
#include "tests/component/controls/controls_fixture.h"
#include "tests/support/host_stubs.h"

namespace {

// What the service does when it is called.
struct Behaviour {
    HRESULT status = S_OK;
    bool replaces = false;             // the text, with the one below
    std::optional<std::wstring> text;  // none: a null text
};

class FakeService final : public qvtest::DialogsStub {
public:
    explicit FakeService(bool hasInterface) : m_hasInterface(hasInterface) {}
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
        if (m_hasInterface) return DialogsStub::QueryInterface(iid, object);
        *object = nullptr;
        return E_NOINTERFACE;
    }

    Behaviour behaviour;
    std::wstring operation;
    std::wstring argument;
    LONG number = -1;
    bool ranInComponent = false;

private:
    HRESULT Open(const wchar_t* dialog, BSTR given, BSTR* value, LONG which) override {
        operation = dialog;
        argument = qv::TextOf(given);
        number = which;
        EXPECT_NE(given, nullptr);
        ranInComponent = &GetModuleState() == &GetComponentModuleState();
        if (value == nullptr) return behaviour.status;
        EXPECT_EQ(*value, given) << "one variable is argument and result";
        if (!behaviour.replaces) return behaviour.status;
        // Never at the address of the old one, which the caller would take for it.
        BSTR replacement = behaviour.text ? SysAllocString(behaviour.text->c_str()) : nullptr;
        SysFreeString(*value);
        *value = replacement;
        // What a failed call leaves is nobody's but its own.
        if (FAILED(behaviour.status)) m_leftBehind.push_back(qv::Bstr::Adopt(*value));
        return behaviour.status;
    }

    bool m_hasInterface;
    std::vector<qv::Bstr> m_leftBehind;
};

class FakeHost final : public qvtest::HostStub {
public:
    HRESULT status = S_OK;
    FakeService* service = nullptr;
    int calls = 0;

    HRESULT STDMETHODCALLTYPE CreateObject(REFGUID id, DWORD number, IUnknown** object) override {
        ++calls;
        EXPECT_TRUE(IsEqualGUID(id, CLSID_HostDialogService));
        EXPECT_EQ(number, 1U);
        // What a failing host leaves behind is nobody's reference.
        *object = service;
        if (service != nullptr && status == S_OK) service->AddRef();
        return status;
    }
};

class DialogButton : public ControlsTest {
protected:
    void SetUp() override {
        ControlsTest::SetUp();
        host.service = &service;
        SetModuleHostIfEmpty(&host);
    }
    void TearDown() override {
        ClearModuleHost();
        EXPECT_EQ(host.references, 0U);
        EXPECT_EQ(service.references, 0U);
        ControlsTest::TearDown();
    }
    // The value after a click on a button of the type.
    std::wstring Click(unsigned type, const std::wstring& value, const std::wstring& defaultValue, CWnd& parent) {
        XDialogButton button(type);
        button.SetInitValue(value);
        button.SetDefaultValue(defaultValue);
        EXPECT_TRUE(button.CreateOnPage(parent, kControlId));
        button.ShowInitValue();
        button.MoveWindow(10, 10, 100, 23);
        button.ShowWindow(SW_SHOW);
        button.SendMessage(BM_CLICK);
        return button.GetValue();
    }

    FakeService service{true};
    FakeHost host;
};

TEST_F(DialogButton, EachTypeTreatsTheOutcomeInItsOwnWay) {
    const Behaviour returnsText{S_OK, true, L"new"};
    const Behaviour returnsEmpty{S_OK, true, L""};
    const Behaviour returnsNull{S_OK, true, std::nullopt};
    const Behaviour leavesText{S_OK, false, {}};
    const Behaviour succeedsOddly{S_FALSE, true, L"new"};
    const Behaviour fails{E_FAIL, false, {}};
    const Behaviour failsWithText{E_FAIL, true, L"new"};
    const struct {
        const char* name;
        unsigned type;
        Behaviour behaviour;
        std::wstring value;
        std::wstring expected;
        std::wstring operation;
    } cases[] = {
        {"10 text", 10, returnsText, L"old", L"new", L"edit"},
        {"10 text for an empty value", 10, returnsText, L"", L"new", L"edit"},
        {"10 success that is not S_OK", 10, succeedsOddly, L"old", L"new", L"edit"},
        {"10 untouched", 10, leavesText, L"old", L"old", L"edit"},
        {"10 empty", 10, returnsEmpty, L"old", L"default", L"edit"},
        {"10 null", 10, returnsNull, L"old", L"default", L"edit"},
        {"10 failure", 10, fails, L"old", L"default", L"edit"},
        {"10 failure with a text", 10, failsWithText, L"old", L"default", L"edit"},
        {"11 text", 11, returnsText, L"old", L"new", L"choose"},
        {"11 empty", 11, returnsEmpty, L"old", L"default", L"choose"},
        {"11 failure", 11, fails, L"old", L"default", L"choose"},
        {"12 text", 12, returnsText, L"old", L"old", L"view"},
        {"12 failure", 12, failsWithText, L"old", L"old", L"view"},
        {"12 empty stays empty", 12, returnsNull, L"", L"", L"view"},
        {"13 success", 13, leavesText, L"old", L"old", L"place"},
        {"13 empty value", 13, leavesText, L"", L"default", L"place"},
        {"13 failure", 13, fails, L"old", L"default", L"place"},
        {"another type empties the value", 9, returnsText, L"old", L"", L""},
        {"another type empties the value", 14, returnsText, L"old", L"", L""},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        service.behaviour = each.behaviour;
        service.operation.clear();
        service.argument = L"untouched";
        host.calls = 0;
        EXPECT_EQ(Click(each.type, each.value, L"default", page), each.expected);
        EXPECT_EQ(service.operation, each.operation);
        EXPECT_EQ(host.calls, each.operation.empty() ? 0 : 1);
        if (!each.operation.empty()) {
            EXPECT_EQ(service.argument, each.value);
            EXPECT_TRUE(service.ranInComponent);
        }
        if (each.type == 11) {
            EXPECT_EQ(service.number, 0);
        }
    }
    EXPECT_NE(&GetModuleState(), &GetComponentModuleState());
}

TEST_F(DialogButton, WithoutAServiceAClickChangesNothing) {
    const struct {
        const char* name;
        HRESULT status;
        bool hasObject;
        bool hasInterface;
        bool hasHost;
    } cases[] = {
        {"no host", S_OK, true, true, false},
        {"creation fails", E_FAIL, false, true, true},
        {"creation fails but leaves an object", E_FAIL, true, true, true},
        {"no object", S_OK, false, true, true},
        {"no such interface", S_OK, true, false, true},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        FakeService other(each.hasInterface);
        host.service = each.hasObject ? &other : nullptr;
        host.status = each.status;
        ClearModuleHost();
        if (each.hasHost) SetModuleHostIfEmpty(&host);
        for (const unsigned type : {10U, 11U, 12U, 13U}) {
            EXPECT_EQ(Click(type, L"old", L"default", page), L"old");
        }
        EXPECT_EQ(other.operation, L"");
        EXPECT_EQ(other.references, 0U);
        EXPECT_EQ(Click(99, L"old", L"default", page), L"");
    }
}

class TestFrame : public CWnd, public SettingsFrame {
public:
    [[nodiscard]] bool IsModal() const override { return true; }
    void EndFrame(int) override {}
    [[nodiscard]] CWnd& FrameWindow() override { return *this; }
};

TEST_F(DialogButton, Type13PassesTheNearestFrame) {
    service.behaviour = {};
    Click(13, L"old", L"", page);
    EXPECT_EQ(service.number, 0) << "no frame around the page";

    TestFrame frame;
    TestPage innerPage;
    ASSERT_TRUE(frame.CreateEx(0, nullptr, L"frame", WS_OVERLAPPEDWINDOW, RECT{0, 0, 300, 200}, nullptr, 0));
    CWnd between;
    ASSERT_TRUE(between.Create(nullptr, L"", WS_VISIBLE, RECT{0, 0, 300, 200}, &frame, 1));
    ASSERT_TRUE(innerPage.Create(nullptr, L"", WS_VISIBLE, RECT{0, 0, 300, 200}, &between, 1));
    Click(13, L"old", L"", innerPage);
    EXPECT_EQ(service.number, static_cast<LONG>(reinterpret_cast<LONG_PTR>(frame.m_hWnd)));
}

TEST_F(DialogButton, ShowsItsTranslatedCaptionAndKeepsItsValueInvisible) {
    const qvtest::ScopedDictionary dictionary(qv::Dictionary{{L"Choose", L"W\x00E4hlen"}});
    XDialogButton button(10);
    button.SetCaption(L"Choose");
    button.SetInitValue(L"value");
    button.SetDefaultValue(L"default");
    button.SetReadOnly(true);
    Show(button);
    EXPECT_FALSE(button.IsWindowEnabled());
    EXPECT_EQ(button.GetWindowText(), L"W\x00E4hlen");
    button.ShowDefaultValue();
    EXPECT_EQ(button.GetWindowText(), L"W\x00E4hlen");
    EXPECT_EQ(button.GetValue(), L"default");
}

TEST(ModuleHost, KeepsTheFirstHostUntilItIsCleared) {
    FakeHost first;
    FakeHost second;
    SetModuleHostIfEmpty(&first);
    SetModuleHostIfEmpty(&second);
    EXPECT_EQ(GetModuleHost().Get(), &first);
    EXPECT_EQ(second.references, 0U);
    ClearModuleHost();
    EXPECT_EQ(first.references, 0U);
    EXPECT_FALSE(GetModuleHost());
    SetModuleHostIfEmpty(&second);
    EXPECT_EQ(GetModuleHost().Get(), &second);
    ClearModuleHost();
}

}  // namespace
