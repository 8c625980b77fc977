#include "platform/headless/base/locale.h"

#include <algorithm>
#include <string>

namespace {

struct LocaleFacts {
    LCID locale;
    const wchar_t* decimal;
    const wchar_t* thousands;
    const wchar_t* currency;
};

constexpr LocaleFacts kLocales[] = {
    {0x0409, L".", L",", L"$"},        {0x0809, L".", L",", L"\u00A3"},      {0x0407, L",", L".", L"\u20AC"},
    {0x0807, L".", L"\u2019", L"CHF"}, {0x0C07, L",", L"\u00A0", L"\u20AC"}, {0x040C, L",", L"\u202F", L"\u20AC"},
    {0x0410, L",", L".", L"\u20AC"},   {0x040A, L",", L".", L"\u20AC"},      {0x007F, L".", L",", L"\u00A4"},
};

constexpr LCID kUserLocale = 0x0409;

const LocaleFacts* Find(LCID locale) {
    const auto* found = std::find_if(std::begin(kLocales), std::end(kLocales),
                                     [&](const LocaleFacts& facts) { return facts.locale == (locale & 0xFFFF); });
    return found == std::end(kLocales) ? nullptr : found;
}

}  // namespace

LCID GetUserDefaultLCID() {
    return kUserLocale;
}
LCID GetSystemDefaultLCID() {
    return kUserLocale;
}

int GetLocaleInfoW(LCID locale, LCTYPE type, LPWSTR buffer, int size) {
    if (size < 0 || (size > 0 && buffer == nullptr)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    // The user has changed nothing, so with and without their changes is the same.
    type &= ~LOCALE_NOUSEROVERRIDE;
    const LCID wanted = locale == LOCALE_NEUTRAL || locale == LOCALE_USER_DEFAULT ? GetUserDefaultLCID()
                        : locale == LOCALE_SYSTEM_DEFAULT                         ? GetSystemDefaultLCID()
                                                                                  : locale;
    const LocaleFacts* facts = Find(wanted);
    if (facts == nullptr) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    std::wstring text;
    switch (type) {
        case LOCALE_SDECIMAL:
            text = facts->decimal;
            break;
        case LOCALE_STHOUSAND:
            text = facts->thousands;
            break;
        case LOCALE_SCURRENCY:
            text = facts->currency;
            break;
        default:
            SetLastError(ERROR_INVALID_FLAGS);
            return 0;
    }
    const int length = static_cast<int>(text.size()) + 1;
    if (size == 0) return length;
    if (size < length) {
        SetLastError(ERROR_INSUFFICIENT_BUFFER);
        return 0;
    }
    std::copy_n(text.c_str(), length, buffer);
    return length;
}
