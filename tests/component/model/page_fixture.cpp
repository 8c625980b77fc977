#include "tests/component/model/page_fixture.h"

#include <algorithm>

#include "base/text.h"

FakePage::FakePage(const PageRecord& record) {
    for (const Item& item : record.Items())
        m_rows.push_back({&item.row, item.row.value, item.control != nullptr});
    std::stable_sort(m_rows.begin(), m_rows.end(),
                     [](const Row& a, const Row& b) { return a.column->order < b.column->order; });
}

bool FakePage::RefuseInput(const Column& row, std::wstring_view reason) {
    const auto found = std::find_if(m_rows.begin(), m_rows.end(), [&](const Row& each) { return each.column == &row; });
    if (!found->hasControl) return false;
    refusals.push_back(row.name + L'\n' + std::wstring(reason));
    return true;
}

void FakePage::ReportFailedSave(std::wstring_view text) {
    failedSaves.emplace_back(text);
}

std::vector<FakePage::ColumnReference> FakePage::GetReferenceList() const {
    std::vector<ColumnReference> references;
    for (const Row& row : m_rows) {
        references.push_back(
            {*row.column, row.column->name, row.text, row.isPlaceholder || row.column->disabled || !row.hasControl});
    }
    return references;
}

FakePage::Column* FakePage::GetColumn(std::wstring_view name) const {
    const auto found =
        std::find_if(m_rows.begin(), m_rows.end(), [name](const Row& row) { return row.column->name == name; });
    return found != m_rows.end() ? found->column : nullptr;
}

void FakePage::UpdateControl(std::wstring_view name, std::wstring_view text, void*, std::wstring_view) {
    for (Row& row : m_rows) {
        if (row.column == GetColumn(name)) row.text = text;
    }
}

std::wstring FakePage::Shown(std::wstring_view itemKey) const {
    for (const Row& row : m_rows) {
        if (row.column->name == itemKey) return row.text;
    }
    return L"(no such row)";
}

void FakePage::TakeControlOf(std::wstring_view itemKey) {
    for (Row& row : m_rows)
        row.hasControl = row.hasControl && row.column->name != itemKey;
}

FakePage& PageTest::Shown() {
    if (!m_shown) {
        EXPECT_NE(Page(), nullptr);
        m_shown = std::make_unique<FakePage>(*Page());
        m_session->ClearCalls();
    }
    return *m_shown;
}

std::vector<std::wstring> PageTest::Written() const {
    std::vector<std::wstring> writes;
    for (const auto& call : m_session->CallsOf(qv::SessionOperation::WriteData)) {
        writes.push_back(qv::Format(L"%d %s/%s=%s", static_cast<int>(call.scope), call.key, call.name, call.text));
    }
    return writes;
}
