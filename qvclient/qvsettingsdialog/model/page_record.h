// PageRecord: the model's description of one page, which the property sheet and its page show. It owns the row groups,
// the rows in them and the special controls; page and layout manager borrow them.
#pragma once

#include <array>
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "host/interfaces/session_data.h"
#include "host/libraries/layout.h"
#include "qvclient/qvsettingsdialog/controls/special_control.h"
#include "qvclient/qvsettingsdialog/model/range.h"

// What a page keeps of an item beside its row.
struct ItemFacts {
    std::optional<SESSIONDATATYPE> scope;     // every item that was loaded has one
    std::optional<RangePair> range;           // of numbers
    std::optional<std::wstring> defaultText;  // not of special controls, which keep theirs themselves
};

class PageRecord {
public:
    // Every loader uses one group, number 1.
    static constexpr int kGroupNumber = 1;

    PageRecord();
    ~PageRecord();
    PageRecord(const PageRecord&) = delete;
    PageRecord& operator=(const PageRecord&) = delete;

    // Appends the row, whose name is the item key and stays as it is, to group 1. Returns its cell.
    std::pair<int, int> AddItem(std::unique_ptr<XLayout::Column> row, ItemFacts facts);
    void AddControl(SpecialControlKind kind, std::unique_ptr<SpecialControl> control);

    // Kinds in the order in which each appeared first.
    [[nodiscard]] const std::vector<SpecialControlKind>& ControlKinds() const noexcept { return m_kinds; }
    // In loading order.
    [[nodiscard]] const std::vector<std::unique_ptr<SpecialControl>>& Controls(SpecialControlKind kind) const noexcept;
    [[nodiscard]] std::vector<XLayout::Group*> Groups() const;

    // The defaults of rows, in loading order.
    struct Default {
        std::wstring_view itemKey;  // the row's name
        std::wstring text;
    };
    [[nodiscard]] const std::deque<Default>& Defaults() const noexcept { return m_defaults; }
    // Null when the item is not in the table. Of items with one key the first one in the table answers.
    [[nodiscard]] const SESSIONDATATYPE* FindScope(std::wstring_view itemKey);
    [[nodiscard]] const RangePair* FindRange(std::wstring_view itemKey);

private:
    static constexpr int kFirstKind = static_cast<int>(SpecialControlKind::CheckedList);
    static constexpr int kKindCount = 6;

    // One column of the page's items. Loading only appends; the index by key is made when it is first asked for,
    // which most dialogs never do. The keys are the names of the page's rows.
    template <class Value>
    class Table {
    public:
        void Append(std::wstring_view itemKey, const Value& value) { m_entries.emplace_back(itemKey, value); }
        [[nodiscard]] const Value* Find(std::wstring_view itemKey);

    private:
        std::deque<std::pair<std::wstring_view, Value>> m_entries;
        std::unordered_map<std::wstring_view, std::size_t> m_index;
        std::size_t m_indexed = 0;
    };

    std::vector<SpecialControlKind> m_kinds;
    std::vector<std::unique_ptr<XLayout::Group>> m_groups;
    std::array<std::vector<std::unique_ptr<SpecialControl>>, kKindCount> m_controls;
    std::deque<Default> m_defaults;
    Table<SESSIONDATATYPE> m_scopes;
    Table<RangePair> m_ranges;
};
