// The size arithmetic of frame, view and dialog.
#include <algorithm>

#include "qvclient/qvsettingsdialog/resources/resource_ids.h"
#include "tests/component/dialogs/whole_dialog.h"

namespace {

class Sizes : public WholeDialog {
protected:
    Sizes() { host.DefinePlainPage(); }
};

TEST_F(Sizes, ANarrowDialogGrowsToTheScreensEdgeAndTheFrameStandsAroundItInTheMiddle) {
    const int screenWidth = GetSystemMetrics(SM_CXSCREEN);
    const int screenHeight = GetSystemMetrics(SM_CYSCREEN);
    Show({
        [&] {
            // The dialog began at its view's origin, wherever the frame then was; it reaches the free edge from there.
            EXPECT_GT(Dialog().GetViewWidth(), 470);
            EXPECT_LE(Dialog().GetViewWidth(), screenWidth - 280);
            EXPECT_LE(Dialog().GetViewHeight(), screenHeight - 200);
            const CRect frame = driver.Frame().GetWindowRect();
            // Caption and borders fit into the 30 pixels, or take what they need.
            const CRect client = driver.Frame().GetClientRect();
            EXPECT_EQ(frame.Width(), Dialog().GetViewWidth() + std::max(30, frame.Width() - client.Width()));
            EXPECT_EQ(frame.Height(), Dialog().GetViewHeight() + std::max(30, frame.Height() - client.Height()));
            // So nothing scrolls, and the dialog fills what there is.
            const CWnd& view = *Dialog().GetParent();
            EXPECT_EQ(view.GetStyle() & (WS_HSCROLL | WS_VSCROLL), 0u);
            EXPECT_EQ(Dialog().GetWindowRect().Width(), client.Width());
            EXPECT_EQ(Dialog().GetWindowRect().Height(), client.Height());
            EXPECT_EQ(frame.left, (screenWidth - frame.Width()) / 2);
            EXPECT_EQ(frame.top, (screenHeight - frame.Height()) / 2);
            EXPECT_TRUE((driver.Frame().GetStyle() & WS_MAXIMIZEBOX) != 0);
        },
        [this] { driver.Press(IDCANCEL); },
    });
}

// At every size of the frame, also where a bar comes or goes.
TEST_F(Sizes, TheDialogAlwaysFillsTheView) {
    Show({
        [this] {
            const CWnd& view = *Dialog().GetParent();
            const CRect around = driver.Frame().GetWindowRect();
            const CRect inside = driver.Frame().GetClientRect();
            const int width = Dialog().GetViewWidth() + around.Width() - inside.Width();
            const int height = Dialog().GetViewHeight() + around.Height() - inside.Height();
            for (const int dx : {1, -1, 0, 16, 17, 18, -30, 40}) {
                for (const int dy : {1, -1, 0, 16, 17, 18, -30, 40}) {
                    driver.Frame().MoveWindow(0, 0, width + dx, height + dy);
                    const CRect seen = view.GetClientRect();
                    const CRect dialog = Dialog().GetWindowRect();
                    EXPECT_GE(dialog.Width(), seen.Width()) << dx << ", " << dy;
                    EXPECT_GE(dialog.Height(), seen.Height()) << dx << ", " << dy;
                    EXPECT_EQ(dialog.Width(), std::max(seen.Width(), Dialog().GetViewWidth())) << dx << ", " << dy;
                    EXPECT_EQ(dialog.Height(), std::max(seen.Height(), Dialog().GetViewHeight())) << dx << ", " << dy;
                }
            }
        },
        [this] { driver.Press(IDCANCEL); },
    });
}

TEST_F(Sizes, ButtonsStandInARowFromTheRightBelowTheSheet) {
    Show({
        [this] {
            const CRect window = Dialog().GetWindowRect();
            const CRect sheet = Sheet().GetWindowRect();
            EXPECT_EQ(sheet.left, window.left + 8);
            EXPECT_EQ(sheet.top, window.top + 25);
            EXPECT_EQ(sheet.Width(), Dialog().GetClientRect().Width() - 8);

            const CRect ok = Dialog().GetDlgItem(IDOK)->GetWindowRect();
            const int half = ok.Height() / 2;
            EXPECT_EQ(sheet.bottom, window.bottom - (ok.Height() + 2 * half));
            int right = static_cast<int>(sheet.right) - 3;
            int gap = -1;
            for (const int id : {IDC_DEFAULT_BUTTON, IDC_HELP_BUTTON, IDC_APPLY_BUTTON, IDCANCEL, IDOK}) {
                SCOPED_TRACE(id);
                const CRect button = Dialog().GetDlgItem(id)->GetWindowRect();
                if (id == IDC_HELP_BUTTON) gap = right - static_cast<int>(button.right);
                EXPECT_EQ(button.right, id == IDC_DEFAULT_BUTTON ? right : right - gap);
                EXPECT_EQ(button.bottom, window.bottom - half);
                EXPECT_EQ(button.Width(), ok.Width());
                EXPECT_EQ(button.Height(), ok.Height());
                right = static_cast<int>(button.left);
            }
            // A fifth of the 10 dialog units between OK and Cancel in the template.
            RECT units{0, 0, 10, 0};
            MapDialogRect(Dialog().m_hWnd, &units);
            EXPECT_NEAR(gap, static_cast<double>(units.right) / 5, 1.0);
        },
        [this] { driver.Press(IDCANCEL); },
    });
}

TEST_F(Sizes, TheDialogIsTrackedNoSmallerThanItsSheet) {
    Show({
        [this] {
            MINMAXINFO info{};
            info.ptMaxTrackSize = {12345, 6789};
            Dialog().SendMessage(WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&info));
            EXPECT_EQ(info.ptMinTrackSize.x, Sheet().GetRequiredWidth() + 50);
            EXPECT_EQ(info.ptMinTrackSize.y, Sheet().GetRequiredHeight() + 95);
            EXPECT_EQ(info.ptMaxTrackSize.x, 12345);
        },
        [this] { driver.Press(IDCANCEL); },
    });
}

TEST_F(Sizes, ThePageLeavesTenPixelsAroundItsRows) {
    Show({
        [this] {
            CWnd& page = *Sheet().GetActivePage();
            page.MoveWindow(0, 0, 400, 300);
            CRect last = driver.Control(L"common/name")->GetWindowRect();
            page.ScreenToClient(last);
            EXPECT_LE(last.right, page.GetClientRect().right - 10);
            CRect first = driver.Control(L"common/flag")->GetWindowRect();
            page.ScreenToClient(first);
            EXPECT_GE(first.top, 10);
            EXPECT_LT(first.top, 40);
        },
        [this] { driver.Press(IDCANCEL); },
    });
}

// The dialog fills a frame that is larger than it and scrolls in one that is smaller; every resize that leaves a bar
// takes that bar back to its start.
TEST_F(Sizes, ASmallFrameScrollsAndEveryResizeGoesBackToTheStart) {
    const auto scrolled = [this](int bar) { return GetScrollPos(Dialog().GetParent()->GetSafeHwnd(), bar); };
    Show({
        [&] {
            const int width = Dialog().GetViewWidth();
            const int height = Dialog().GetViewHeight();
            driver.Frame().MoveWindow(0, 0, width + 300, height + 250);
            const CRect view = Dialog().GetParent()->GetClientRect();
            EXPECT_EQ(Dialog().GetWindowRect().Width(), view.Width());
            EXPECT_EQ(Dialog().GetWindowRect().Height(), view.Height());
            EXPECT_GT(view.Height(), height);

            driver.Frame().MoveWindow(0, 0, width / 2, height / 2);
            EXPECT_EQ(Dialog().GetWindowRect().Width(), width);
            EXPECT_EQ(Dialog().GetWindowRect().Height(), height);
            Dialog().GetParent()->SendMessage(WM_VSCROLL, MAKEWPARAM(SB_PAGEDOWN, 0));
            Dialog().GetParent()->SendMessage(WM_HSCROLL, MAKEWPARAM(SB_PAGERIGHT, 0));
            EXPECT_GT(scrolled(SB_VERT), 0);
            EXPECT_GT(scrolled(SB_HORZ), 0);
            driver.Frame().MoveWindow(0, 0, width / 2 + 5, height / 2);
            EXPECT_EQ(scrolled(SB_VERT), 0);
            EXPECT_EQ(scrolled(SB_HORZ), 0);
        },
        [this] { driver.Press(IDCANCEL); },
    });
}

// Screen readers see the view's windows as the platform describes them.
TEST_F(Sizes, TheViewIsReadableAsAnOrdinaryWindowAndAClickDoesNotActivateIt) {
    Show({
        [this] {
            CWnd& view = *Dialog().GetParent();
            const auto frame = reinterpret_cast<WPARAM>(driver.Frame().m_hWnd);
            EXPECT_EQ(view.SendMessage(WM_MOUSEACTIVATE, frame, MAKELPARAM(HTCLIENT, WM_LBUTTONDOWN)), MA_NOACTIVATE);
            LONG children = -1;
            EXPECT_EQ(view.get_accChildCount(&children), S_OK);
            EXPECT_EQ(children, 1);
            VARIANT self{};
            self.vt = VT_I4;
            LONG left = -1;
            LONG top = -1;
            LONG width = -1;
            LONG height = -1;
            EXPECT_EQ(view.accLocation(&left, &top, &width, &height, self), S_OK);
            EXPECT_EQ(left, view.GetWindowRect().left);
            EXPECT_EQ(width, view.GetClientRect().Width());
        },
        [this] { driver.Press(IDCANCEL); },
    });
}

}  // namespace
