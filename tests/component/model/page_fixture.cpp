#include "tests/component/model/page_fixture.h"

#include "framework/text.h"

namespace {
constexpr RECT kRect{0, 0, 400, 300};
}

ShownPage::ShownPage(PageRecord& record) {
    m_top.CreateEx(0, nullptr, L"Top", WS_OVERLAPPEDWINDOW | WS_VISIBLE, kRect, nullptr, 0);
    m_sheet.CreateEx(0, nullptr, L"Sheet", WS_CHILD | WS_VISIBLE, kRect, m_top.m_hWnd, 1);
    m_page.CreateEx(0, nullptr, L"Page", WS_CHILD | WS_VISIBLE, kRect, m_sheet.m_hWnd, 2);

    const std::vector<XLayout::Group*> groups = record.Groups();
    UINT id = 20000;
    for (const SpecialControlKind kind : record.ControlKinds()) {
        for (const auto& control : record.Controls(kind)) {
            if (control->CreateOnPage(m_page, id++)) control->ShowInitValue();
            for (const auto& [row, group] : control->GetLayoutCells()) {
                groups.at(static_cast<std::size_t>(group))->columns.at(static_cast<std::size_t>(row))->control =
                    &control->Window();
            }
        }
    }
    for (XLayout::Group* group : groups) {
        group->parent = &m_page;
        for (const auto& row : group->columns)
            row->parent = &m_page;
    }
    m_layout = std::make_unique<XLayout>(1);
    m_layout->InitLayoutManager(&m_page, groups);
}

ShownPage::~ShownPage() {
    m_top.DestroyWindow();
    m_layout.reset();
}

std::wstring ShownPage::Shown(std::wstring_view itemKey) const {
    for (const auto& row : m_layout->GetReferenceList()) {
        if (row.name == itemKey) return row.text;
    }
    return L"(no such row)";
}

void ShownPage::Enter(std::wstring_view itemKey, std::wstring_view text) {
    m_layout->UpdateControl(itemKey, text, nullptr, {});
}

void ShownPage::MoveSheetToTop() {
    ::SetParent(m_sheet.m_hWnd, nullptr);
    m_sheet.ModifyStyle(WS_CHILD, WS_POPUP);
}

ShownPage& PageTest::Shown() {
    if (!m_shown) {
        EXPECT_NE(Page(), nullptr);
        m_shown = std::make_unique<ShownPage>(*Page());
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
