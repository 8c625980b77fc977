#include "qvclient/qvsettingsdialog/model/page_record.h"

#include <algorithm>

using qv::LayoutRows;

PageRecord::PageRecord() = default;

PageRecord::~PageRecord() {
    // Controls before the rows that show them.
    for (auto& controls : m_controls)
        controls.clear();
}

void PageRecord::AddItem(std::unique_ptr<LayoutRows::Column> row, ItemFacts facts) {
    if (m_groups.empty()) {
        m_groups.push_back(std::make_unique<LayoutRows::Group>(nullptr, kGroupNumber, std::wstring(), false, nullptr,
                                                               std::vector<std::unique_ptr<LayoutRows::Column>>(),
                                                               std::wstring(), false, true));
    }
    row->index = m_items.size();
    m_items.push_back({.row = *row, .facts = std::move(facts)});
    m_groups[kGroupNumber - 1]->columns.push_back(std::move(row));
}

void PageRecord::AddItem(std::unique_ptr<LayoutRows::Column> row, ItemFacts facts, SpecialControlKind kind,
                         std::unique_ptr<SpecialControl> control) {
    AddItem(std::move(row), std::move(facts));
    control->SetLayoutCells({{static_cast<int>(m_items.size()) - 1, kGroupNumber - 1}});
    m_items.back().control = control.get();
    AddControl(kind, std::move(control));
}

void PageRecord::AddControl(SpecialControlKind kind, std::unique_ptr<SpecialControl> control) {
    if (std::find(m_kinds.begin(), m_kinds.end(), kind) == m_kinds.end()) m_kinds.push_back(kind);
    m_controls.at(IndexOf(kind)).push_back(std::move(control));
}

const std::vector<std::unique_ptr<SpecialControl>>& PageRecord::Controls(SpecialControlKind kind) const noexcept {
    return m_controls[IndexOf(kind)];
}

std::vector<LayoutRows::Group*> PageRecord::Groups() const {
    std::vector<LayoutRows::Group*> groups;
    for (const auto& group : m_groups)
        groups.push_back(group.get());
    return groups;
}

void PageRecord::IndexNewItems() {
    m_shared.reserve(m_items.size());
    while (m_shared.size() < m_items.size()) {
        const Item& item = m_items[m_shared.size()];
        Shared& shared = m_index[item.row.name];
        if (shared.scope == nullptr && item.facts.scope) shared.scope = &*item.facts.scope;
        if (shared.range == nullptr && item.facts.range) shared.range = &*item.facts.range;
        m_shared.push_back(&shared);
    }
}

const SESSIONDATATYPE* PageRecord::FindScope(std::wstring_view itemKey) {
    IndexNewItems();
    const auto found = m_index.find(itemKey);
    return found != m_index.end() ? found->second.scope : nullptr;
}

const RangePair* PageRecord::FindRange(std::wstring_view itemKey) {
    IndexNewItems();
    const auto found = m_index.find(itemKey);
    return found != m_index.end() ? found->second.range : nullptr;
}

const PageRecord::Shared& PageRecord::SharedOf(const LayoutRows::Column& row) {
    IndexNewItems();
    return *m_shared.at(row.index);
}
