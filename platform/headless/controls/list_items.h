// The entries of a list box or of a combo box's list: text, data and mark, with the platform's way of sorting and
// searching, which ignores case. Appending without sorting costs the same however long the list is.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/platform.h"

namespace qv::headless {

struct ListItem {
    std::wstring text;
    ULONG_PTR data = 0;
    bool selected = false;

    // From the parameter of a message that adds an entry: a text (null is the empty one), or the data of a list without
    // strings.
    static ListItem FromParameter(LPARAM parameter, bool hasStrings);
    // What a message that reads the entry answers: the text's length without its terminator, or the size of the data.
    LRESULT Length(bool hasStrings) const;
    // Fills the buffer with the text and its terminator, or with the data. Returns Length().
    LRESULT CopyTo(LPVOID buffer, bool hasStrings) const;
};

// Indexes count from 0; LB_ERR stands for none.
class ListItems {
public:
    int Count() const { return static_cast<int>(m_items.size()); }
    bool Holds(LONG_PTR index) const { return index >= 0 && index < Count(); }
    ListItem& operator[](int index) { return m_items[static_cast<size_t>(index)]; }
    const ListItem& operator[](int index) const { return m_items[static_cast<size_t>(index)]; }

    // Where a text belongs in a sorted list: in front of the first that is not smaller.
    int SortedPosition(std::wstring_view text) const;
    void Insert(int index, ListItem item);
    void Erase(int index);
    void Clear() { m_items.clear(); }

    // Searching starts behind the given item, goes round, and ends with that item; an index outside starts at the top.
    int FindPrefix(LONG_PTR after, std::wstring_view prefix) const;
    int FindExact(LONG_PTR after, std::wstring_view text) const;

private:
    template <class Matches>
    int Find(LONG_PTR after, Matches matches) const;

    std::vector<ListItem> m_items;
};

}  // namespace qv::headless
