#include "tests/platform/control_fixture.h"

namespace {

class StaticTest : public ControlTest {};

}  // namespace

TEST_F(StaticTest, MouseAndEnablingAreToldOnlyWhenAskedFor) {
    struct Case {
        const char* name;
        DWORD style;
        const char* told;
        LRESULT hit;
    };
    const Case cases[] = {
        {"plain", SS_LEFT, "", HTTRANSPARENT},
        {"notifying", SS_LEFT | SS_NOTIFY, "CLICKED DBLCLK DISABLE ENABLE", HTCLIENT},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.name);
        HWND text = Create(L"Static", row.style, L"text");
        EXPECT_EQ(SendMessageW(text, WM_NCHITTEST, 0, MAKELPARAM(60, 80)), row.hit);
        Click(text, 1, 1);
        SendMessageW(text, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(1, 1));
        EnableWindow(text, FALSE);
        EnableWindow(text, TRUE);
        EXPECT_EQ(TakeLog(), row.told);
        EXPECT_EQ(SendMessageW(text, WM_GETDLGCODE, 0, 0), DLGC_STATIC);
        EXPECT_EQ(TextOf(text), L"text");
        DestroyWindow(text);
    }
}

TEST_F(StaticTest, IconIsKeptAndThePreviousOneReturned) {
    HWND picture = Create(L"Static", SS_ICON, nullptr);
    HICON icon = LoadIconW(nullptr, IDI_APPLICATION);
    EXPECT_EQ(SendMessageW(picture, STM_SETICON, reinterpret_cast<WPARAM>(icon), 0), 0);
    EXPECT_EQ(SendMessageW(picture, STM_GETICON, 0, 0), reinterpret_cast<LRESULT>(icon));
    EXPECT_EQ(SendMessageW(picture, STM_SETIMAGE, IMAGE_ICON, 0), reinterpret_cast<LRESULT>(icon));
    EXPECT_EQ(SendMessageW(picture, STM_GETIMAGE, IMAGE_ICON, 0), 0);
}
