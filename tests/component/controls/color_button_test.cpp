#include "qvclient/qvsettingsdialog/controls/color_button.h"

#include <stdexcept>

#include "tests/component/controls/controls_fixture.h"

namespace {

class ColorButton : public ControlsTest {
protected:
    void Hold(const std::wstring& color) {
        button.SetInitValue(color);
        Show(button);
    }

    XDynColorBtn button;
    qvtest::PickerRecorder pickers;
    std::vector<qv::ColorPickerRequest>& requests = pickers.colors;
};

TEST_F(ColorButton, ReadsLeadingDigitsAndWritesAnUnsignedNumber) {
    const struct {
        const char* name;
        std::wstring text;
        COLORREF color;
        std::wstring written;
    } cases[] = {
        {"red", L"255", RGB(255, 0, 0), L"255"},
        {"blue", L"16711680", RGB(0, 0, 255), L"16711680"},
        {"empty is black", L"", 0, L"0"},
        {"no digits", L"red", 0, L"0"},
        {"digits, then letters", L" 65280x", RGB(0, 255, 0), L"65280"},
        {"negative", L"-1", 0xFFFFFFFF, L"4294967295"},
        {"past the signed range", L"4294967295", 0x7FFFFFFF, L"2147483647"},
    };
    Show(button);
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        button.SetInitValue(each.text);
        button.ShowInitValue();
        EXPECT_EQ(button.GetSelColor(), each.color);
        EXPECT_EQ(button.GetValue(), each.written);
    }
}

TEST_F(ColorButton, APickedColorIsStoredAndReportedAsAClick) {
    Hold(L"255");
    pickers.color = RGB(0, 255, 0);
    button.SendMessage(BM_CLICK);
    ASSERT_EQ(requests.size(), 1U);
    EXPECT_EQ(requests[0].owner, page.m_hWnd);
    EXPECT_EQ(requests[0].initial, static_cast<COLORREF>(RGB(255, 0, 0)));
    EXPECT_EQ(button.GetValue(), L"65280");
    ASSERT_EQ(page.Taken(BN_CLICKED).size(), 1U);
    EXPECT_EQ(page.Taken(BN_CLICKED)[0].control, button.m_hWnd);
    EXPECT_EQ(page.Taken(BN_CLICKED)[0].id, kControlId);
}

TEST_F(ColorButton, ACancelledPickerChangesAndReportsNothing) {
    Hold(L"255");
    ::SetFocus(page.m_hWnd);
    button.SendMessage(BM_CLICK);
    EXPECT_EQ(requests.size(), 1U);
    EXPECT_EQ(button.GetValue(), L"255");
    EXPECT_TRUE(page.Taken(BN_CLICKED).empty());
    EXPECT_EQ(::GetFocus(), button.m_hWnd);
}

TEST_F(ColorButton, OpensOnceByMouseSpaceAndEnter) {
    Hold(L"255");
    button.SetFocus();
    const auto inside = MAKELPARAM(5, 5);
    button.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, inside);
    button.SendMessage(WM_LBUTTONUP, 0, inside);
    EXPECT_EQ(requests.size(), 1U) << "mouse";
    button.SendMessage(WM_KEYDOWN, VK_SPACE, 1);
    button.SendMessage(WM_KEYUP, VK_SPACE, 1);
    EXPECT_EQ(requests.size(), 2U) << "space";
    MSG enter{};
    enter.hwnd = button.m_hWnd;
    enter.message = WM_KEYDOWN;
    enter.wParam = VK_RETURN;
    EXPECT_TRUE(::IsDialogMessageW(page.m_hWnd, &enter));
    EXPECT_EQ(requests.size(), 3U) << "enter";
    button.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, inside);
    button.SendMessage(WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(500, 500));
    button.SendMessage(WM_LBUTTONUP, 0, MAKELPARAM(500, 500));
    EXPECT_EQ(requests.size(), 3U) << "let go outside";
    EXPECT_EQ(::GetCapture(), nullptr);
    EXPECT_TRUE(page.Taken(BN_CLICKED).empty());
}

TEST_F(ColorButton, OpensAgainAfterAPickerThatThrew) {
    Hold(L"255");
    {
        const qvtest::ScopedExceptionHandler handler([](const std::exception_ptr&) {});
        const qvtest::ScopedPickerSink throwing({{}, {}, [](const qv::ColorPickerRequest&) -> std::optional<COLORREF> {
                                                     throw std::runtime_error("picker");
                                                 }});
        button.SendMessage(BM_CLICK);
    }
    EXPECT_TRUE(requests.empty());
    button.SendMessage(BM_CLICK);
    EXPECT_EQ(requests.size(), 1U);
}

// The window may go while the picker is open.
TEST_F(ColorButton, APickedColorOfAButtonThatIsGoneReportsNothing) {
    Hold(L"255");
    const qvtest::ScopedPickerSink sink({{}, {}, [this](const qv::ColorPickerRequest&) {
                                             page.DestroyWindow();
                                             return std::optional<COLORREF>(RGB(0, 255, 0));
                                         }});
    button.SendMessage(BM_CLICK);
    EXPECT_EQ(button.m_hWnd, nullptr);
    EXPECT_EQ(button.GetValue(), L"255");
}

TEST_F(ColorButton, DefaultShowsItsColorAtOnce) {
    button.SetDefaultValue(L"16777215");
    Hold(L"0");
    button.ShowDefaultValue();
    EXPECT_EQ(button.GetSelColor(), static_cast<COLORREF>(RGB(255, 255, 255)));
    EXPECT_TRUE(::GetUpdateRect(button.m_hWnd, nullptr, FALSE));
}

TEST_F(ColorButton, ReadOnlyIsDisabledAndOpensNothing) {
    button.SetReadOnly(true);
    Hold(L"255");
    EXPECT_FALSE(button.IsWindowEnabled());
    button.SendMessage(BM_CLICK);
    EXPECT_TRUE(requests.empty());
}

}  // namespace
