// How much room a text takes, and where it is broken.
#include <gtest/gtest.h>

#include <string>

#include "platform/platform.h"

namespace {

class TextDrawing : public ::testing::Test {
protected:
    TextDrawing() : m_dc(GetDC(nullptr)) {}
    ~TextDrawing() override { ReleaseDC(nullptr, m_dc); }

    [[nodiscard]] SIZE Measure(const std::wstring& text, LONG width, UINT format) const {
        RECT rect{0, 0, width, 0};
        DrawTextW(m_dc, text.c_str(), static_cast<int>(text.size()), &rect, DT_CALCRECT | format);
        return {rect.right, rect.bottom};
    }
    [[nodiscard]] LONG Width(const std::wstring& text) const { return Measure(text, 0, DT_SINGLELINE).cx; }
    [[nodiscard]] LONG Lines(const std::wstring& text, LONG width, UINT format) const {
        return Measure(text, width, format).cy / Measure(L"X", 0, DT_SINGLELINE).cy;
    }

    HDC m_dc;
};

TEST_F(TextDrawing, BreaksBetweenWordsAndWithinThemWhereItIsAskedTo) {
    const std::wstring word(20, L'n');
    const LONG half = Width(std::wstring(10, L'n'));
    EXPECT_EQ(Lines(word, half, DT_WORDBREAK), 1) << "a word that is too wide stands alone";
    EXPECT_EQ(Measure(word, half, DT_WORDBREAK).cx, Width(word));
    EXPECT_EQ(Lines(word, half, DT_WORDBREAK | DT_EDITCONTROL), 2);
    EXPECT_LE(Measure(word, half, DT_WORDBREAK | DT_EDITCONTROL).cx, half);
    // Between words first: the long one begins on a line of its own.
    EXPECT_EQ(Lines(L"n " + word, half, DT_WORDBREAK), 2);
    EXPECT_EQ(Lines(L"n " + word, half, DT_WORDBREAK | DT_EDITCONTROL), 3);
    EXPECT_EQ(Lines(word + L" n", half, DT_WORDBREAK), 2);
    const std::wstring words = L"nnnnnnnn nnnnnnnn nnnnnnnn";
    EXPECT_EQ(Lines(words, half, DT_WORDBREAK), 3);
    EXPECT_EQ(Lines(words, half, DT_WORDBREAK | DT_EDITCONTROL), 3);
    EXPECT_EQ(Lines(words, Width(words), DT_WORDBREAK), 1);
    EXPECT_EQ(Lines(words + L"\n" + words, Width(words), DT_WORDBREAK), 2);
    EXPECT_EQ(Lines(L"n&n", Width(L"nn"), DT_WORDBREAK), 1) << "the mark of a mnemonic takes no room";
    EXPECT_GE(Lines(word, 1, DT_WORDBREAK | DT_EDITCONTROL), 20) << "no character fits, and each gets a line";
}

}  // namespace
