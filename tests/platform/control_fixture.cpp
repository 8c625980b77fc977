#include "tests/platform/control_fixture.h"

#include <iterator>
#include <map>

namespace {

struct Notification {
    const wchar_t* className;
    UINT code;
    const char* name;
};

constexpr Notification kNotifications[] = {
    {L"Edit", EN_SETFOCUS, "SETFOCUS"},
    {L"Edit", EN_KILLFOCUS, "KILLFOCUS"},
    {L"Edit", EN_CHANGE, "CHANGE"},
    {L"Edit", EN_UPDATE, "UPDATE"},
    {L"Edit", EN_MAXTEXT, "MAXTEXT"},
    {L"Button", BN_CLICKED, "CLICKED"},
    {L"Button", BN_DOUBLECLICKED, "DOUBLECLICKED"},
    {L"Button", BN_SETFOCUS, "SETFOCUS"},
    {L"Button", BN_KILLFOCUS, "KILLFOCUS"},
    {L"Static", STN_CLICKED, "CLICKED"},
    {L"Static", STN_DBLCLK, "DBLCLK"},
    {L"ListBox", LBN_SELCHANGE, "SELCHANGE"},
    {L"ListBox", LBN_DBLCLK, "DBLCLK"},
    {L"ListBox", LBN_SETFOCUS, "SETFOCUS"},
    {L"ListBox", LBN_KILLFOCUS, "KILLFOCUS"},
    {L"ComboBox", CBN_SELCHANGE, "SELCHANGE"},
    {L"ComboBox", CBN_SETFOCUS, "SETFOCUS"},
    {L"ComboBox", CBN_KILLFOCUS, "KILLFOCUS"},
    {L"ComboBox", CBN_DROPDOWN, "DROPDOWN"},
    {L"ComboBox", CBN_CLOSEUP, "CLOSEUP"},
    {L"ComboBox", CBN_SELENDOK, "SELENDOK"},
    {L"ComboBox", CBN_SELENDCANCEL, "SELENDCANCEL"},
    {WC_TABCONTROLW, TCN_SELCHANGING & 0xFFFF, "SELCHANGING"},
    {WC_TABCONTROLW, TCN_SELCHANGE & 0xFFFF, "SELCHANGE"},
    {WC_TABCONTROLW, TCN_KEYDOWN & 0xFFFF, "KEYDOWN"},
    {WC_TABCONTROLW, NM_CLICK & 0xFFFF, "CLICK"},
};

std::string NameOf(HWND control, UINT code) {
    wchar_t className[64] = L"";
    GetClassNameW(control, className, static_cast<int>(std::size(className)));
    for (const Notification& known : kNotifications) {
        if (known.code == (code & 0xFFFF) && lstrcmpiW(known.className, className) == 0) return known.name;
    }
    return "?" + std::to_string(code);
}

// Holds modifiers down for one key press.
class HeldKeys {
public:
    explicit HeldKeys(std::initializer_list<int> keys) {
        GetKeyboardState(m_before);
        BYTE held[256];
        GetKeyboardState(held);
        for (int key : keys)
            held[key] = 0x80;
        SetKeyboardState(held);
    }
    HeldKeys(const HeldKeys&) = delete;
    HeldKeys& operator=(const HeldKeys&) = delete;
    ~HeldKeys() { SetKeyboardState(m_before); }

private:
    BYTE m_before[256] = {};
};

}  // namespace

void ControlTest::SetUp() {
    WNDCLASSEXW windowClass = {};
    windowClass.cbSize = sizeof windowClass;
    windowClass.lpfnWndProc = ParentProc;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.lpszClassName = L"QvControlParent";
    RegisterClassExW(&windowClass);  // fails from the second test on, when the class is known
    INITCOMMONCONTROLSEX controls = {sizeof controls, ICC_TAB_CLASSES};
    InitCommonControlsEx(&controls);
    m_parent = CreateWindowExW(0, L"QvControlParent", L"parent", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 20, 20, 600, 400,
                               nullptr, nullptr, windowClass.hInstance, this);
    ASSERT_NE(m_parent, nullptr);
    SetWindowLongPtrW(m_parent, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

void ControlTest::TearDown() {
    SetWindowLongPtrW(m_parent, GWLP_USERDATA, 0);
    DestroyWindow(m_parent);
}

HWND ControlTest::Create(const wchar_t* className, DWORD style, const wchar_t* text, int width, int height, int id) {
    HWND control =
        CreateWindowExW(0, className, text, WS_CHILD | WS_VISIBLE | style, 10, 10, width, height, m_parent,
                        reinterpret_cast<HMENU>(static_cast<UINT_PTR>(id)), GetModuleHandleW(nullptr), nullptr);
    EXPECT_NE(control, nullptr);
    TakeLog();
    return control;
}

std::string ControlTest::TakeLog() {
    std::string log;
    log.swap(m_log);
    return log;
}

void ControlTest::AnswerTo(std::string_view name, LRESULT answer) {
    m_answeredName = name;
    m_answer = answer;
}

void ControlTest::Press(HWND window, UINT key, bool shift, bool control) {
    const HeldKeys held({shift ? VK_SHIFT : 0, control ? VK_CONTROL : 0});
    SendMessageW(window, WM_KEYDOWN, key, 1);
    if (control && key >= 'A' && key <= 'Z') SendMessageW(window, WM_CHAR, key - 'A' + 1, 1);
    if (key == VK_BACK || key == VK_RETURN || key == VK_ESCAPE || key == VK_SPACE)
        SendMessageW(window, WM_CHAR, key, 1);
    SendMessageW(window, WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
}

void ControlTest::PressAlt(HWND window, UINT key) {
    const HeldKeys held({VK_MENU});
    SendMessageW(window, WM_SYSKEYDOWN, key, 0x20000001);
    SendMessageW(window, WM_SYSKEYUP, key, static_cast<LPARAM>(0xE0000001));
}

void ControlTest::Type(HWND window, std::wstring_view text) {
    for (wchar_t character : text)
        SendMessageW(window, WM_CHAR, character, 1);
}

void ControlTest::Act(HWND window, std::string_view script, const Step& other) {
    static const std::map<std::string_view, UINT> s_keys = {
        {"left", VK_LEFT},    {"right", VK_RIGHT},   {"up", VK_UP},     {"down", VK_DOWN},
        {"home", VK_HOME},    {"end", VK_END},       {"back", VK_BACK}, {"del", VK_DELETE},
        {"enter", VK_RETURN}, {"escape", VK_ESCAPE}, {"f4", VK_F4},     {"space", VK_SPACE},
    };
    const auto take = [&script](std::string_view part) {
        const bool isThere = script.starts_with(part);
        if (isThere) script.remove_prefix(part.size());
        return isThere;
    };
    while (!script.empty()) {
        const bool shift = take("shift+");
        const bool control = take("ctrl+");
        const std::string_view word = script.substr(0, script.find(' '));
        script.remove_prefix(word.size());
        take(" ");
        const std::string_view verb = word.substr(0, word.find(':'));
        const std::string_view argument = verb.size() < word.size() ? word.substr(verb.size() + 1) : "";
        if (const auto key = s_keys.find(verb); key != s_keys.end()) {
            Press(window, key->second, shift, control);
        } else if (verb == "type") {
            Type(window, Widen(argument));
        } else {
            other(verb, argument, shift, control);
        }
    }
}

void ControlTest::Click(HWND window, int x, int y, bool shift, bool control) {
    const HeldKeys held({shift ? VK_SHIFT : 0, control ? VK_CONTROL : 0});
    const WPARAM modifiers = static_cast<WPARAM>((shift ? MK_SHIFT : 0) | (control ? MK_CONTROL : 0));
    const LPARAM position = MAKELPARAM(x, y);
    SendMessageW(window, WM_LBUTTONDOWN, modifiers | MK_LBUTTON, position);
    SendMessageW(window, WM_LBUTTONUP, modifiers, position);
}

std::wstring ControlTest::TextOf(HWND window) {
    std::wstring text(static_cast<size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    text.resize(static_cast<size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

std::string ControlTest::SelectionOf(HWND edit) {
    DWORD first = 0;
    DWORD last = 0;
    SendMessageW(edit, EM_GETSEL, reinterpret_cast<WPARAM>(&first), reinterpret_cast<LPARAM>(&last));
    return std::to_string(first) + "-" + std::to_string(last);
}

std::string ControlTest::Narrow(std::wstring_view text) {
    std::string narrow;
    for (wchar_t character : text)
        narrow += character < 128 ? static_cast<char>(character) : '?';
    return narrow;
}

void ControlTest::Note(std::string name) {
    if (!m_log.empty()) m_log += ' ';
    m_log += name;
}

LRESULT ControlTest::AnswerFor(std::string_view name) const {
    return name == m_answeredName ? m_answer : 0;
}

LRESULT CALLBACK ControlTest::ParentProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const LONG_PTR stored = GetWindowLongPtrW(window, GWLP_USERDATA);
    if (stored == 0) return DefWindowProcW(window, message, wParam, lParam);
    auto& test = *reinterpret_cast<ControlTest*>(stored);
    std::string name;
    switch (message) {
        case WM_COMMAND:
            // Whether a text scrolls depends on the font.
            if (HIWORD(wParam) == EN_VSCROLL || HIWORD(wParam) == EN_HSCROLL) return 0;
            name = NameOf(reinterpret_cast<HWND>(lParam), HIWORD(wParam));
            EXPECT_EQ(LOWORD(wParam), static_cast<WORD>(GetDlgCtrlID(reinterpret_cast<HWND>(lParam))));
            break;
        case WM_NOTIFY: {
            const auto& header = *reinterpret_cast<const NMHDR*>(lParam);
            name = NameOf(header.hwndFrom, header.code);
            EXPECT_EQ(wParam, header.idFrom);
            break;
        }
        case WM_MEASUREITEM:
            reinterpret_cast<MEASUREITEMSTRUCT*>(lParam)->itemHeight = test.m_measuredHeight;
            name = "MEASURE";
            break;
        case WM_DELETEITEM:
            name = "DELETE:" + std::to_string(reinterpret_cast<const DELETEITEMSTRUCT*>(lParam)->itemID);
            break;
        default:
            return DefWindowProcW(window, message, wParam, lParam);
    }
    const std::string_view family = std::string_view(name).substr(0, name.find(':'));
    const LRESULT answer = test.AnswerFor(family);
    test.Note(name);
    if (message == WM_COMMAND && test.m_onCommand) test.m_onCommand(reinterpret_cast<HWND>(lParam));
    return answer;
}
