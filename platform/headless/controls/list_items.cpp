#include "platform/headless/controls/list_items.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace qv::headless {

namespace {

int Compare(std::wstring_view a, std::wstring_view b) {
    return CompareStringW(LOCALE_USER_DEFAULT, NORM_IGNORECASE, a.data(), static_cast<int>(a.size()), b.data(),
                          static_cast<int>(b.size())) -
           CSTR_EQUAL;
}

}  // namespace

ListItem ListItem::FromParameter(LPARAM parameter, bool hasStrings) {
    ListItem item;
    if (!hasStrings) {
        item.data = static_cast<ULONG_PTR>(parameter);
    } else if (parameter != 0) {
        item.text = reinterpret_cast<LPCWSTR>(parameter);
    }
    return item;
}

LRESULT ListItem::Length(bool hasStrings) const {
    return static_cast<LRESULT>(hasStrings ? text.size() : sizeof data);
}

LRESULT ListItem::CopyTo(LPVOID buffer, bool hasStrings) const {
    if (hasStrings) {
        std::memcpy(buffer, text.c_str(), (text.size() + 1) * sizeof(wchar_t));
    } else {
        std::memcpy(buffer, &data, sizeof data);
    }
    return Length(hasStrings);
}

int ListItems::SortedPosition(std::wstring_view text) const {
    const auto place =
        std::lower_bound(m_items.begin(), m_items.end(), text,
                         [](const ListItem& item, std::wstring_view t) { return Compare(item.text, t) < 0; });
    return static_cast<int>(place - m_items.begin());
}

void ListItems::Insert(int index, ListItem item) {
    m_items.insert(m_items.begin() + index, std::move(item));
}

void ListItems::Erase(int index) {
    m_items.erase(m_items.begin() + index);
}

template <class Matches>
int ListItems::Find(LONG_PTR after, Matches matches) const {
    const int count = Count();
    const int start = Holds(after) ? static_cast<int>(after) + 1 : 0;
    for (int step = 0; step < count; ++step) {
        const int index = (start + step) % count;
        if (matches((*this)[index].text)) return index;
    }
    return LB_ERR;
}

int ListItems::FindPrefix(LONG_PTR after, std::wstring_view prefix) const {
    return Find(after, [prefix](std::wstring_view text) {
        return text.size() >= prefix.size() && Compare(text.substr(0, prefix.size()), prefix) == 0;
    });
}

int ListItems::FindExact(LONG_PTR after, std::wstring_view wanted) const {
    return Find(after, [wanted](std::wstring_view text) {
        // Texts that are equal but for case have the same length here, which spares most comparisons.
        return text.size() == wanted.size() && Compare(text, wanted) == 0;
    });
}

}  // namespace qv::headless
