// XEnDeCrypt: the cipher of stored passwords and the rule which characters a password may hold. A repeating-key XOR
// written as two hexadecimal digits a character: it keeps a password from being read at a glance, nothing more.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

class XEnDeCrypt {
public:
    XEnDeCrypt();
    virtual ~XEnDeCrypt();
    XEnDeCrypt(const XEnDeCrypt&) = delete;
    XEnDeCrypt& operator=(const XEnDeCrypt&) = delete;

    // The enciphered form in lower-case digits; empty when a character is outside the allowed range. At most 26
    // characters: a longer text ends the program, because the key has no more.
    [[nodiscard]] std::wstring Encrypt(std::wstring_view plain) const;
    // False, with plain empty, for an odd number of digits or a character outside the allowed range. Digits in either
    // case; anything else counts as 0. At most 52 digits, as above.
    [[nodiscard]] bool Decrypt(std::wstring_view enciphered, std::wstring& plain) const;
    [[nodiscard]] bool ContainsInvalidChar(std::wstring_view text) const noexcept;
    // Both inside.
    void GetCharRange(std::uint8_t& lowest, std::uint8_t& highest) const noexcept;
    void GetAllowedChars(std::vector<std::uint8_t>& characters) const;

private:
    [[nodiscard]] std::uint8_t KeyAt(std::size_t index) const;
    [[nodiscard]] std::size_t NextKeyIndex(std::size_t index) const noexcept;

    std::vector<std::uint8_t> m_key;
    std::uint8_t m_lowest = 33;
    std::uint8_t m_highest = 127;
};
