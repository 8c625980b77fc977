// CDialog: what the keyboard does in a dialog and in everything nested in it. The platform's own translation walks with
// Tab, the arrows and mnemonics; Enter, Escape and the paging keys are decided here, since the platform looks for the
// default button only in the one dialog it is asked for and would press a nested one in the wrong dialog.
#include <array>

#include "base/text.h"
#include "framework/dialog.h"
#include "framework/dialog_focus.h"
#include "framework/thread_state.h"
#include "framework/window_hook.h"

namespace {

bool IsDown(int virtualKey) {
    return ::GetKeyState(virtualKey) < 0;
}

void SendClick(HWND dialog, int id, HWND button) {
    ::SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED), reinterpret_cast<LPARAM>(button));
}

// The dialog's own button with this id; a disabled one eats the key.
void PressOwn(HWND dialog, int id) {
    HWND button = ::GetDlgItem(dialog, id);
    if (button != nullptr && ::IsWindowEnabled(button) == FALSE) {
        ::MessageBeep(0);
        return;
    }
    SendClick(dialog, id, button);
}

bool IsLabel(HWND window) {
    return window != nullptr && (::SendMessageW(window, WM_GETDLGCODE, 0, 0) & DLGC_STATIC) != 0;
}

BOOL CALLBACK AskToSwitchPage(HWND window, LPARAM step) noexcept {
    CWnd* object = CWnd::FromHandlePermanent(window);
    if (object == nullptr || ::IsWindowVisible(window) == FALSE) return TRUE;
    return object->OnSwitchPage(static_cast<int>(step)) ? FALSE : TRUE;
}

// True when the window has a bar for it and moved.
bool ScrollByPage(HWND window, UINT request) {
    const auto style = static_cast<DWORD>(::GetWindowLongW(window, GWL_STYLE));
    if ((style & WS_VSCROLL) == 0 || (style & WS_VISIBLE) == 0) return false;
    const int before = ::GetScrollPos(window, SB_VERT);
    ::SendMessageW(window, WM_VSCROLL, request, 0);
    return ::IsWindow(window) == FALSE || ::GetScrollPos(window, SB_VERT) != before;
}

struct PageScroll {
    UINT request;
    bool done;
};

BOOL CALLBACK AskToScroll(HWND window, LPARAM scroll) noexcept {
    auto& asked = *reinterpret_cast<PageScroll*>(scroll);
    // A container of controls, no control: a list that is not in focus stays as it is.
    const auto extended = static_cast<DWORD>(::GetWindowLongW(window, GWL_EXSTYLE));
    if ((extended & WS_EX_CONTROLPARENT) == 0 || ::IsWindowVisible(window) == FALSE) return TRUE;
    asked.done = ScrollByPage(window, asked.request);
    return asked.done ? FALSE : TRUE;
}

// Lists, combo boxes and fields of several lines page through what they hold themselves.
bool HasOwnUseForPageKeys(HWND control) {
    std::array<wchar_t, 16> name{};
    ::GetClassNameW(control, name.data(), static_cast<int>(name.size()));
    if (qv::EqualIgnoringCase(name.data(), L"EDIT")) {
        return (static_cast<DWORD>(::GetWindowLongW(control, GWL_STYLE)) & ES_MULTILINE) != 0;
    }
    return !qv::EqualIgnoringCase(name.data(), L"BUTTON") && !qv::EqualIgnoringCase(name.data(), WC_TABCONTROLW);
}

// Whoever keeps labels without windows in the dialog makes those that the platform is about to look for.
void TellOfMnemonic(HWND dialog, const MSG& message) {
    if (message.message == WM_CHAR) {
        // Typed into a control that has a use for it.
        const auto wants = ::SendMessageW(message.hwnd, WM_GETDLGCODE, message.wParam, 0);
        if ((wants & (DLGC_WANTCHARS | DLGC_WANTMESSAGE)) != 0) return;
    } else if (message.message != WM_SYSCHAR) {
        return;
    }
    const auto typed = static_cast<wchar_t>(message.wParam);
    qv::detail::ForEachHooked([=](CWnd& each) {
        const bool isInside = ::IsChild(dialog, each.m_hWnd) != FALSE && ::IsWindowVisible(each.m_hWnd) != FALSE;
        if (isInside) each.GetHook()->OnMnemonic(typed);
    });
}

}  // namespace

bool CDialog::PreTranslateMessage(MSG& message) {
    if (CWnd::PreTranslateMessage(message)) return true;
    if ((GetStyle() & WS_CHILD) != 0) return false;
    if (message.message == WM_MOUSEWHEEL || message.message == WM_MOUSEHWHEEL) LeadWheelToPointer(message);
    if (message.message < WM_KEYFIRST || message.message > WM_KEYLAST) return false;
    HWND dialog = m_hWnd;
    TellOfMnemonic(dialog, message);
    const bool used = TakeKeyOfNobody(message) || TranslateEnterOrEscape(message) || TranslatePageKey(message) ||
                      TranslateArrow(message) || TranslateScrollKey(message) ||
                      ::IsDialogMessageW(dialog, &message) != FALSE;
    // A key that ended the dialog may have ended this object as well.
    if (used) qv::detail::FrameEnterButton(dialog);
    return used;
}

// While nobody has the focus, keys come to the active window as if Alt were held, less the bit that says so, and the
// dialog would be dead. Nobody should lose the focus, but a host may disable whatever it likes. Enter and Escape still
// mean what they always mean; any other key brings the focus back.
bool CDialog::TakeKeyOfNobody(MSG& message) {
    const bool withAlt = (HIWORD(static_cast<DWORD_PTR>(message.lParam)) & KF_ALTDOWN) != 0;
    if (message.message != WM_SYSKEYDOWN || withAlt || ::GetFocus() != nullptr) return false;
    qv::detail::BringFocusBack(m_hWnd);
    message.message = WM_KEYDOWN;
    return message.wParam != VK_RETURN && message.wParam != VK_ESCAPE;
}

// Enter presses the push button that has the focus, else the default one of the whole dialog; Escape its Cancel.
bool CDialog::TranslateEnterOrEscape(const MSG& message) {
    const bool enter = message.wParam == VK_RETURN;
    if (message.message != WM_KEYDOWN || (!enter && message.wParam != VK_ESCAPE)) return false;
    const auto wants = ::SendMessageW(message.hwnd, WM_GETDLGCODE, message.wParam, reinterpret_cast<LPARAM>(&message));
    // The control asks for this key: an open list, to close; an edit of several lines, for Enter.
    if ((wants & DLGC_WANTMESSAGE) != 0) return false;

    const bool onPushButton = (wants & (DLGC_DEFPUSHBUTTON | DLGC_UNDEFPUSHBUTTON)) != 0;
    if (!enter) {
        PressOwn(m_hWnd, IDCANCEL);
    } else if (onPushButton) {
        SendClick(::GetParent(message.hwnd), ::GetDlgCtrlID(message.hwnd), message.hwnd);
    } else {
        // An OK in a nested dialog is pressed by way of this dialog's OnOK.
        HWND button = qv::detail::DefaultButtonOf(m_hWnd);
        PressOwn(m_hWnd, button != nullptr && ::GetParent(button) == m_hWnd ? ::GetDlgCtrlID(button) : IDOK);
    }
    return true;
}

bool CDialog::TranslatePageKey(const MSG& message) {
    if (message.message != WM_KEYDOWN || !IsDown(VK_CONTROL)) return false;
    int step = 0;
    if (message.wParam == VK_TAB) step = IsDown(VK_SHIFT) ? -1 : 1;
    if (message.wParam == VK_PRIOR) step = -1;
    if (message.wParam == VK_NEXT) step = 1;
    return step != 0 && ::EnumChildWindows(m_hWnd, &AskToSwitchPage, step) == FALSE;
}

// PgUp and PgDn scroll the innermost window around the focus that can still move; when there is none, the first one of
// the dialog that can.
bool CDialog::TranslateScrollKey(const MSG& message) {
    if (message.message != WM_KEYDOWN || IsDown(VK_CONTROL) || IsDown(VK_SHIFT)) return false;
    if (message.wParam != VK_PRIOR && message.wParam != VK_NEXT) return false;
    if (HasOwnUseForPageKeys(message.hwnd)) return false;
    PageScroll scroll{message.wParam == VK_PRIOR ? UINT{SB_PAGEUP} : UINT{SB_PAGEDOWN}, false};
    for (HWND window = ::GetAncestor(message.hwnd, GA_PARENT); window != nullptr && window != m_hWnd;
         window = ::GetAncestor(window, GA_PARENT)) {
        if (ScrollByPage(window, scroll.request)) return true;
    }
    ::EnumChildWindows(m_hWnd, &AskToScroll, reinterpret_cast<LPARAM>(&scroll));
    return scroll.done;
}

// The wheel turns what lies under the pointer, as newer systems have it by themselves; older ones send it to the focus.
// An open list keeps it.
void CDialog::LeadWheelToPointer(MSG& message) const {
    if (::SendMessageW(message.hwnd, CB_GETDROPPEDSTATE, 0, 0) != 0) return;
    const auto packed = static_cast<DWORD_PTR>(message.lParam);
    HWND under = ::WindowFromPoint({static_cast<SHORT>(LOWORD(packed)), static_cast<SHORT>(HIWORD(packed))});
    if (under != nullptr && ::IsChild(m_hWnd, under) != FALSE) message.hwnd = under;
}

// Arrows walk through a group, and the platform stops at its labels too: the focus would be gone from sight, and Space
// and typing with it. Only that is done here.
bool CDialog::TranslateArrow(const MSG& message) {
    if (message.message != WM_KEYDOWN || message.wParam < VK_LEFT || message.wParam > VK_DOWN) return false;
    const auto wants = ::SendMessageW(message.hwnd, WM_GETDLGCODE, message.wParam, reinterpret_cast<LPARAM>(&message));
    if ((wants & (DLGC_WANTARROWS | DLGC_WANTMESSAGE)) != 0) return false;
    const BOOL previous = message.wParam == VK_LEFT || message.wParam == VK_UP ? TRUE : FALSE;
    HWND first = ::GetNextDlgGroupItem(m_hWnd, message.hwnd, previous);
    if (!IsLabel(first)) return false;
    HWND next = first;
    do {
        next = ::GetNextDlgGroupItem(m_hWnd, next, previous);
    } while (next != first && IsLabel(next));
    if (next != nullptr && !IsLabel(next) && next != message.hwnd)
        SendMessage(WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(next), TRUE);
    return true;
}
