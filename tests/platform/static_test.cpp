#include "tests/platform/control_fixture.h"

namespace {

class StaticTest : public ControlTest {};

}  // namespace

TEST_F(StaticTest, TheMouseIsToldOnlyWhenAskedFor) {
    struct Case {
        const char* name;
        DWORD style;
        const char* told;
        LRESULT hit;
    };
    const Case cases[] = {
        {"plain", SS_LEFT, "", HTTRANSPARENT},
        {"notifying", SS_LEFT | SS_NOTIFY, "CLICKED DBLCLK", HTCLIENT},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.name);
        HWND text = Create(L"Static", row.style, L"text");
        EXPECT_EQ(SendMessageW(text, WM_NCHITTEST, 0, MAKELPARAM(60, 80)), row.hit);
        Click(text, 1, 1);
        SendMessageW(text, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(1, 1));
        EXPECT_EQ(TakeLog(), row.told);
        EXPECT_EQ(SendMessageW(text, WM_GETDLGCODE, 0, 0), DLGC_STATIC);
        EXPECT_EQ(TextOf(text), L"text");
        DestroyWindow(text);
    }
}
