// Comparison in the platform's word order: letters without regard to marks and case first, then marks, then case, and
// hyphens and apostrophes last of all, so that "co-op" stands beside "coop".
#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "platform/headless/base/encoding.h"
#include "platform/headless/base/locale.h"

namespace {

using qv::headless::LowerOf;
using qv::headless::UpperOf;

// Everything that sorts before the digits, in order.
constexpr std::wstring_view kSymbols =
    L" \u00A0\t\n\v\f\r!\"#$%&()*,./:;?@[\\]^_`{|}~\u00A1\u00A6\u00A8\u00AF\u00B4\u00B8\u00BF\u2018\u2019\u201C\u201D"
    L"\u00A2\u00A3\u00A4\u00A5\u20AC+<=>\u00B1\u00AB\u00BB\u00D7\u00F7\u00A7\u00A9\u00AC\u00AE\u00B0\u00B5\u00B6\u00B7";
constexpr std::wstring_view kDigits = L"0\u00BC\u00BD\u00BE1\u00B92\u00B23\u00B3456789";
// A letter and those that differ from it by a mark only, in order.
constexpr std::wstring_view kLetters[] = {
    L"a\u00AA\u00E1\u00E0\u00E2\u00E4\u0103\u0101\u00E3\u00E5\u0105\u00E6",
    L"b",
    L"c\u0107\u010B\u0109\u010D\u00E7",
    L"d\u010F\u0111\u00F0",
    L"e\u00E9\u00E8\u0117\u00EA\u00EB\u011B\u0115\u0113\u0119",
    L"f",
    L"g\u0121\u011D\u011F\u0123",
    L"h\u0125\u0127",
    L"i\u0131\u00ED\u00EC\u0130\u00EE\u00EF\u012D\u012B\u0129\u012F\u0133",
    L"j\u0135",
    L"k\u0138\u0137",
    L"l\u013A\u0140\u013E\u013C\u0142",
    L"m",
    L"n\u0144\u0148\u00F1\u0146\u0149\u014B",
    L"o\u00BA\u00F3\u00F2\u00F4\u00F6\u014F\u014D\u00F5\u0151\u00F8\u0153",
    L"p",
    L"q",
    L"r\u0155\u0159\u0157",
    L"s\u015B\u015D\u0161\u015F",
    L"t\u0165\u0163\u00FE\u0167",
    L"u\u00FA\u00F9\u00FB\u00FC\u016D\u016B\u0169\u016F\u0173\u0171",
    L"v",
    L"w\u0175",
    L"x",
    L"y\u00FD\u0177\u00FF",
    L"z\u017A\u017C\u017E",
};
constexpr wchar_t kSharpS = L'\u00DF';

struct Weight {
    unsigned primary = 0;
    unsigned mark = 0;
    bool upper = false;
};

bool IsSpecial(wchar_t unit) {
    return unit == L'-' || unit == L'\'' || unit == L'\u2013' || unit == L'\u2014' || unit == L'\u00AD' ||
           (unit < L' ' && (unit < L'\t' || unit > L'\r'));
}

constexpr unsigned kFirstSymbol = 0x100;
constexpr unsigned kFirstDigit = 0x200;
constexpr unsigned kFirstLetter = 0x300;
constexpr unsigned kFirstOther = 0x1000;

std::array<Weight, 0x180> MakeTable() {
    std::array<Weight, 0x180> table;
    for (std::size_t letter = 0; letter < std::size(kLetters); ++letter) {
        for (std::size_t mark = 0; mark < kLetters[letter].size(); ++mark) {
            const auto unit = static_cast<std::size_t>(kLetters[letter][mark]);
            const auto primary = static_cast<unsigned>(kFirstLetter + letter);
            table[unit] = {primary, static_cast<unsigned>(mark), false};
            const auto upper = static_cast<std::size_t>(UpperOf(static_cast<wchar_t>(unit)));
            if (upper != unit && upper < table.size()) table[upper] = {primary, static_cast<unsigned>(mark), true};
        }
    }
    return table;
}

Weight WeightOf(wchar_t unit) {
    static const auto s_table = MakeTable();
    const auto code = static_cast<std::size_t>(unit);
    if (code < s_table.size() && s_table[code].primary != 0) return s_table[code];
    if (const auto at = kSymbols.find(unit); at != std::wstring_view::npos) {
        return {kFirstSymbol + static_cast<unsigned>(at), 0, false};
    }
    if (const auto at = kDigits.find(unit); at != std::wstring_view::npos) {
        return {kFirstDigit + static_cast<unsigned>(at), 0, false};
    }
    const wchar_t lower = LowerOf(unit);
    return {kFirstOther + static_cast<unsigned>(lower), 0, lower != unit};
}

struct Key {
    std::vector<Weight> weights;
    // A special unit and the number of ordinary ones before it.
    std::vector<std::pair<std::size_t, wchar_t>> specials;
};

Key MakeKey(std::wstring_view text, bool specialsAreSymbols) {
    Key key;
    for (const wchar_t unit : text) {
        if (unit == 0) continue;
        if (IsSpecial(unit)) {
            if (specialsAreSymbols) {
                key.weights.push_back({1 + static_cast<unsigned>(unit) % kFirstSymbol, 0, false});
            } else {
                key.specials.emplace_back(key.weights.size(), unit);
            }
        } else if (unit == kSharpS) {
            key.weights.push_back(WeightOf(L's'));
            key.weights.push_back(WeightOf(L's'));
        } else {
            key.weights.push_back(WeightOf(unit));
        }
    }
    return key;
}

template <typename Member>
int CompareLevel(const Key& first, const Key& second, Member member) {
    const auto common = std::min(first.weights.size(), second.weights.size());
    for (std::size_t i = 0; i < common; ++i) {
        const auto a = first.weights[i].*member;
        const auto b = second.weights[i].*member;
        if (a != b) return a < b ? -1 : 1;
    }
    return 0;
}

int Compare(std::wstring_view first, std::wstring_view second, bool ignoreCase, bool specialsAreSymbols) {
    const Key a = MakeKey(first, specialsAreSymbols);
    const Key b = MakeKey(second, specialsAreSymbols);
    if (const int order = CompareLevel(a, b, &Weight::primary)) return order;
    if (a.weights.size() != b.weights.size()) return a.weights.size() < b.weights.size() ? -1 : 1;
    if (const int order = CompareLevel(a, b, &Weight::mark)) return order;
    if (!ignoreCase) {
        if (const int order = CompareLevel(a, b, &Weight::upper)) return order;
    }
    if (a.specials == b.specials) return 0;
    return a.specials < b.specials ? -1 : 1;
}

std::wstring_view View(LPCWSTR text, int length) {
    return length < 0 ? std::wstring_view(text) : std::wstring_view(text, static_cast<std::size_t>(length));
}

int CompareTerminated(LPCWSTR first, LPCWSTR second, bool ignoreCase) {
    if (first == nullptr || second == nullptr) return first == second ? 0 : first == nullptr ? -1 : 1;
    return Compare(first, second, ignoreCase, false);
}

int Map(LPCWSTR source, std::size_t length, LPWSTR destination, wchar_t (*map)(wchar_t) noexcept) {
    std::transform(source, source + length, destination, map);
    return static_cast<int>(length);
}

// Texts in place; a number below 65536 is a single character.
LPWSTR MapInPlace(LPWSTR text, wchar_t (*map)(wchar_t) noexcept) {
    if (IS_INTRESOURCE(text)) {
        const auto unit = static_cast<wchar_t>(reinterpret_cast<UINT_PTR>(text));
        return reinterpret_cast<LPWSTR>(static_cast<UINT_PTR>(map(unit)));
    }
    Map(text, std::wstring_view(text).size(), text, map);
    return text;
}

}  // namespace

int CompareStringW(LCID, DWORD flags, LPCWSTR first, int firstLength, LPCWSTR second, int secondLength) {
    if (first == nullptr || second == nullptr) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    return CSTR_EQUAL + Compare(View(first, firstLength), View(second, secondLength),
                                (flags & (NORM_IGNORECASE | LINGUISTIC_IGNORECASE)) != 0,
                                (flags & SORT_STRINGSORT) != 0);
}

int lstrcmpiW(LPCWSTR first, LPCWSTR second) {
    return CompareTerminated(first, second, true);
}

LPWSTR CharLowerW(LPWSTR text) {
    return MapInPlace(text, LowerOf);
}
DWORD CharLowerBuffW(LPWSTR text, DWORD length) {
    return text == nullptr ? 0 : static_cast<DWORD>(Map(text, length, text, LowerOf));
}
DWORD CharUpperBuffW(LPWSTR text, DWORD length) {
    return text == nullptr ? 0 : static_cast<DWORD>(Map(text, length, text, UpperOf));
}
