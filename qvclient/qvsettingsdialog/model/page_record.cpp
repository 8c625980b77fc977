#include "qvclient/qvsettingsdialog/model/page_record.h"

#include <algorithm>

template <class Value>
const Value* PageRecord::Table<Value>::Find(std::wstring_view itemKey) {
    for (; m_indexed < m_entries.size(); ++m_indexed)
        m_index.try_emplace(m_entries[m_indexed].first, m_indexed);
    const auto found = m_index.find(itemKey);
    return found != m_index.end() ? &m_entries[found->second].second : nullptr;
}

PageRecord::PageRecord() = default;

PageRecord::~PageRecord() {
    // Controls before the rows that show them.
    for (auto& controls : m_controls)
        controls.clear();
}

std::pair<int, int> PageRecord::AddItem(std::unique_ptr<XLayout::Column> row, ItemFacts facts) {
    if (m_groups.empty()) {
        m_groups.push_back(std::make_unique<XLayout::Group>(nullptr, kGroupNumber, std::wstring(), false, nullptr,
                                                            std::vector<std::unique_ptr<XLayout::Column>>(),
                                                            std::wstring(), false, true));
    }
    auto& rows = m_groups[kGroupNumber - 1]->columns;
    const std::wstring_view itemKey = row->name;
    rows.push_back(std::move(row));
    if (facts.defaultText) m_defaults.push_back({itemKey, *std::move(facts.defaultText)});
    if (facts.scope) m_scopes.Append(itemKey, *facts.scope);
    if (facts.range) m_ranges.Append(itemKey, *facts.range);
    return {static_cast<int>(rows.size()) - 1, kGroupNumber - 1};
}

void PageRecord::AddControl(SpecialControlKind kind, std::unique_ptr<SpecialControl> control) {
    if (std::find(m_kinds.begin(), m_kinds.end(), kind) == m_kinds.end()) m_kinds.push_back(kind);
    m_controls.at(static_cast<std::size_t>(static_cast<int>(kind) - kFirstKind)).push_back(std::move(control));
}

const std::vector<std::unique_ptr<SpecialControl>>& PageRecord::Controls(SpecialControlKind kind) const noexcept {
    return m_controls[static_cast<std::size_t>(static_cast<int>(kind) - kFirstKind)];
}

std::vector<XLayout::Group*> PageRecord::Groups() const {
    std::vector<XLayout::Group*> groups;
    for (const auto& group : m_groups)
        groups.push_back(group.get());
    return groups;
}

const SESSIONDATATYPE* PageRecord::FindScope(std::wstring_view itemKey) {
    return m_scopes.Find(itemKey);
}

const RangePair* PageRecord::FindRange(std::wstring_view itemKey) {
    return m_ranges.Find(itemKey);
}
