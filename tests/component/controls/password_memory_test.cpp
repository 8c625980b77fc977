// A plain password stays in no memory that is given back. Seen natively only, where all modules of the program give
// memory back through the one operator below.
#include <cstdlib>
#include <cstring>
#include <new>

#include "qvclient/qvsettingsdialog/controls/en_de_crypt.h"
#include "tests/component/controls/controls_fixture.h"

namespace {

constexpr std::wstring_view kSecret = L"correct-horse-battery";
bool g_watching = false;
int g_leftovers = 0;  // blocks that were given back with the secret, or its greater part, in them

void Look(const void* block, std::size_t size) {
    if (!g_watching || block == nullptr) return;
    const std::size_t part = kSecret.size() / 2 * sizeof(wchar_t);
    if (size >= part && ::memmem(block, size, kSecret.data(), part) != nullptr) ++g_leftovers;
}

}  // namespace

void* operator new(std::size_t size) {
    if (void* block = std::malloc(size)) return block;
    throw std::bad_alloc();
}
void operator delete(void* block) noexcept {
    std::free(block);
}
void operator delete(void* block, std::size_t size) noexcept {
    Look(block, size);
    std::free(block);
}

namespace {

class PasswordMemory : public ControlsTest {
protected:
    template <class Action>
    static int Leftovers(const Action& action) {
        g_leftovers = 0;
        g_watching = true;
        action();
        g_watching = false;
        return g_leftovers;
    }
};

TEST_F(PasswordMemory, NothingOfItIsGivenBack) {
    EXPECT_EQ(Leftovers([] { const std::wstring copy(kSecret); }), 1) << "the test sees what it looks for";

    // A window that keeps no text of its own: what the platform's field does with its memory is the platform's.
    class Deaf : public CWnd {
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
            return message == WM_SETTEXT ? TRUE : CWnd::WindowProc(message, wParam, lParam);
        }
    };
    Deaf window;
    ASSERT_TRUE(window.Create(nullptr, L"", WS_CHILD, RECT{0, 0, 10, 10}, &page, 1));
    EXPECT_EQ(Leftovers([&] { window.SetWindowText(kSecret); }), 0);

    const XEnDeCrypt cipher;
    const std::wstring enciphered = cipher.Encrypt(kSecret);
    // A text with a bad character at its end is refused only after the rest was deciphered.
    const std::wstring refused = enciphered + L"00";
    std::wstring plain;
    EXPECT_EQ(Leftovers([&] { EXPECT_TRUE(cipher.Decrypt(enciphered, plain)); }), 0);
    EXPECT_EQ(plain, kSecret);
    EXPECT_EQ(Leftovers([&] { EXPECT_FALSE(cipher.Decrypt(refused, plain)); }), 0);
}

}  // namespace
