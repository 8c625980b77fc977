// A page for layout tests: a real window with a font of its own, rows made with one line each, and questions about
// where their windows stand. Asks the platform for every size.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "host/libraries/layout.h"

// A window that keeps a font, as a dialog does.
class FontWindow : public CWnd {
public:
    explicit FontWindow(int pointSize);
    ~FontWindow() override;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

    std::function<void(int cx, int cy)> onSize;
    int commands = 0;  // of its controls, as far as nobody took them before

protected:
    bool OnCommand(WPARAM wParam, LPARAM lParam) override;

private:
    HFONT m_font;
};

struct RowSpec {
    std::wstring name{};
    int order = 0;
    int dataType = XLayout::kText;
    int controlType = XLayout::kEdit;
    std::wstring value{};
    std::wstring prompt = L"Prompt";
    int limit = 100;
    bool disabled = false;
    int resizeMode = XLayout::kResizeDefault;
    CWnd* placeholder = nullptr;
    std::vector<XLayout::ColumnItem> items{};
};

[[nodiscard]] RowSpec TextRow(std::wstring name, int order = 0);
[[nodiscard]] RowSpec ComboRow(std::wstring name, std::wstring value, std::vector<XLayout::ColumnItem> items);
[[nodiscard]] RowSpec CheckRow(std::wstring name, std::wstring value);

class LayoutPage {
public:
    // Points: of the page's font.
    explicit LayoutPage(int pointSize = 8);

    // The column is the page's; sizes may be set before Show.
    XLayout::Column& Add(const RowSpec& spec);
    // Hands the rows to the layout and arranges them in a rectangle at (10, 10), by default of the least size.
    void Show();
    void Arrange(int cx, int cy) { layout.RecalcLayout(10, 10, cx, cy); }

    // Pixels at 96 dpi to the page's.
    [[nodiscard]] int Scaled(int pixels) const {
        return ::MulDiv(pixels, static_cast<int>(::GetDpiForWindow(window.m_hWnd)), 96);
    }
    [[nodiscard]] std::vector<std::wstring> Names() const;
    [[nodiscard]] XLayout::ColumnReference Reference(std::wstring_view name) const;
    // In page client coordinates.
    [[nodiscard]] CRect ControlRect(std::wstring_view name);
    [[nodiscard]] CRect PromptRect(std::wstring_view name);
    [[nodiscard]] CRect RectOf(const CWnd& child) const;

    FontWindow window;
    std::unique_ptr<XLayout::Group> group;
    XLayout layout{1};
};
