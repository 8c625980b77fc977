// Key state, the characters that keys make (US layout), cursor shapes.
#include "platform/headless/desktop/keyboard.h"

#include <algorithm>
#include <utility>

#include "platform/headless/desktop/gdi.h"

namespace qv::headless {

std::array<BYTE, 256>& Keys() {
    static std::array<BYTE, 256> s_keys{};
    return s_keys;
}

}  // namespace qv::headless

using namespace qv::headless;

namespace {

constexpr BYTE kDown = 0x80;
constexpr BYTE kToggled = 0x01;

bool IsDown(int key) {
    return (Keys()[static_cast<std::size_t>(key)] & kDown) != 0;
}

struct KeyCharacters {
    UINT key;
    wchar_t plain;
    wchar_t shifted;
};

constexpr KeyCharacters kLayout[] = {
    {'0', L'0', L')'},          {'1', L'1', L'!'},          {'2', L'2', L'@'},           {'3', L'3', L'#'},
    {'4', L'4', L'$'},          {'5', L'5', L'%'},          {'6', L'6', L'^'},           {'7', L'7', L'&'},
    {'8', L'8', L'*'},          {'9', L'9', L'('},          {VK_OEM_1, L';', L':'},      {VK_OEM_PLUS, L'=', L'+'},
    {VK_OEM_COMMA, L',', L'<'}, {VK_OEM_MINUS, L'-', L'_'}, {VK_OEM_PERIOD, L'.', L'>'}, {VK_OEM_2, L'/', L'?'},
    {VK_SPACE, L' ', L' '},     {VK_TAB, L'\t', L'\t'},     {VK_RETURN, L'\r', L'\r'},   {VK_BACK, L'\b', L'\b'},
    {VK_ESCAPE, 0x1B, 0x1B},    {VK_ADD, L'+', L'+'},       {VK_SUBTRACT, L'-', L'-'},   {VK_MULTIPLY, L'*', L'*'},
    {VK_DIVIDE, L'/', L'/'},    {VK_DECIMAL, L'.', L'.'},
};

// Zero for keys that make no character.
wchar_t CharacterOf(UINT key) {
    const bool shift = IsDown(VK_SHIFT);
    const bool control = IsDown(VK_CONTROL);
    if (key >= 'A' && key <= 'Z') {
        if (control) return static_cast<wchar_t>(key - 'A' + 1);
        const bool capitals = shift != ((Keys()[VK_CAPITAL] & kToggled) != 0);
        return static_cast<wchar_t>(capitals ? key : key - 'A' + 'a');
    }
    if (key >= VK_NUMPAD0 && key <= VK_NUMPAD9) return static_cast<wchar_t>(L'0' + (key - VK_NUMPAD0));
    if (control) {
        if (key == VK_RETURN) return L'\n';
        if (key == VK_BACK) return 0x7F;
        if (key == VK_ESCAPE) return 0x1B;
        return key == VK_SPACE ? L' ' : L'\0';
    }
    const auto found = std::find_if(std::begin(kLayout), std::end(kLayout),
                                    [&](const KeyCharacters& entry) { return entry.key == key; });
    if (found == std::end(kLayout)) return 0;
    return shift ? found->shifted : found->plain;
}

}  // namespace

BOOL TranslateMessage(const MSG* message) {
    if (!message) return FALSE;
    const bool isKey = message->message == WM_KEYDOWN || message->message == WM_KEYUP ||
                       message->message == WM_SYSKEYDOWN || message->message == WM_SYSKEYUP;
    if (message->message == WM_KEYDOWN || message->message == WM_SYSKEYDOWN) {
        const wchar_t character = CharacterOf(static_cast<UINT>(message->wParam));
        if (character) {
            PostMessageW(message->hwnd, message->message == WM_KEYDOWN ? WM_CHAR : WM_SYSCHAR,
                         static_cast<WPARAM>(character), message->lParam);
        }
    }
    return isKey;
}

SHORT GetKeyState(int virtualKey) {
    const BYTE state = Keys()[static_cast<std::size_t>(virtualKey & 0xFF)];
    return static_cast<SHORT>((state & kDown ? 0xFF80 : 0) | (state & kToggled));
}

BOOL GetKeyboardState(BYTE* state) {
    if (!state) return FALSE;
    std::copy(Keys().begin(), Keys().end(), state);
    return TRUE;
}

BOOL SetKeyboardState(BYTE* state) {
    if (!state) return FALSE;
    std::copy_n(state, Keys().size(), Keys().begin());
    return TRUE;
}

UINT MapVirtualKeyW(UINT code, UINT type) {
    if (type != MAPVK_VK_TO_CHAR) return type == MAPVK_VK_TO_VSC || type == MAPVK_VSC_TO_VK ? code & 0xFF : 0;
    if (code >= 'A' && code <= 'Z') return code;
    const auto found = std::find_if(std::begin(kLayout), std::end(kLayout),
                                    [&](const KeyCharacters& entry) { return entry.key == code; });
    return found == std::end(kLayout) ? 0 : static_cast<UINT>(found->plain);
}

// The platform's own cursors are all there is; each has one handle.
HCURSOR LoadCursorW(HINSTANCE, LPCWSTR name) {
    constexpr std::uintptr_t kCursors = 0x20000000;
    return IS_INTRESOURCE(name) ? reinterpret_cast<HCURSOR>(kCursors | reinterpret_cast<UINT_PTR>(name)) : nullptr;
}

BOOL MessageBeep(UINT) {
    return TRUE;
}

// Nobody makes one.
BOOL HideCaret(HWND) {
    return FALSE;
}
