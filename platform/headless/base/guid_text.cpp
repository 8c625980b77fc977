#include <algorithm>
#include <string>

#include "platform/headless/base/com.h"

namespace {

constexpr std::size_t kLength = 38;

void AppendHex(std::wstring& text, std::uint32_t value, int digits) {
    for (int shift = 4 * (digits - 1); shift >= 0; shift -= 4)
        text.push_back(L"0123456789ABCDEF"[(value >> shift) & 15]);
}

std::wstring TextOf(REFGUID guid) {
    std::wstring text = L"{";
    AppendHex(text, guid.Data1, 8);
    text.push_back(L'-');
    AppendHex(text, guid.Data2, 4);
    text.push_back(L'-');
    AppendHex(text, guid.Data3, 4);
    text.push_back(L'-');
    for (int i = 0; i < 8; ++i) {
        if (i == 2) text.push_back(L'-');
        AppendHex(text, guid.Data4[i], 2);
    }
    text.push_back(L'}');
    return text;
}

}  // namespace

int StringFromGUID2(REFGUID guid, LPWSTR buffer, int size) {
    if (buffer == nullptr || size <= static_cast<int>(kLength)) return 0;
    const std::wstring text = TextOf(guid);
    *std::copy(text.begin(), text.end(), buffer) = 0;
    return static_cast<int>(kLength) + 1;
}
