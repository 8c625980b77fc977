#include "tests/host/layout_page.h"

#include <algorithm>

FontWindow::FontWindow(int pointSize) {
    LOGFONTW font{};
    font.lfHeight = -::MulDiv(pointSize, 96, 72);
    font.lfWeight = FW_NORMAL;
    font.lfCharSet = DEFAULT_CHARSET;
    std::copy_n(L"MS Shell Dlg", 13, font.lfFaceName);
    m_font = ::CreateFontIndirectW(&font);
}

FontWindow::~FontWindow() {
    DestroyWindow();
    ::DeleteObject(m_font);
}

LRESULT FontWindow::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_GETFONT) return reinterpret_cast<LRESULT>(m_font);
    const LRESULT result = CWnd::WindowProc(message, wParam, lParam);
    if (message == WM_SIZE && onSize) onSize(LOWORD(lParam), HIWORD(lParam));
    return result;
}

bool FontWindow::OnCommand(WPARAM wParam, LPARAM lParam) {
    ++commands;
    return CWnd::OnCommand(wParam, lParam);
}

RowSpec TextRow(std::wstring name, int order) {
    return {.name = std::move(name), .order = order};
}

RowSpec ComboRow(std::wstring name, std::wstring value, std::vector<XLayout::ColumnItem> items) {
    return {.name = std::move(name),
            .controlType = XLayout::kComboBox,
            .value = std::move(value),
            .items = std::move(items)};
}

RowSpec CheckRow(std::wstring name, std::wstring value) {
    return {.name = std::move(name),
            .dataType = XLayout::kBoolean,
            .controlType = XLayout::kCheckBox,
            .value = std::move(value)};
}

LayoutPage::LayoutPage(int pointSize)
    : window(pointSize),
      group(std::make_unique<XLayout::Group>(nullptr, 1, L"", false, nullptr,
                                             std::vector<std::unique_ptr<XLayout::Column>>(), L"", false, false)) {
    const CRect rect(0, 0, 900, 700);
    EXPECT_TRUE(window.CreateEx(0, nullptr, L"page", WS_POPUP | WS_VISIBLE, rect, nullptr, 0));
}

XLayout::Column& LayoutPage::Add(const RowSpec& spec) {
    group->columns.push_back(
        std::make_unique<XLayout::Column>(&window, spec.name, spec.prompt, spec.value, spec.order, true, spec.disabled,
                                          spec.dataType, spec.controlType, spec.resizeMode, spec.placeholder, 0, 0, 0.0,
                                          0.0, spec.limit, 0, 1, L"", false, nullptr, false, 1, 0, 0, L"", L"", L""));
    group->columns.back()->SetColumnItemList(spec.items);
    return *group->columns.back();
}

void LayoutPage::Show() {
    layout.InitLayoutManager(&window, {group.get()});
    layout.SetDefaultTabOrder();
    Arrange(layout.GetMinWidth(), layout.GetMinHeight());
}

std::vector<std::wstring> LayoutPage::Names() const {
    std::vector<std::wstring> names;
    for (const auto& reference : layout.GetReferenceList())
        names.push_back(reference.name);
    return names;
}

XLayout::ColumnReference LayoutPage::Reference(std::wstring_view name) const {
    const auto references = layout.GetReferenceList();
    const auto found = std::find_if(references.begin(), references.end(),
                                    [&](const XLayout::ColumnReference& each) { return each.name == name; });
    if (found == references.end()) throw std::out_of_range("no such row");
    return *found;
}

CRect LayoutPage::RectOf(const CWnd& child) const {
    CRect rect = child.GetWindowRect();
    window.ScreenToClient(rect);
    return rect;
}

CRect LayoutPage::ControlRect(std::wstring_view name) {
    const CWnd* const control = layout.GetColumnControl(name);
    return control != nullptr ? RectOf(*control) : CRect();
}

CRect LayoutPage::PromptRect(std::wstring_view name) {
    const CWnd* const prompt = layout.GetColumnPrompt(name);
    return prompt != nullptr ? RectOf(*prompt) : CRect();
}
