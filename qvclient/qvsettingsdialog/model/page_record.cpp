#include "qvclient/qvsettingsdialog/model/page_record.h"

#include <algorithm>

PageRecord::PageRecord() = default;

PageRecord::~PageRecord() {
    // Controls before the rows that show them.
    for (auto& controls : m_controls)
        controls.clear();
}

std::pair<int, int> PageRecord::AddRow(std::unique_ptr<XLayout::Column> row) {
    if (m_groups.empty()) {
        m_groups.push_back(std::make_unique<XLayout::Group>(nullptr, kGroupNumber, std::wstring(), false, nullptr,
                                                            std::vector<std::unique_ptr<XLayout::Column>>(),
                                                            std::wstring(), false, true));
    }
    auto& rows = m_groups[kGroupNumber - 1]->columns;
    rows.push_back(std::move(row));
    return {static_cast<int>(rows.size()) - 1, kGroupNumber - 1};
}

void PageRecord::AddControl(SpecialControlKind kind, std::unique_ptr<SpecialControl> control) {
    if (std::find(m_kinds.begin(), m_kinds.end(), kind) == m_kinds.end()) m_kinds.push_back(kind);
    m_controls.at(static_cast<std::size_t>(static_cast<int>(kind) - kFirstKind)).push_back(std::move(control));
}

void PageRecord::AddDefault(std::wstring_view itemKey, std::wstring defaultText) {
    m_defaults.emplace_back(itemKey, std::move(defaultText));
}

void PageRecord::SetScope(std::wstring_view itemKey, SESSIONDATATYPE scope) {
    m_scopes.try_emplace(std::wstring(itemKey), scope);
}

void PageRecord::SetRange(std::wstring_view itemKey, RangePair range) {
    m_ranges.try_emplace(std::wstring(itemKey), range);
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

const SESSIONDATATYPE* PageRecord::FindScope(const std::wstring& itemKey) const {
    const auto found = m_scopes.find(itemKey);
    return found != m_scopes.end() ? &found->second : nullptr;
}

const RangePair* PageRecord::FindRange(const std::wstring& itemKey) const {
    const auto found = m_ranges.find(itemKey);
    return found != m_ranges.end() ? &found->second : nullptr;
}
