// What keys mean in a dialog: Tab, arrows, Enter, Escape and mnemonics.
#include <cwctype>
#include <optional>

#include "platform/headless/desktop/controls.h"
#include "platform/headless/desktop/dialog.h"
#include "platform/headless/desktop/dialog_manager.h"
#include "platform/headless/desktop/window_table.h"

namespace qv::headless {
namespace {

// A dialog that is a control of another one leaves keys to the outer one.
HWND DialogForKeys(HWND dialog) {
    const Window* window = Peek(dialog);
    while (window && (window->style & DS_CONTROL) && IsChildStyle(*window)) {
        const Window* parent = window->parent;
        if (!parent || !(parent->exStyle & WS_EX_CONTROLPARENT) || parent == Windows().root) break;
        window = parent;
    }
    return HandleOf(window);
}

// The letter after the single ampersand; none in a text without one.
std::optional<wchar_t> MnemonicOf(HWND control) {
    constexpr int kRoom = 512;
    wchar_t text[kRoom] = {};
    GetWindowTextW(control, text, kRoom);
    for (const wchar_t* at = text; *at; ++at) {
        if (*at != L'&') continue;
        if (at[1] == L'&') {
            ++at;
            continue;
        }
        return at[1] ? std::optional(at[1]) : std::nullopt;
    }
    return std::nullopt;
}

bool Matches(HWND control, wchar_t typed) {
    const std::optional<wchar_t> mnemonic = MnemonicOf(control);
    const auto upper = [](wchar_t unit) { return std::towupper(static_cast<std::wint_t>(unit)); };
    return mnemonic && upper(*mnemonic) == upper(typed);
}

// All controls a mnemonic may mean, in tab order, containers opened up; hidden and disabled branches have none.
void CollectCandidates(const Window& parent, std::vector<HWND>& candidates) {
    for (const Window* child = parent.first; child; child = child->next) {
        constexpr DWORD kWanted = WS_VISIBLE;
        if ((child->style & (WS_VISIBLE | WS_DISABLED)) != kWanted) continue;
        candidates.push_back(child->handle);
        if (child->exStyle & WS_EX_CONTROLPARENT) CollectCandidates(*child, candidates);
    }
}

// A button is pressed when it is the only one with that letter, else focused; a label hands on to what follows it.
void Choose(HWND dialog, HWND control, bool unique) {
    const LRESULT code = SendMessageW(control, WM_GETDLGCODE, 0, 0);
    if (code & (DLGC_UNDEFPUSHBUTTON | DLGC_DEFPUSHBUTTON | DLGC_RADIOBUTTON | DLGC_BUTTON)) {
        if (!(code & (DLGC_UNDEFPUSHBUTTON | DLGC_DEFPUSHBUTTON)) || unique) {
            SendMessageW(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control), TRUE);
            if (unique && Peek(control)) SendMessageW(control, BM_CLICK, 0, 0);
        } else {
            SendMessageW(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control), TRUE);
        }
        return;
    }
    if (code & DLGC_STATIC) {
        const HWND next = GetNextDlgTabItem(dialog, control, FALSE);
        if (next) SendMessageW(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(next), TRUE);
        return;
    }
    SendMessageW(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control), TRUE);
}

bool HandleMnemonic(HWND dialog, HWND focus, wchar_t typed) {
    const Window* window = Peek(dialog);
    if (!window || typed == L' ') return false;
    std::vector<HWND> candidates;
    CollectCandidates(*window, candidates);
    std::vector<HWND> matching;
    for (const HWND candidate : candidates) {
        if (Matches(candidate, typed)) matching.push_back(candidate);
    }
    if (matching.empty()) return false;
    // Several controls with one letter take turns, beginning behind the one with the focus.
    HWND chosen = matching.front();
    std::size_t focusAt = 0;
    while (focusAt < candidates.size() && candidates[focusAt] != focus)
        ++focusAt;
    for (std::size_t i = focusAt + 1; i < candidates.size(); ++i) {
        if (Matches(candidates[i], typed)) {
            chosen = candidates[i];
            break;
        }
    }
    Choose(dialog, chosen, matching.size() == 1);
    return true;
}

void HandleArrow(HWND dialog, const MSG& message) {
    const bool previous = message.wParam == VK_LEFT || message.wParam == VK_UP;
    const HWND next = GetNextDlgGroupItem(dialog, message.hwnd, previous);
    if (!next) return;
    const LRESULT code = SendMessageW(next, WM_GETDLGCODE, message.wParam, reinterpret_cast<LPARAM>(&message));
    if (code == (DLGC_BUTTON | DLGC_RADIOBUTTON)) {
        SetFocus(next);
        const Window* window = Peek(next);
        if (window && (window->style & BS_TYPEMASK) == BS_AUTORADIOBUTTON &&
            SendMessageW(next, BM_GETCHECK, 0, 0) != BST_CHECKED) {
            SendMessageW(next, BM_CLICK, 0, 0);
        }
        return;
    }
    SendMessageW(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(next), TRUE);
}

void HandleEnter(HWND dialog) {
    const HWND focus = GetFocus();
    const auto command = [&](int id, HWND from) {
        SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(static_cast<std::uintptr_t>(id), BN_CLICKED),
                     reinterpret_cast<LPARAM>(from));
    };
    if (IsChild(dialog, focus) && (SendMessageW(focus, WM_GETDLGCODE, 0, 0) & DLGC_DEFPUSHBUTTON)) {
        command(GetDlgCtrlID(focus), focus);
        return;
    }
    const auto answer = static_cast<std::uintptr_t>(SendMessageW(dialog, DM_GETDEFID, 0, 0));
    if (HIWORD(answer) == DC_HASDEFID) {
        const HWND button = GetDlgItem(dialog, LOWORD(answer));
        if (!button || IsWindowEnabled(button)) command(LOWORD(answer), button);
        return;
    }
    command(IDOK, GetDlgItem(dialog, IDOK));
}

void HandleTab(HWND dialog) {
    const bool previous = GetKeyState(VK_SHIFT) < 0;
    SendMessageW(dialog, WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS), 0);
    if (DialogOf(dialog)) {
        SendMessageW(dialog, WM_NEXTDLGCTL, previous, 0);
        return;
    }
    // A window that is no dialog can be walked through all the same; it has no default button to follow the focus.
    const HWND next = GetNextDlgTabItem(dialog, GetFocus(), previous);
    if (!next) return;
    if (SendMessageW(next, WM_GETDLGCODE, 0, 0) & DLGC_HASSETSEL) SendMessageW(next, EM_SETSEL, 0, -1);
    SetFocus(next);
}

// True when the key is used up.
bool HandleKeyDown(HWND dialog, const MSG& message) {
    const LRESULT code = SendMessageW(message.hwnd, WM_GETDLGCODE, message.wParam, reinterpret_cast<LPARAM>(&message));
    if (code & DLGC_WANTMESSAGE) return false;
    switch (message.wParam) {
        case VK_TAB:
            if (code & DLGC_WANTTAB) return false;
            HandleTab(dialog);
            return true;
        case VK_LEFT:
        case VK_RIGHT:
        case VK_UP:
        case VK_DOWN:
            if (code & DLGC_WANTARROWS) return false;
            HandleArrow(dialog, message);
            return true;
        case VK_ESCAPE:
        case VK_CANCEL: {
            const HWND button = GetDlgItem(dialog, IDCANCEL);
            if (button && !IsWindowEnabled(button)) {
                MessageBeep(0);
                return true;
            }
            SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(IDCANCEL, BN_CLICKED), reinterpret_cast<LPARAM>(button));
            return true;
        }
        case VK_EXECUTE:
        case VK_RETURN:
            HandleEnter(dialog);
            return true;
        default:
            return false;
    }
}

bool HandleCharacter(HWND dialog, const MSG& message) {
    if (message.message == WM_CHAR) {
        const LRESULT code =
            SendMessageW(message.hwnd, WM_GETDLGCODE, message.wParam, reinterpret_cast<LPARAM>(&message));
        if (code & (DLGC_WANTCHARS | DLGC_WANTMESSAGE)) return false;
        if (message.wParam == L'\t' && (code & DLGC_WANTTAB)) return false;
    }
    return HandleMnemonic(dialog, message.hwnd, static_cast<wchar_t>(message.wParam));
}

}  // namespace
}  // namespace qv::headless

using namespace qv::headless;

BOOL IsDialogMessageW(HWND dialog, MSG* message) {
    if (!message || !Peek(dialog)) return FALSE;
    if (message->hwnd != dialog && !IsChild(dialog, message->hwnd)) return FALSE;
    if (CallMsgFilterW(message, MSGF_DIALOGBOX)) return TRUE;
    const HWND target = DialogForKeys(dialog);
    bool used = false;
    switch (message->message) {
        case WM_KEYDOWN:
            used = HandleKeyDown(target, *message);
            break;
        case WM_CHAR:
        case WM_SYSCHAR:
            used = HandleCharacter(target, *message);
            break;
        default:
            break;
    }
    if (!used) {
        TranslateMessage(message);
        DispatchMessageW(message);
    }
    return TRUE;
}
