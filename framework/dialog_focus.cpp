#include "framework/dialog_focus.h"

#include <deque>
#include <utility>
#include <vector>

#include "framework/dialog.h"
#include "framework/thread_state.h"

namespace qv::detail {
namespace {

bool IsPushButton(HWND window) {
    if (window == nullptr) return false;
    return (::SendMessageW(window, WM_GETDLGCODE, 0, 0) & (DLGC_DEFPUSHBUTTON | DLGC_UNDEFPUSHBUTTON)) != 0;
}

HWND OwnPushButton(HWND dialog, int id) {
    HWND button = ::GetDlgItem(dialog, id);
    return IsPushButton(button) ? button : nullptr;
}

// Breadth first: the dialog with the buttons lies above the pages, whose controls may bear any number.
HWND NearestOk(HWND dialog) {
    std::deque<HWND> containers{dialog};
    while (!containers.empty()) {
        HWND container = containers.front();
        containers.pop_front();
        if (HWND ok = OwnPushButton(container, IDOK)) return ok;
        for (HWND child = ::GetWindow(container, GW_CHILD); child != nullptr; child = ::GetWindow(child, GW_HWNDNEXT)) {
            if ((::GetWindowLongW(child, GWL_EXSTYLE) & WS_EX_CONTROLPARENT) != 0) containers.push_back(child);
        }
    }
    return nullptr;
}

// The top-level dialog around a window, or null.
HWND DialogAround(HWND window) {
    HWND top = window != nullptr && ::IsWindow(window) != FALSE ? ::GetAncestor(window, GA_ROOT) : nullptr;
    return DynamicDownCast<CDialog>(CWnd::FromHandlePermanent(top)) != nullptr ? top : nullptr;
}

BOOL CALLBACK AddPushButton(HWND window, LPARAM buttons) noexcept {
    if (IsPushButton(window)) reinterpret_cast<std::vector<HWND>*>(buttons)->push_back(window);
    return TRUE;
}

// Looking through all windows of a large dialog takes its time, and the focus changes with every key: it is done again
// only when windows have come since. Some may have gone.
std::vector<HWND> PushButtonsIn(HWND dialog) {
    FoundButtons& found = ThisThread().foundButtons;
    if (found.dialog != dialog || found.attachments != ThisThread().attachments) {
        found = {dialog, ThisThread().attachments, {}};
        ::EnumChildWindows(dialog, &AddPushButton, reinterpret_cast<LPARAM>(&found.buttons));
    }
    return found.buttons;
}

void FrameOnly(HWND dialog, HWND focus) {
    HWND framed = focus != dialog && IsPushButton(focus) ? focus : DefaultButtonOf(dialog);
    for (HWND button : PushButtonsIn(dialog)) {
        const bool isFramed = button != framed && ::IsChild(dialog, button) != FALSE &&
                              (::SendMessageW(button, WM_GETDLGCODE, 0, 0) & DLGC_DEFPUSHBUTTON) != 0;
        if (isFramed) ::SendMessageW(button, BM_SETSTYLE, BS_PUSHBUTTON, TRUE);
    }
    if (framed != nullptr && (::SendMessageW(framed, WM_GETDLGCODE, 0, 0) & DLGC_UNDEFPUSHBUTTON) != 0) {
        ::SendMessageW(framed, BM_SETSTYLE, BS_DEFPUSHBUTTON, TRUE);
    }
}

// Hears of every change just before it happens, also of those that a program or a screen reader makes and that no
// message to the dialog tells of.
LRESULT CALLBACK OnFocusChange(int code, WPARAM wParam, LPARAM lParam) noexcept {
    const LRESULT refused = ::CallNextHookEx(nullptr, code, wParam, lParam);
    if (code != HCBT_SETFOCUS || refused != 0) return refused;
    auto* gains = reinterpret_cast<HWND>(wParam);
    // A focus that goes nowhere leaves the dialog it comes from to its default button.
    HWND dialog = DialogAround(gains != nullptr ? gains : reinterpret_cast<HWND>(lParam));
    if (dialog == nullptr) return refused;
    // The change would activate the dialog next, and an activated dialog goes through the control that had the focus
    // before; so that comes first.
    if (gains != nullptr && ::GetActiveWindow() != dialog) ::SetActiveWindow(dialog);
    FrameOnly(dialog, gains);
    return refused;
}

}  // namespace

HWND DefaultButtonOf(HWND dialog) {
    // Only a button of the dialog's own counts here: the platform also answers with nested ones.
    const auto found = static_cast<DWORD_PTR>(::SendMessageW(dialog, DM_GETDEFID, 0, 0));
    if (HIWORD(found) == DC_HASDEFID) {
        if (HWND button = OwnPushButton(dialog, static_cast<int>(LOWORD(found)))) return button;
    }
    return NearestOk(dialog);
}

void FrameEnterButton(HWND inside) {
    HWND dialog = DialogAround(inside);
    HWND focus = ::GetFocus();
    if (dialog != nullptr && (focus == dialog || ::IsChild(dialog, focus) != FALSE)) FrameOnly(dialog, focus);
}

void StartFollowingFocus() {
    ThreadState& thread = ThisThread();
    if (thread.focusFollowers++ == 0) {
        thread.focusHook = ::SetWindowsHookExW(WH_CBT, &OnFocusChange, nullptr, ::GetCurrentThreadId());
    }
}

void StopFollowingFocus() {
    ThreadState& thread = ThisThread();
    if (--thread.focusFollowers == 0 && thread.focusHook != nullptr) {
        ::UnhookWindowsHookEx(std::exchange(thread.focusHook, nullptr));
    }
}

void PassFocusOn(HWND window) {
    HWND focus = ::GetFocus();
    const auto inWindow = [window](HWND candidate) {
        return candidate == window || ::IsChild(window, candidate) != FALSE;
    };
    if (focus == nullptr || !inWindow(focus)) return;
    HWND dialog = DialogAround(window);
    if (dialog == nullptr || dialog == window) return;
    HWND first = ::GetNextDlgTabItem(dialog, focus, FALSE);
    HWND next = first;
    while (next != nullptr && inWindow(next)) {
        next = ::GetNextDlgTabItem(dialog, next, FALSE);
        if (next == first) return;  // once around, and no other stop
    }
    if (next != nullptr) ::SendMessageW(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(next), TRUE);
}

void BringFocusBack(HWND dialog) {
    HWND button = DefaultButtonOf(dialog);
    if (button != nullptr && ::IsWindowVisible(button) != FALSE && ::IsWindowEnabled(button) != FALSE) {
        ::SendMessageW(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(button), TRUE);
    }
    if (::GetFocus() == nullptr) ::SetFocus(dialog);
}

}  // namespace qv::detail
