// PageRecord: the model's description of one page, which the property sheet and its page show. It owns the row groups,
// the rows in them and the special controls; page and layout manager borrow them.
#pragma once

#include <array>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "host/interfaces/session_data.h"
#include "host/libraries/layout.h"
#include "qvclient/qvsettingsdialog/controls/special_control.h"
#include "qvclient/qvsettingsdialog/model/range.h"

class PageRecord {
public:
    // Every loader uses one group, number 1.
    static constexpr int kGroupNumber = 1;

    PageRecord();
    ~PageRecord();
    PageRecord(const PageRecord&) = delete;
    PageRecord& operator=(const PageRecord&) = delete;

    // Appends the row to group 1 and returns its cell.
    std::pair<int, int> AddRow(std::unique_ptr<XLayout::Column> row);
    void AddControl(SpecialControlKind kind, std::unique_ptr<SpecialControl> control);
    void AddDefault(std::wstring_view itemKey, std::wstring defaultText);
    // Of items with one key the first wins.
    void SetScope(std::wstring_view itemKey, SESSIONDATATYPE scope);
    void SetRange(std::wstring_view itemKey, RangePair range);

    // Kinds in the order in which each appeared first.
    [[nodiscard]] const std::vector<SpecialControlKind>& ControlKinds() const noexcept { return m_kinds; }
    // In loading order.
    [[nodiscard]] const std::vector<std::unique_ptr<SpecialControl>>& Controls(SpecialControlKind kind) const noexcept;
    [[nodiscard]] std::vector<XLayout::Group*> Groups() const;
    // Item key and default text, in loading order.
    [[nodiscard]] const std::vector<std::pair<std::wstring, std::wstring>>& Defaults() const noexcept {
        return m_defaults;
    }
    // Null when the item is not in the table.
    [[nodiscard]] const SESSIONDATATYPE* FindScope(const std::wstring& itemKey) const;
    [[nodiscard]] const RangePair* FindRange(const std::wstring& itemKey) const;

private:
    static constexpr int kFirstKind = static_cast<int>(SpecialControlKind::CheckedList);
    static constexpr int kKindCount = 6;

    std::vector<SpecialControlKind> m_kinds;
    std::vector<std::unique_ptr<XLayout::Group>> m_groups;
    std::array<std::vector<std::unique_ptr<SpecialControl>>, kKindCount> m_controls;
    std::vector<std::pair<std::wstring, std::wstring>> m_defaults;
    std::unordered_map<std::wstring, SESSIONDATATYPE> m_scopes;
    std::unordered_map<std::wstring, RangePair> m_ranges;
};
