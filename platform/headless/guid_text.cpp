#include <algorithm>
#include <optional>
#include <string>
#include <string_view>

#include "platform/headless/com.h"
#include "platform/headless/registry.h"

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

// Reads exactly the given number of hexadecimal digits and moves on behind them.
std::optional<std::uint32_t> ReadHex(std::wstring_view& text, std::size_t digits) {
    std::uint32_t value = 0;
    for (const wchar_t unit : text.substr(0, digits)) {
        const int digit = unit >= L'0' && unit <= L'9'   ? unit - L'0'
                          : unit >= L'a' && unit <= L'f' ? unit - L'a' + 10
                          : unit >= L'A' && unit <= L'F' ? unit - L'A' + 10
                                                         : -1;
        if (digit < 0) return std::nullopt;
        value = (value << 4) | static_cast<std::uint32_t>(digit);
    }
    text.remove_prefix(digits);
    return value;
}

bool Skip(std::wstring_view& text, wchar_t unit) {
    if (text.empty() || text.front() != unit) return false;
    text.remove_prefix(1);
    return true;
}

std::optional<GUID> Parse(std::wstring_view text) {
    if (text.size() != kLength || !Skip(text, L'{')) return std::nullopt;
    GUID guid{};
    const auto data1 = ReadHex(text, 8);
    if (!data1 || !Skip(text, L'-')) return std::nullopt;
    const auto data2 = ReadHex(text, 4);
    if (!data2 || !Skip(text, L'-')) return std::nullopt;
    const auto data3 = ReadHex(text, 4);
    if (!data3 || !Skip(text, L'-')) return std::nullopt;
    guid.Data1 = *data1;
    guid.Data2 = static_cast<WORD>(*data2);
    guid.Data3 = static_cast<WORD>(*data3);
    for (int i = 0; i < 8; ++i) {
        if (i == 2 && !Skip(text, L'-')) return std::nullopt;
        const auto byte = ReadHex(text, 2);
        if (!byte) return std::nullopt;
        guid.Data4[i] = static_cast<BYTE>(*byte);
    }
    return Skip(text, L'}') ? std::optional(guid) : std::nullopt;
}

// The default value of a key under HKEY_CLASSES_ROOT.
std::optional<std::wstring> ReadClassesText(const std::wstring& subKey) {
    HKEY key = nullptr;
    if (RegOpenKeyExW(HKEY_CLASSES_ROOT, subKey.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return std::nullopt;
    wchar_t buffer[MAX_PATH] = {};
    DWORD size = sizeof(buffer) - sizeof(wchar_t);
    DWORD type = 0;
    const LSTATUS status = RegQueryValueExW(key, nullptr, nullptr, &type, reinterpret_cast<BYTE*>(buffer), &size);
    RegCloseKey(key);
    return status == ERROR_SUCCESS && type == REG_SZ ? std::optional<std::wstring>(buffer) : std::nullopt;
}

HRESULT Duplicate(const std::wstring& source, LPWSTR* text) {
    *text = static_cast<LPWSTR>(CoTaskMemAlloc((source.size() + 1) * sizeof(wchar_t)));
    if (*text == nullptr) return E_OUTOFMEMORY;
    std::copy_n(source.c_str(), source.size() + 1, *text);
    return S_OK;
}

}  // namespace

int StringFromGUID2(REFGUID guid, LPWSTR buffer, int size) {
    if (buffer == nullptr || size <= static_cast<int>(kLength)) return 0;
    std::copy_n(TextOf(guid).c_str(), kLength + 1, buffer);
    return static_cast<int>(kLength) + 1;
}

HRESULT StringFromCLSID(REFCLSID clsid, LPWSTR* text) {
    return text == nullptr ? E_INVALIDARG : Duplicate(TextOf(clsid), text);
}
HRESULT StringFromIID(REFIID iid, LPWSTR* text) {
    return StringFromCLSID(iid, text);
}

HRESULT CLSIDFromString(LPCWSTR text, LPCLSID clsid) {
    if (clsid == nullptr) return E_INVALIDARG;
    *clsid = GUID_NULL;
    if (text == nullptr) return S_OK;
    if (const auto parsed = Parse(text)) {
        *clsid = *parsed;
        return S_OK;
    }
    if (text[0] == L'{' || FAILED(CLSIDFromProgID(text, clsid))) return CO_E_CLASSSTRING;
    return S_OK;
}

HRESULT IIDFromString(LPCWSTR text, LPIID iid) {
    if (iid == nullptr) return E_INVALIDARG;
    *iid = GUID_NULL;
    if (text == nullptr) return S_OK;
    const auto parsed = Parse(text);
    // Too short or too long is a wrong argument; the right length with other contents is a wrong string.
    if (!parsed) return std::wstring_view(text).size() == kLength ? CO_E_IIDSTRING : E_INVALIDARG;
    *iid = *parsed;
    return S_OK;
}

HRESULT CLSIDFromProgID(LPCWSTR name, LPCLSID clsid) {
    if (name == nullptr || clsid == nullptr) return E_INVALIDARG;
    *clsid = GUID_NULL;
    const auto text = ReadClassesText(std::wstring(name) + L"\\CLSID");
    const auto parsed = text ? Parse(*text) : std::nullopt;
    if (!parsed) return CO_E_CLASSSTRING;
    *clsid = *parsed;
    return S_OK;
}

HRESULT ProgIDFromCLSID(REFCLSID clsid, LPWSTR* name) {
    if (name == nullptr) return E_INVALIDARG;
    *name = nullptr;
    const auto text = ReadClassesText(L"CLSID\\" + TextOf(clsid) + L"\\ProgID");
    return text ? Duplicate(*text, name) : REGDB_E_CLASSNOTREG;
}
