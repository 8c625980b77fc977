#include "qvclient/qvsettingsdialog/controls/en_de_crypt.h"

#include <cstdlib>
#include <iterator>

#include "base/wipe.h"
#include "platform/platform.h"

namespace {

// Fixed for good: what was stored with other bytes cannot be read back. The first one takes no part in the cipher.
constexpr std::uint8_t kKey[] = {0xC4, 0x3B, 0x91, 0x5E, 0x27, 0xD8, 0x6A, 0x0F, 0xB3, 0x74, 0xE9, 0x1C, 0x85, 0x42,
                                 0xFA, 0x36, 0x9D, 0x58, 0x21, 0xCE, 0x70, 0x17, 0xA6, 0x4D, 0xEB, 0x39, 0x82};

constexpr std::size_t kFirstKeyIndex = 1;

// Lengths are counted in a byte.
std::uint8_t CountOf(std::wstring_view text) noexcept {
    return static_cast<std::uint8_t>(text.size());
}

std::uint8_t LowByte(wchar_t character) noexcept {
    return static_cast<std::uint8_t>(character);
}

// Deliberate: whatever is no digit counts as 0; the character rule finds what comes of it, if anything does.
unsigned DigitValue(wchar_t character) noexcept {
    wchar_t pair[] = {character, L'\0'};
    ::CharUpperBuffW(pair, 1);
    const std::uint8_t digit = LowByte(pair[0]);
    if (digit >= '0' && digit <= '9') return digit - unsigned{'0'};
    if (digit >= 'A' && digit <= 'F') return digit - unsigned{'A'} + 10;
    return 0;
}

wchar_t LowerHexDigit(unsigned value) noexcept {
    return L"0123456789abcdef"[value & 0xF];
}

}  // namespace

XEnDeCrypt::XEnDeCrypt() : m_key(std::begin(kKey), std::end(kKey)) {}

XEnDeCrypt::~XEnDeCrypt() = default;

std::wstring XEnDeCrypt::Encrypt(std::wstring_view plain) const {
    if (ContainsInvalidChar(plain)) return {};
    const std::uint8_t count = CountOf(plain);
    std::wstring enciphered;
    enciphered.reserve(std::size_t{count} * 2);
    std::size_t key = kFirstKeyIndex;
    for (std::size_t i = 0; i < count; ++i) {
        const unsigned value = static_cast<unsigned>(LowByte(plain[i])) ^ KeyAt(key);
        enciphered += LowerHexDigit(value >> 4);
        enciphered += LowerHexDigit(value);
        key = NextKeyIndex(key);
    }
    return enciphered;
}

bool XEnDeCrypt::Decrypt(std::wstring_view enciphered, std::wstring& plain) const {
    plain.clear();
    const std::uint8_t count = CountOf(enciphered);
    if (count % 2 != 0) return false;
    std::wstring decoded;
    decoded.reserve(count / 2U);
    std::size_t key = kFirstKeyIndex;
    for (std::size_t i = 0; i < count; i += 2) {
        const auto value = static_cast<std::uint8_t>(16 * DigitValue(enciphered[i]) + DigitValue(enciphered[i + 1]));
        decoded += static_cast<wchar_t>(value ^ KeyAt(key));
        key = NextKeyIndex(key);
    }
    const bool valid = !ContainsInvalidChar(decoded);
    if (valid) plain.swap(decoded);
    qv::Wipe(decoded);
    return valid;
}

// Deliberate: only the low byte counts, and as a signed number. Everything from 128 is negative and thus below the
// range, a wider character passes on its low byte, and the upper bound never refuses anything.
bool XEnDeCrypt::ContainsInvalidChar(std::wstring_view text) const noexcept {
    for (const wchar_t character : text) {
        const int value = static_cast<std::int8_t>(LowByte(character));
        if (value < m_lowest || value > m_highest) return true;
    }
    return false;
}

void XEnDeCrypt::GetCharRange(std::uint8_t& lowest, std::uint8_t& highest) const noexcept {
    lowest = m_lowest;
    highest = m_highest;
}

void XEnDeCrypt::GetAllowedChars(std::vector<std::uint8_t>& characters) const {
    characters.clear();
    for (unsigned code = m_lowest; code <= m_highest; ++code)
        characters.push_back(static_cast<std::uint8_t>(code));
}

std::uint8_t XEnDeCrypt::KeyAt(std::size_t index) const {
    if (index >= m_key.size()) std::abort();
    return m_key[index];
}

// Deliberate: the index starts over only after it has passed the key's end, so a 27th character has no key byte.
// Stored values depend on the order.
std::size_t XEnDeCrypt::NextKeyIndex(std::size_t index) const noexcept {
    return index < m_key.size() ? index + 1 : kFirstKeyIndex;
}
