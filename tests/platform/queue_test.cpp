// The message queue: order, filters, characters made from keys.
#include <algorithm>
#include <array>

#include "tests/platform/window_fixture.h"

namespace qv::test {

class Queue : public WindowFixture {
protected:
    Queue() : m_top(Make("top", WS_POPUP)), m_child(Child("child", m_top)) {
        MSG message{};
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        }
        TakeLog();
    }

    HWND m_top;
    HWND m_child;
};

TEST_F(Queue, PostedMessagesComeInOrderAndQuitAfterThem) {
    PostQuitMessage(5);
    PostMessageW(m_top, WM_USER + 1, 1, 0);
    PostMessageW(m_child, WM_USER + 2, 2, 0);
    MSG message{};
    EXPECT_TRUE(GetMessageW(&message, nullptr, 0, 0));
    EXPECT_EQ(message.message, UINT{WM_USER + 1});
    EXPECT_TRUE(GetMessageW(&message, nullptr, 0, 0));
    EXPECT_EQ(message.hwnd, m_child);
    EXPECT_FALSE(GetMessageW(&message, nullptr, 0, 0));
    EXPECT_EQ(message.wParam, WPARAM{5});
}

TEST_F(Queue, FiltersByWindowAndNumberAndLooksWithoutTaking) {
    PostMessageW(m_child, WM_USER + 2, 0, 0);
    PostMessageW(m_top, WM_USER + 1, 0, 0);
    MSG message{};
    EXPECT_FALSE(PeekMessageW(&message, nullptr, WM_USER + 3, WM_USER + 9, PM_REMOVE));
    EXPECT_TRUE(PeekMessageW(&message, m_top, 0, 0, PM_NOREMOVE));
    EXPECT_EQ(message.hwnd, m_child) << "a window stands for its children too";
    EXPECT_TRUE(PeekMessageW(&message, nullptr, WM_USER + 1, WM_USER + 1, PM_REMOVE));
    EXPECT_EQ(message.hwnd, m_top);
    DestroyWindow(m_child);
    EXPECT_FALSE(PeekMessageW(&message, nullptr, WM_USER, WM_USER + 9, PM_REMOVE)) << "messages die with their window";
}

TEST_F(Queue, KeysMakeTheirCharacters) {
    struct Case {
        const char* name;
        WPARAM key;
        bool shift;
        UINT message;
        WPARAM character;  // 0 for none
    };
    const Case cases[] = {
        {"letter", 'A', false, WM_KEYDOWN, 'a'},       {"capital", 'A', true, WM_KEYDOWN, 'A'},
        {"digit", '7', false, WM_KEYDOWN, '7'},        {"tab", VK_TAB, false, WM_KEYDOWN, '\t'},
        {"enter", VK_RETURN, false, WM_KEYDOWN, '\r'}, {"backspace", VK_BACK, false, WM_KEYDOWN, '\b'},
        {"escape", VK_ESCAPE, false, WM_KEYDOWN, 27},  {"space", VK_SPACE, false, WM_KEYDOWN, ' '},
        {"arrow", VK_LEFT, false, WM_KEYDOWN, 0},      {"delete", VK_DELETE, false, WM_KEYDOWN, 0},
        {"with alt", 'B', false, WM_SYSKEYDOWN, 'b'},
    };
    std::array<BYTE, 256> before{};
    GetKeyboardState(before.data());
    for (const Case& test : cases) {
        auto keys = before;
        std::fill(keys.begin(), keys.end(), BYTE{0});
        if (test.shift) keys[VK_SHIFT] = keys[VK_LSHIFT] = 0x80;
        const bool alt = test.message == WM_SYSKEYDOWN;
        if (alt) keys[VK_MENU] = keys[VK_LMENU] = 0x80;
        SetKeyboardState(keys.data());
        const UINT scan = MapVirtualKeyW(static_cast<UINT>(test.key), MAPVK_VK_TO_VSC);
        const MSG down{m_top, test.message, test.key, static_cast<LPARAM>(1 | scan << 16 | (alt ? 1u << 29 : 0u)), 0,
                       {}};
        EXPECT_TRUE(TranslateMessage(&down)) << test.name;
        MSG message{};
        const bool made = PeekMessageW(&message, m_top, WM_KEYFIRST, WM_KEYLAST, PM_REMOVE);
        EXPECT_EQ(made, test.character != 0) << test.name;
        if (!made) continue;
        EXPECT_EQ(message.message, alt ? UINT{WM_SYSCHAR} : UINT{WM_CHAR}) << test.name;
        EXPECT_EQ(message.wParam, test.character) << test.name;
    }
    SetKeyboardState(before.data());
}

}  // namespace qv::test
