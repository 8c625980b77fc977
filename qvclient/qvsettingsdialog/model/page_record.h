// PageRecord: the model's description of one page, which the property sheet and its page show. It owns the row groups,
// the rows in them and the special controls; page and layout manager borrow them.
#pragma once

#include <array>
#include <deque>
#include <memory>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "qvclient/qvsettingsdialog/model/item.h"

class PageRecord {
public:
    // Every loader uses one group, number 1.
    static constexpr int kGroupNumber = 1;

    PageRecord();
    ~PageRecord();
    PageRecord(const PageRecord&) = delete;
    PageRecord& operator=(const PageRecord&) = delete;

    // Appends the row, whose name is the item key and stays as it is, to group 1.
    void AddItem(std::unique_ptr<qv::LayoutRows::Column> row, ItemFacts facts);
    void AddControl(SpecialControlKind kind, std::unique_ptr<SpecialControl> control);
    // An item with a control of its own, which learns its cell.
    void AddItem(std::unique_ptr<qv::LayoutRows::Column> row, ItemFacts facts, SpecialControlKind kind,
                 std::unique_ptr<SpecialControl> control);

    // In loading order; an item's place is its row's index.
    [[nodiscard]] const std::deque<Item>& Items() const noexcept { return m_items; }
    // Kinds in the order in which each appeared first.
    [[nodiscard]] const std::vector<SpecialControlKind>& ControlKinds() const noexcept { return m_kinds; }
    // In loading order.
    [[nodiscard]] const std::vector<std::unique_ptr<SpecialControl>>& Controls(SpecialControlKind kind) const noexcept;
    [[nodiscard]] std::vector<qv::LayoutRows::Group*> Groups() const;

    // Null when no item with this key has one. Of items with one key the first that has one answers.
    [[nodiscard]] const SESSIONDATATYPE* FindScope(std::wstring_view itemKey);
    [[nodiscard]] const RangePair* FindRange(std::wstring_view itemKey);

    // What the items with one key share.
    struct Shared {
        const SESSIONDATATYPE* scope = nullptr;
        const RangePair* range = nullptr;
    };
    // The same answers for an item of this page, by its row.
    [[nodiscard]] const Shared& SharedOf(const qv::LayoutRows::Column& row);

private:
    void IndexNewItems();

    std::vector<SpecialControlKind> m_kinds;
    std::vector<std::unique_ptr<qv::LayoutRows::Group>> m_groups;
    std::array<std::vector<std::unique_ptr<SpecialControl>>, kSpecialControlKinds> m_controls;
    std::deque<Item> m_items;
    // Loading only appends items; the index is made when it is first asked for, which most dialogs never do.
    std::unordered_map<std::wstring_view, Shared> m_index;
    std::vector<const Shared*> m_shared;  // by item
};
