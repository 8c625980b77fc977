#include "platform/user.h"

#include <array>
#include <cstdint>
#include <cstdlib>
#include <utility>

namespace qv {

namespace {

constexpr BYTE kDown = 0x80;

// Keys that are held while something happens: the thread's key state says so meanwhile, and afterwards what it said
// before.
class HeldKeys {
public:
    explicit HeldKeys(User::Held held) {
        GetKeyboardState(m_before.data());
        auto now = m_before;
        const auto hold = [&](int key, int left, bool down) {
            for (const int code : {key, left})
                now[static_cast<std::size_t>(code)] = down ? kDown : BYTE{0};
        };
        hold(VK_SHIFT, VK_LSHIFT, held.shift);
        hold(VK_CONTROL, VK_LCONTROL, held.control);
        hold(VK_MENU, VK_LMENU, held.alt);
        SetKeyboardState(now.data());
    }
    ~HeldKeys() { SetKeyboardState(m_before.data()); }
    HeldKeys(const HeldKeys&) = delete;
    HeldKeys& operator=(const HeldKeys&) = delete;

private:
    std::array<BYTE, 256> m_before{};
};

bool IsExtended(int key) {
    switch (key) {
        case VK_PRIOR:
        case VK_NEXT:
        case VK_END:
        case VK_HOME:
        case VK_LEFT:
        case VK_UP:
        case VK_RIGHT:
        case VK_DOWN:
        case VK_INSERT:
        case VK_DELETE:
            return true;
        default:
            return false;
    }
}

// The bits that a keyboard message carries: repeat count, scan code, and flags from bit 24 up.
LPARAM KeyBits(int key, bool alt, bool up) {
    constexpr std::uint32_t kExtended = 1u << 24;
    constexpr std::uint32_t kAlt = 1u << 29;
    constexpr std::uint32_t kWasDown = 1u << 30;
    constexpr std::uint32_t kReleased = 1u << 31;
    std::uint32_t bits = 1;
    bits |= static_cast<std::uint32_t>(MapVirtualKeyW(static_cast<UINT>(key), MAPVK_VK_TO_VSC)) << 16;
    if (IsExtended(key)) bits |= kExtended;
    if (alt) bits |= kAlt;
    if (up) bits |= kWasDown | kReleased;
    return static_cast<LPARAM>(bits);
}

// Where a key goes, and whether as a system key: Alt without Ctrl makes it one, F10 always is one, and while no window
// has the focus every key is, sent to the active window without the bit that says Alt.
struct Target {
    HWND window;
    bool system;
};

Target TargetOf(int key, User::Held held) {
    if (const HWND focus = GetFocus()) return {focus, (held.alt && !held.control) || key == VK_F10};
    return {GetActiveWindow(), true};
}

}  // namespace

void PumpMessages(const std::function<bool(MSG&)>& translate) {
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        if (translate && translate(message)) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

User::User(std::function<void()> pump) : m_pump(std::move(pump)) {}

void User::Pump() const {
    if (m_pump) {
        m_pump();
    } else {
        PumpMessages();
    }
}

bool User::Press(int virtualKey, Held held) const {
    const Target target = TargetOf(virtualKey, held);
    if (!target.window) return false;
    const HeldKeys keys(held);
    const auto key = static_cast<WPARAM>(virtualKey);
    PostMessageW(target.window, target.system ? WM_SYSKEYDOWN : WM_KEYDOWN, key, KeyBits(virtualKey, held.alt, false));
    Pump();
    // The key is released wherever the focus is by then.
    if (const Target then = TargetOf(virtualKey, held); then.window) {
        PostMessageW(then.window, then.system ? WM_SYSKEYUP : WM_KEYUP, key, KeyBits(virtualKey, held.alt, true));
        Pump();
    }
    return true;
}

bool User::Type(std::wstring_view text) const {
    for (const wchar_t unit : text) {
        const Target target = TargetOf(0, {});
        if (!target.window) return false;
        PostMessageW(target.window, target.system ? WM_SYSCHAR : WM_CHAR, static_cast<WPARAM>(unit), 1);
        Pump();
    }
    return true;
}

bool User::CanReach(HWND window) {
    if (!IsWindow(window) || !IsWindowVisible(window)) return false;
    for (HWND up = window; up && up != GetDesktopWindow(); up = GetAncestor(up, GA_PARENT)) {
        if (!IsWindowEnabled(up)) return false;
    }
    return true;
}

bool User::Click(HWND window) const {
    RECT client{};
    if (!GetClientRect(window, &client)) return false;
    return ClickAt(window, {client.right / 2, client.bottom / 2});
}

bool User::ClickAt(HWND window, POINT point) const {
    if (!CanReach(window)) return false;
    const HWND top = GetAncestor(window, GA_ROOT);
    if (GetActiveWindow() != top) SetActiveWindow(top);
    const LPARAM place = MAKELPARAM(static_cast<WORD>(point.x), static_cast<WORD>(point.y));
    PostMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, place);
    Pump();
    if (!IsWindow(window)) return true;
    PostMessageW(window, WM_LBUTTONUP, 0, place);
    Pump();
    return true;
}

bool User::Focus(HWND window) const {
    if (!CanReach(window)) return false;
    SetFocus(window);
    Pump();
    return true;
}

bool User::Choose(HWND list, int index) const {
    constexpr int kRoom = 64;
    wchar_t name[kRoom] = {};
    GetClassNameW(list, name, kRoom);
    const bool combo = std::wstring_view(name) == L"ComboBox";
    const auto count = static_cast<int>(SendMessageW(list, combo ? UINT{CB_GETCOUNT} : UINT{LB_GETCOUNT}, 0, 0));
    if (index < 0 || index >= count || !Focus(list)) return false;
    const auto current = [&] {
        return static_cast<int>(SendMessageW(list, combo ? UINT{CB_GETCURSEL} : UINT{LB_GETCURSEL}, 0, 0));
    };
    // One step a press; the bound ends the walk in a list that does not move.
    for (int step = 0; step <= count && current() != index; ++step)
        Press(current() < index ? VK_DOWN : VK_UP);
    return current() == index;
}

bool User::ChooseTab(HWND tabControl, int index) const {
    RECT tab{};
    if (!SendMessageW(tabControl, TCM_GETITEMRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&tab))) {
        return false;
    }
    return ClickAt(tabControl, {(tab.left + tab.right) / 2, (tab.top + tab.bottom) / 2});
}

}  // namespace qv
