#include "qvclient/qvsettingsdialog/controls/en_de_crypt.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "base/text.h"

namespace {

std::wstring Upper(std::wstring text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](wchar_t c) { return c >= L'a' && c <= L'f' ? static_cast<wchar_t>(c - 32) : c; });
    return text;
}

TEST(Cipher, PlainTextComesBackFromEitherCaseOfDigits) {
    const struct {
        const char* name;
        std::wstring plain;
        std::wstring back;
    } cases[] = {
        {"empty", L"", L""},
        {"one", L"!", L"!"},
        {"ends of the range", L"!\x7F", L"!\x7F"},
        {"longest", L"abcdefghijklmnopqrstuvwxyz", L"abcdefghijklmnopqrstuvwxyz"},
        {"a wide character keeps its low byte", L"x\x0141y", L"x\x41y"},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        const XEnDeCrypt cipher;
        const std::wstring stored = cipher.Encrypt(each.plain);
        EXPECT_EQ(stored.size(), 2 * each.plain.size());
        EXPECT_EQ(stored.find_first_not_of(L"0123456789abcdef"), std::wstring::npos);
        std::wstring plain = L"before";
        EXPECT_TRUE(cipher.Decrypt(stored, plain));
        EXPECT_EQ(plain, each.back);
        EXPECT_TRUE(cipher.Decrypt(Upper(stored), plain));
        EXPECT_EQ(plain, each.back);
    }
}

TEST(Cipher, EveryPositionHasItsOwnKeyAndTheStoredFormNeverChanges) {
    // Written once by this cipher: passwords that lie in data stores must stay readable.
    EXPECT_EQ(XEnDeCrypt().Encrypt(L"AAAAAAAAAAAAAAAAAAAAAAAAAA"),
              L"7ad01f66992b4ef235a85dc403bb77dc1960"
              L"8f3156e70caa78c3");
}

TEST(Cipher, RefusesCharactersByTheirSignedLowByte) {
    const struct {
        const char* name;
        wchar_t character;
        bool invalid;
    } cases[] = {
        {"tab", L'\t', true},
        {"space", L' ', true},
        {"lowest", L'!', false},
        {"tilde", L'~', false},
        {"highest", L'\x7F', false},
        {"128 reads as negative", 0x80, true},
        {"e acute", 0xE9, true},
        {"255", 0xFF, true},
        {"low byte in range", 0x0141, false},
        {"low byte too low", 0x0120, true},
        {"low byte negative", 0x20AC, true},
    };
    const XEnDeCrypt cipher;
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        const std::wstring text = {L'a', each.character, L'b'};
        EXPECT_EQ(cipher.ContainsInvalidChar(text), each.invalid);
        EXPECT_EQ(cipher.Encrypt(text).empty(), each.invalid);
    }
}

TEST(Cipher, RefusesStoredTextsThatCannotBeDeciphered) {
    const XEnDeCrypt cipher;
    const std::wstring stored = cipher.Encrypt(L"abc");
    std::wstring plain = L"before";
    EXPECT_FALSE(cipher.Decrypt(stored.substr(0, 3), plain));
    EXPECT_EQ(plain, L"");

    // A space, written with the first key byte.
    const unsigned key = [&] {
        std::wstring a = cipher.Encrypt(L"@");
        return static_cast<unsigned>(std::stoul(a, nullptr, 16)) ^ unsigned { '@' };
    }();
    wchar_t digits[3] = {};
    digits[0] = L"0123456789abcdef"[((key ^ unsigned{' '}) >> 4) & 0xF];
    digits[1] = L"0123456789abcdef"[(key ^ unsigned{' '}) & 0xF];
    plain = L"before";
    EXPECT_FALSE(cipher.Decrypt(digits, plain));
    EXPECT_EQ(plain, L"");
}

TEST(Cipher, CountsAnythingButADigitAsZero) {
    const XEnDeCrypt cipher;
    std::wstring fromZeros;
    std::wstring fromLetters;
    const bool zerosPass = cipher.Decrypt(L"0000", fromZeros);
    EXPECT_EQ(cipher.Decrypt(L"gz -", fromLetters), zerosPass);
    EXPECT_EQ(fromLetters, fromZeros);
    EXPECT_EQ(fromZeros.size(), zerosPass ? 2U : 0U);
}

TEST(Cipher, ListsTheAllowedCharacters) {
    std::vector<std::uint8_t> characters{1, 2};
    XEnDeCrypt().GetAllowedChars(characters);
    ASSERT_EQ(characters.size(), 95U);
    EXPECT_EQ(characters.front(), 33);
    EXPECT_EQ(characters.back(), 127);
}

// Deliberate: the key has no byte for a 27th character, and going on with another one would make a text that nobody
// can read back.
TEST(CipherDeathTest, EndsTheProgramPastTheKey) {
#if GTEST_HAS_DEATH_TEST
    EXPECT_DEATH((void)XEnDeCrypt().Encrypt(std::wstring(27, L'a')), "");
#else
    GTEST_SKIP() << "a program's end cannot be watched here";
#endif
}

}  // namespace
