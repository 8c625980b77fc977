// Where the layout puts things. Sizes are asked of the font and the platform; what counts is how they relate.
#include <gtest/gtest.h>

#include <algorithm>

#include "framework/gdi.h"
#include "host/libraries/layout_check_box.h"
#include "tests/host/layout_page.h"

namespace {

SIZE TextSize(const LayoutPage& page, const std::wstring& text) {
    CClientDC dc(page.window);
    dc.SelectFont(page.window.GetFont());
    return dc.GetTextExtent(text);
}

int LineHeight(const LayoutPage& page) {
    return static_cast<int>(TextSize(page, L"Xg").cy);
}

RowSpec Row(const wchar_t* name, int dataType, int controlType, int limit, const wchar_t* prompt) {
    return {.name = name, .dataType = dataType, .controlType = controlType, .prompt = prompt, .limit = limit};
}

// One row of every kind that the layout makes itself.
void AddEveryKind(LayoutPage& page) {
    page.Add(Row(L"digit", XLayout::kInteger, XLayout::kEdit, 1, L"A"));
    page.Add(Row(L"integer", XLayout::kInteger, XLayout::kEdit, 11, L"Number of recent files in the menu"));
    page.Add(Row(L"double", XLayout::kDouble, XLayout::kEdit, 9, L"&Factor"));
    page.Add(Row(L"text", XLayout::kText, XLayout::kEdit, 1024, L"Title"));
    page.Add(CheckRow(L"check", L"1"));
    page.Add(ComboRow(L"combo", L"m", {{L"Metres", L"m", 0, nullptr}, {L"Millimetres", L"mm", 1, nullptr}}));
}

const std::vector<std::wstring> kEveryKind{L"digit", L"integer", L"double", L"text", L"check", L"combo"};

class LayoutInFont : public testing::TestWithParam<int> {};

TEST_P(LayoutInFont, PromptsAndControlsFormTwoColumnsThatClipNothing) {
    LayoutPage page(GetParam());
    AddEveryKind(page);
    page.Show();
    const int line = LineHeight(page);
    const int left = static_cast<int>(page.ControlRect(L"text").left);
    int bottom = 10;
    for (const std::wstring& name : kEveryKind) {
        const CRect prompt = page.PromptRect(name);
        const CRect control = page.ControlRect(name);
        // A check box's label has room for the frame of its focus before it.
        const int outdent = name == L"check" ? page.Scaled(qv::CheckBoxPrompt::kFrameRoom) : 0;
        EXPECT_EQ(prompt.left, 10 - outdent) << name;
        EXPECT_EQ(control.left, left) << name;
        EXPECT_GE(prompt.Width(), TextSize(page, page.layout.GetColumn(name)->prompt).cx) << name;
        EXPECT_GE(prompt.Height(), line) << name;
        EXPECT_LT(prompt.right, left) << name;
        EXPECT_GE(control.Height(), name == L"check" ? 10 : line + 4) << name;
        // The middle of both, to a pixel of rounding either way.
        EXPECT_NEAR(static_cast<double>(prompt.top + prompt.bottom), static_cast<double>(control.top + control.bottom),
                    3)
            << name;
        EXPECT_GE(std::min(prompt.top, control.top), bottom) << name << " overlaps the row above";
        bottom = static_cast<int>(std::max(prompt.bottom, control.bottom));
    }
    EXPECT_EQ(left - 10 + page.ControlRect(L"text").Width(), page.layout.GetMinWidth());
    EXPECT_LE(bottom, 10 + page.layout.GetMinHeight());
    EXPECT_GE(bottom, 10 + page.layout.GetMinHeight() - line) << "no empty rest";
}

TEST_P(LayoutInFont, FieldsAreAsWideAsWhatTheyTake) {
    LayoutPage page(GetParam());
    AddEveryKind(page);
    page.Show();
    EXPECT_LT(page.ControlRect(L"digit").Width(), page.ControlRect(L"integer").Width());
    EXPECT_LT(page.ControlRect(L"integer").Width(), page.ControlRect(L"text").Width());
    EXPECT_EQ(page.ControlRect(L"combo").Width(), page.ControlRect(L"text").Width());
    EXPECT_GT(page.ControlRect(L"integer").Width(), TextSize(page, L"-2147483648").cx);
    EXPECT_GT(page.ControlRect(L"double").Width(), TextSize(page, L"-1.2345678901234").cx);
}

TEST_P(LayoutInFont, LongPromptIsBrokenAndTheFirstLineStandsBesideItsControl) {
    LayoutPage page(GetParam());
    std::wstring sentence;
    for (int i = 0; i < 12; ++i)
        sentence += L"several words ";
    page.Add(Row(L"short", XLayout::kText, XLayout::kEdit, 10, L"Short"));
    page.Add(Row(L"long", XLayout::kText, XLayout::kEdit, 10, sentence.c_str()));
    page.Add(Row(L"after", XLayout::kText, XLayout::kEdit, 10, L"After"));
    page.Show();
    const CRect prompt = page.PromptRect(L"long");
    const int line = LineHeight(page);
    EXPECT_LT(prompt.Width(), TextSize(page, sentence).cx);
    EXPECT_GE(prompt.Height() * prompt.Width(), TextSize(page, sentence).cx * line);
    EXPECT_EQ(prompt.top - page.ControlRect(L"long").top,
              page.PromptRect(L"short").top - page.ControlRect(L"short").top);
    EXPECT_GE(page.PromptRect(L"after").top, prompt.bottom);
    EXPECT_GE(page.ControlRect(L"after").top, prompt.bottom);
}

INSTANTIATE_TEST_SUITE_P(Points, LayoutInFont, testing::Values(8, 10, 16));

TEST(LayoutWidth, CombosShowTheirLongestEntryWithinReason) {
    LayoutPage page;
    const std::wstring entry(30, L'm');
    const std::wstring endless(400, L'm');
    page.Add(ComboRow(L"x", L"", {{entry, L"a", 0, nullptr}}));
    page.Show();
    EXPECT_GT(page.ControlRect(L"x").Width(), TextSize(page, entry).cx);

    LayoutPage other;
    other.Add(ComboRow(L"x", L"", {{endless, L"a", 0, nullptr}}));
    other.Show();
    EXPECT_LT(other.ControlRect(L"x").Width(), TextSize(other, endless).cx / 2);
}

TEST(LayoutCombo, ListDropsFarEnoughToChooseFrom) {
    LayoutPage page;
    std::vector<XLayout::ColumnItem> entries;
    for (int i = 0; i < 30; ++i)
        entries.emplace_back(std::to_wstring(i), std::to_wstring(i), i, nullptr);
    page.Add(ComboRow(L"x", L"3", entries));
    page.Show();
    RECT dropped{};
    CWnd& combo = *page.layout.GetColumnControl(L"x");
    combo.SendMessage(CB_SHOWDROPDOWN, TRUE);
    combo.SendMessage(CB_GETDROPPEDCONTROLRECT, 0, reinterpret_cast<LPARAM>(&dropped));
    EXPECT_GE(dropped.bottom - dropped.top, page.ControlRect(L"x").Height() + 10 * LineHeight(page));
}

// Four special controls as the loaders describe them, and an ordinary row.
class LayoutGrowth : public testing::Test {
protected:
    struct Spec {
        const wchar_t* name;
        int mode, minWidth, maxWidth, minHeight, maxHeight;
    };
    static constexpr Spec kSpecs[] = {
        {L"chooser", XLayout::kResizeWidth, 100, 200, 24, 24},
        {L"button", XLayout::kResizeFixed, 75, 75, 23, 23},
        {L"small list", XLayout::kResizeBoth, 100, 200, 40, 60},
        {L"big list", XLayout::kResizeBoth, 100, 400, 40, 200},
    };
    void SetUp() override {
        for (std::size_t i = 0; i < std::size(kSpecs); ++i) {
            const Spec& spec = kSpecs[i];
            ASSERT_TRUE(m_windows[i].CreateEx(0, nullptr, L"", WS_CHILD, CRect(), m_page.window.m_hWnd, 20000 + i));
            XLayout::Column& column =
                m_page.Add({.name = spec.name, .resizeMode = spec.mode, .placeholder = &m_windows[i]});
            column.SetControlWidth(spec.minWidth, spec.maxWidth);
            column.SetControlHeight(spec.minHeight, spec.maxHeight);
        }
    }
    int Scaled(int pixels) { return ::MulDiv(pixels, static_cast<int>(::GetDpiForWindow(m_page.window.m_hWnd)), 96); }
    int Width(const wchar_t* name) { return m_page.ControlRect(name).Width(); }
    int Height(const wchar_t* name) { return m_page.ControlRect(name).Height(); }

    CWnd m_windows[std::size(kSpecs)];
    LayoutPage m_page;
};

TEST_F(LayoutGrowth, EveryRowGrowsWithinItsOwnBounds) {
    m_page.Show();
    ASSERT_TRUE(m_page.layout.CanResizeWidth());
    ASSERT_TRUE(m_page.layout.CanResizeHeight());
    const int minWidth = m_page.layout.GetMinWidth();
    const int minHeight = m_page.layout.GetMinHeight();
    EXPECT_EQ(Width(L"chooser"), Scaled(100));
    EXPECT_EQ(Height(L"big list"), Scaled(40));
    const int chooserHeight = Height(L"chooser");

    m_page.Arrange(minWidth + Scaled(50), minHeight);
    EXPECT_EQ(Width(L"chooser"), Scaled(100) + Scaled(50));
    EXPECT_EQ(Width(L"big list"), Scaled(100) + Scaled(50));
    EXPECT_EQ(Width(L"button"), Scaled(75));

    m_page.Arrange(minWidth + Scaled(1000), minHeight + Scaled(30));
    EXPECT_EQ(Width(L"chooser"), Scaled(200));
    EXPECT_EQ(Width(L"big list"), Scaled(400));
    EXPECT_EQ(Height(L"small list"), Scaled(40) + Scaled(30) / 2) << "evenly";
    EXPECT_EQ(Height(L"big list"), Scaled(40) + Scaled(30) / 2);

    m_page.Arrange(minWidth, minHeight + Scaled(100));
    EXPECT_EQ(Height(L"small list"), Scaled(60)) << "at its end";
    EXPECT_EQ(Height(L"big list"), Scaled(40) + Scaled(80)) << "what the other cannot take";
    EXPECT_GT(m_page.ControlRect(L"big list").top, m_page.ControlRect(L"small list").bottom);
    EXPECT_EQ(Height(L"chooser"), chooserHeight);

    m_page.Arrange(10, 10);
    EXPECT_EQ(Width(L"chooser"), Scaled(100)) << "a page that is too small clips";
    EXPECT_EQ(Height(L"big list"), Scaled(40));
}

TEST_F(LayoutGrowth, SpecialControlsAlignWithOrdinaryFields) {
    m_page.Add(TextRow(L"text"));
    m_page.Show();
    EXPECT_EQ(m_page.ControlRect(L"chooser").left, m_page.ControlRect(L"text").left);
    EXPECT_EQ(m_page.ControlRect(L"chooser").right, m_page.ControlRect(L"text").right);
    const int before = Width(L"text");
    m_page.Arrange(m_page.layout.GetMinWidth() + 300, m_page.layout.GetMinHeight());
    EXPECT_EQ(Width(L"text"), before) << "ordinary fields keep their common width";
    EXPECT_LT(m_page.PromptRect(L"big list").top - m_page.ControlRect(L"big list").top, LineHeight(m_page))
        << "a list's prompt stands at its top line";
}

// A word without end is broken too, in the window as in the measure; the window's text stays the label.
TEST(LayoutPrompts, AWordThatIsTooLongIsBroken) {
    LayoutPage plain;
    plain.Add(TextRow(L"text")).prompt = std::wstring(40, L'n');
    plain.Show();
    for (const bool isCheckBox : {false, true}) {
        SCOPED_TRACE(isCheckBox);
        const std::wstring label = L"Short &words before " + std::wstring(1000, L'W') + L" and after";
        LayoutPage page;
        page.Add(isCheckBox ? CheckRow(L"row", L"1") : TextRow(L"row")).prompt = label;
        page.Show();
        EXPECT_LT(page.layout.GetMinWidth(), 3 * plain.layout.GetMinWidth());
        const CWnd* const prompt = page.layout.GetColumnPrompt(L"row");
        EXPECT_EQ(prompt->GetWindowText(), label);
        EXPECT_NE(prompt->GetStyle() & SS_EDITCONTROL, 0U);
        // As the window draws it, in the width that it has.
        CClientDC dc(page.window);
        dc.SelectFont(page.window.GetFont());
        RECT drawn{0, 0, page.PromptRect(L"row").Width(), 0};
        ::DrawTextW(dc.Get(), label.c_str(), static_cast<int>(label.size()), &drawn,
                    DT_CALCRECT | DT_WORDBREAK | DT_EDITCONTROL);
        EXPECT_LE(drawn.right, page.PromptRect(L"row").Width());
        EXPECT_LE(drawn.bottom, page.PromptRect(L"row").Height());
        EXPECT_GT(drawn.bottom, 10 * LineHeight(page));
    }
}

TEST(LayoutGrowthFlags, PageOfOrdinaryRowsDoesNotGrow) {
    LayoutPage page;
    AddEveryKind(page);
    page.Show();
    EXPECT_FALSE(page.layout.CanResizeWidth());
    EXPECT_FALSE(page.layout.CanResizeHeight());
    LayoutPage empty;
    empty.Show();
    EXPECT_EQ(empty.layout.GetMinWidth(), 0);
    EXPECT_EQ(empty.layout.GetMinHeight(), 0);
}

}  // namespace
