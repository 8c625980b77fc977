// How large the dialog comes out, and what a person finds in it at any size.
#include "qvclient/qvsettingsdialog/resources/resource_ids.h"
#include "tests/component/dialogs/whole_dialog.h"

namespace {

class Sizes : public WholeDialog {
protected:
    Sizes() { host.DefinePlainPage(); }

    [[nodiscard]] CWnd& View() const { return *Dialog().GetParent(); }
    [[nodiscard]] bool HasBar(DWORD bar) const { return (View().GetStyle() & bar) != 0; }
    [[nodiscard]] CRect Button(int id) const { return Dialog().GetDlgItem(id)->GetWindowRect(); }
};

TEST_F(Sizes, TheFirstFrameStandsInTheMiddleOfTheScreenAndShowsTheWholeDialog) {
    const int screenWidth = GetSystemMetrics(SM_CXSCREEN);
    const int screenHeight = GetSystemMetrics(SM_CYSCREEN);
    InDialog([&] {
        const CRect frame = driver.Frame().GetWindowRect();
        EXPECT_NEAR(static_cast<double>(frame.left), static_cast<double>(screenWidth - frame.right), 1);
        EXPECT_NEAR(static_cast<double>(frame.top), static_cast<double>(screenHeight - frame.bottom), 1);
        const CRect dialog = Dialog().GetWindowRect();
        EXPECT_GT(dialog.Width(), 470) << "it has taken what the screen offers";
        // It keeps 280 and 200 pixels free; caption and borders come on top.
        EXPECT_LE(frame.Width(), screenWidth - 230);
        EXPECT_LE(frame.Height(), screenHeight - 150);
        EXPECT_FALSE(HasBar(WS_HSCROLL) || HasBar(WS_VSCROLL));
        EXPECT_EQ(dialog.Width(), driver.Frame().GetClientRect().Width());
        EXPECT_EQ(dialog.Height(), driver.Frame().GetClientRect().Height());
        EXPECT_NE(driver.Frame().GetStyle() & WS_MAXIMIZEBOX, 0u);
    });
}

// At every size of the frame, also where a bar comes or goes: nothing is left free, and what is hidden can be scrolled
// to. The dialog never shrinks below the size it was opened with.
TEST_F(Sizes, TheDialogFillsItsFrameOrScrollsInIt) {
    InDialog([this] {
        const CRect around = driver.Frame().GetWindowRect();
        const int least = Dialog().GetViewWidth(), lowest = Dialog().GetViewHeight();
        for (const int dx : {-around.Width() / 2, -30, -17, -16, -1, 0, 1, 16, 17, 18, 40, 300}) {
            for (const int dy : {-around.Height() / 2, -30, -17, -1, 0, 1, 16, 17, 18, 40, 250}) {
                SCOPED_TRACE(std::to_string(dx) + ", " + std::to_string(dy));
                driver.Frame().MoveWindow(0, 0, around.Width() + dx, around.Height() + dy);
                const CRect seen = View().GetClientRect();
                const CRect dialog = Dialog().GetWindowRect();
                EXPECT_EQ(dialog.Width() > seen.Width(), HasBar(WS_HSCROLL));
                EXPECT_EQ(dialog.Height() > seen.Height(), HasBar(WS_VSCROLL));
                EXPECT_EQ(dialog.Width(), HasBar(WS_HSCROLL) ? least : seen.Width());
                EXPECT_EQ(dialog.Height(), HasBar(WS_VSCROLL) ? lowest : seen.Height());
                EXPECT_GE(dialog.Width(), least);
                EXPECT_GE(dialog.Height(), lowest);
            }
        }
    });
}

TEST_F(Sizes, EveryResizeThatLeavesABarGoesBackToTheStart) {
    const auto scrolled = [this](int bar) { return GetScrollPos(View().m_hWnd, bar); };
    InDialog([&] {
        const int width = Dialog().GetViewWidth() / 2, height = Dialog().GetViewHeight() / 2;
        driver.Frame().MoveWindow(0, 0, width, height);
        View().SendMessage(WM_VSCROLL, MAKEWPARAM(SB_PAGEDOWN, 0));
        View().SendMessage(WM_HSCROLL, MAKEWPARAM(SB_PAGERIGHT, 0));
        EXPECT_GT(scrolled(SB_VERT), 0);
        EXPECT_GT(scrolled(SB_HORZ), 0);
        driver.Frame().MoveWindow(0, 0, width + 5, height);
        EXPECT_EQ(scrolled(SB_VERT), 0);
        EXPECT_EQ(scrolled(SB_HORZ), 0);
    });
}

// To screen readers an ordinary window, which a click does not activate.
TEST_F(Sizes, TheViewIsAWindowLikeOthers) {
    const std::unique_ptr<CObject> made(XFormViewDlg::kRuntimeClass.CreateObject());
    EXPECT_NE(DynamicDownCast<XFormViewDlg>(made.get()), nullptr) << "made by its run-time class";
    EXPECT_EQ(CButton::kRuntimeClass.CreateObject(), nullptr);
    InDialog([this] {
        const auto frame = reinterpret_cast<WPARAM>(driver.Frame().m_hWnd);
        EXPECT_EQ(View().SendMessage(WM_MOUSEACTIVATE, frame, MAKELPARAM(HTCLIENT, WM_LBUTTONDOWN)), MA_NOACTIVATE);
        LONG children = -1, left = -1, top = -1, width = -1, height = -1;
        EXPECT_EQ(View().get_accChildCount(&children), S_OK);
        EXPECT_EQ(children, 1);
        VARIANT self{};
        self.vt = VT_I4;
        EXPECT_EQ(View().accLocation(&left, &top, &width, &height, self), S_OK);
        EXPECT_EQ(left, View().GetWindowRect().left);
        EXPECT_EQ(width, View().GetClientRect().Width());
    });
}

TEST_F(Sizes, ButtonsStandInOneRowFromTheRightHalfAButtonBelowTheSheet) {
    InDialog([this] {
        const CRect window = Dialog().GetWindowRect();
        const CRect sheet = Sheet().GetWindowRect();
        EXPECT_EQ(sheet.left, window.left + 8);
        EXPECT_EQ(sheet.top, window.top + 25);
        EXPECT_EQ(sheet.right, window.right);

        const CRect ok = Button(IDOK);
        EXPECT_NEAR(static_cast<double>(ok.top - sheet.bottom), ok.Height() / 2.0, 1);
        EXPECT_NEAR(static_cast<double>(window.bottom - ok.bottom), ok.Height() / 2.0, 1);
        EXPECT_EQ(Button(IDC_DEFAULT_BUTTON).right, sheet.right - 3);
        const auto gap = Button(IDCANCEL).left - ok.right;
        EXPECT_GT(gap, 0);
        EXPECT_LT(gap, ok.Width() / 10);
        CRect before = ok;
        for (const int id : {IDCANCEL, IDC_APPLY_BUTTON, IDC_HELP_BUTTON, IDC_DEFAULT_BUTTON}) {
            SCOPED_TRACE(id);
            const CRect button = Button(id);
            EXPECT_EQ(button.left, before.right + gap);
            EXPECT_EQ(button.top, ok.top);
            EXPECT_EQ(button.Width(), ok.Width());
            EXPECT_EQ(button.Height(), ok.Height());
            before = button;
        }
    });
}

TEST_F(Sizes, DraggedAsSmallAsItGoesTheFreeDialogStillShowsEveryRow) {
    ShowFree({
        [this] {
            MINMAXINFO info{};
            info.ptMaxTrackSize = {12345, 6789};
            Dialog().SendMessage(WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&info));
            EXPECT_EQ(info.ptMaxTrackSize.x, 12345);
            EXPECT_EQ(info.ptMaxTrackSize.y, 6789);
            Dialog().MoveWindow(0, 0, static_cast<int>(info.ptMinTrackSize.x), static_cast<int>(info.ptMinTrackSize.y));
            for (const wchar_t* row :
                 {L"common/flag", L"common/count", L"common/ratio", L"common/name", L"common/unit"})
                EXPECT_TRUE(qvtest::IsWhollySeen(driver.Control(row)->m_hWnd)) << row;
            EXPECT_TRUE(qvtest::IsWhollySeen(Dialog().GetDlgItem(IDC_DEFAULT_BUTTON)->m_hWnd));
        },
        [this] { driver.Press(IDCANCEL); },
    });
}

TEST_F(Sizes, ThePageLeavesTenPixelsAroundItsRows) {
    InDialog([this] {
        CWnd& page = *Sheet().GetActivePage();
        page.MoveWindow(0, 0, 400, 300);
        CRect last = driver.Control(L"common/name")->GetWindowRect();
        page.ScreenToClient(last);
        EXPECT_LE(last.right, page.GetClientRect().right - 10);
        CRect first = driver.Control(L"common/flag")->GetWindowRect();
        page.ScreenToClient(first);
        EXPECT_GE(first.top, 10);
        EXPECT_LT(first.top, 40);
    });
}

}  // namespace
