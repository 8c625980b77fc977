// What the layout's controls show, take and answer.
#include <gtest/gtest.h>

#include <algorithm>

#include "framework/gdi.h"
#include "host/libraries/layout_check_box.h"
#include "tests/host/layout_page.h"

namespace {

using Names = std::vector<std::wstring>;

const std::vector<XLayout::ColumnItem> kEntries{
    {L"Zebra", L"z", 0, nullptr}, {L"Ape", L"a", 1, nullptr}, {L"Ape again", L"a", 2, nullptr}};

TEST(LayoutRows, StandInOrderNumberOrderAndTheGroupIsLeftAlone) {
    LayoutPage page;
    for (const auto& [name, order] : {std::pair{L"b", 2}, {L"a1", 1}, {L"c", 10}, {L"a2", 1}, {L"first", -5}}) {
        page.Add(TextRow(name, order));
    }
    page.Show();
    EXPECT_EQ(page.Names(), (Names{L"first", L"a1", L"a2", L"b", L"c"}));
    Names loaded;
    for (const auto& column : page.group->columns)
        loaded.push_back(column->name);
    EXPECT_EQ(loaded, (Names{L"b", L"a1", L"c", L"a2", L"first"})) << "cells count in loading order";
    int top = -1;
    for (const std::wstring& name : page.Names()) {
        const int next = static_cast<int>(page.ControlRect(name).top);
        EXPECT_GT(next, top) << name;
        top = next;
    }
}

TEST(LayoutRows, OfOneNameTheUpperOneIsFound) {
    LayoutPage page;
    page.Add(TextRow(L"twin", 2)).value = L"lower";
    page.Add(TextRow(L"twin", 1)).value = L"upper";
    page.Show();
    EXPECT_EQ(page.layout.GetColumn(L"twin")->value, L"upper");
    page.layout.UpdateControl(L"twin", L"changed", nullptr, L"");
    const auto references = page.layout.GetReferenceList();
    EXPECT_EQ(references.at(0).text, L"changed");
    EXPECT_EQ(references.at(1).text, L"lower");
    EXPECT_EQ(page.layout.GetColumn(L"Twin"), nullptr);
    EXPECT_EQ(page.layout.GetColumnControl(L""), nullptr);
    page.layout.UpdateControl(L"nobody", L"x", nullptr, L"");
}

TEST(LayoutRows, ShowTheirValueAndAnswerItBack) {
    struct Case {
        const char* name;
        RowSpec row;
        const wchar_t* text;
        const wchar_t* update;
        const wchar_t* updated;
    };
    const RowSpec number{.name = L"x", .dataType = XLayout::kInteger, .value = L" 007", .limit = 2};
    const RowSpec text{.name = L"x", .value = L"a & b  "};
    auto withEmpty = kEntries;
    withEmpty.emplace_back(L"Nothing", L"", 3, nullptr);
    const Case cases[] = {
        {"text", text, L"a & b  ", L"", L""},
        {"number beyond its limit, as it was given", number, L" 007", L"1.50", L"1.50"},
        {"checked", CheckRow(L"x", L"1"), L"1", L"0", L"0"},
        {"unchecked", CheckRow(L"x", L"0"), L"0", L"1", L"1"},
        {"not exactly 1", CheckRow(L"x", L"01"), L"0", L"true", L"0"},
        {"entry", ComboRow(L"x", L"z", kEntries), L"z", L"a", L"a"},
        {"no such entry", ComboRow(L"x", L"Z", kEntries), L"", L"none", L""},
        {"empty without an entry for it", ComboRow(L"x", L"", kEntries), L"", L"z", L"z"},
        {"empty with an entry for it", ComboRow(L"x", L"", withEmpty), L"", L"", L""},
    };
    for (const Case& c : cases) {
        LayoutPage page;
        page.Add(c.row);
        page.Show();
        EXPECT_EQ(page.Reference(L"x").text, c.text) << c.name;
        EXPECT_FALSE(page.Reference(L"x").excluded) << c.name;
        page.layout.UpdateControl(L"x", c.update, nullptr, L"");
        EXPECT_EQ(page.Reference(L"x").text, c.updated) << c.name;
    }
}

TEST(LayoutCombo, KeepsTheOrderOfItsEntriesAndSelectsTheFirstOfEqualData) {
    LayoutPage page;
    auto entries = kEntries;
    entries.emplace_back(L"Nothing", L"", 3, nullptr);
    page.Add(ComboRow(L"x", L"a", entries));
    page.Add(ComboRow(L"empty", L"", entries));
    page.Add(ComboRow(L"none", L"q", entries));
    page.Show();
    const auto selected = [&](const wchar_t* name) {
        return static_cast<const CComboBox*>(page.layout.GetColumnControl(name))->GetCurSel();
    };
    const auto* const combo = static_cast<const CComboBox*>(page.layout.GetColumnControl(L"x"));
    ASSERT_EQ(combo->GetCount(), 4);
    EXPECT_EQ(combo->GetLBText(0), L"Zebra");
    EXPECT_EQ(combo->GetLBText(2), L"Ape again");
    EXPECT_EQ(selected(L"x"), 1);
    EXPECT_EQ(selected(L"empty"), 3);
    EXPECT_EQ(selected(L"none"), -1);
    page.layout.UpdateControl(L"x", L"q", nullptr, L"");
    EXPECT_EQ(selected(L"x"), -1) << "an unknown text deselects";
}

TEST(LayoutEdit, TakesAsManyCharactersAsItsRowAllows) {
    const struct {
        const char* name;
        int dataType;
        int limit;
        UINT expected;  // 0: takes nothing at all
    } cases[] = {
        {"integer", XLayout::kInteger, 11, 11}, {"double", XLayout::kDouble, 9, 16},
        {"text", XLayout::kText, 1024, 1024},   {"one character", XLayout::kText, 1, 1},
        {"nothing", XLayout::kText, 0, 0},      {"less", XLayout::kText, -3, 0},
    };
    for (const auto& c : cases) {
        LayoutPage page;
        page.Add({.name = L"x", .dataType = c.dataType, .limit = c.limit});
        page.Show();
        const auto* const edit = static_cast<const CEdit*>(page.layout.GetColumnControl(L"x"));
        EXPECT_EQ((edit->GetStyle() & ES_READONLY) != 0, c.expected == 0) << c.name;
        if (c.expected != 0) {
            EXPECT_EQ(edit->GetLimitText(), c.expected) << c.name;
        }
        EXPECT_NE(edit->GetStyle() & ES_AUTOHSCROLL, 0u) << c.name;
    }
}

// A special control as the layout meets it: it notices when its text is asked for.
class SpecialWindow : public CWnd {
public:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_GETTEXT || message == WM_GETTEXTLENGTH) ++reads;
        if (message == WM_SETTEXT) ++writes;
        return CWnd::WindowProc(message, wParam, lParam);
    }
    int reads = 0;
    int writes = 0;
};

TEST(LayoutExclusion, PlaceholderIsShownButNeitherReadNorWritten) {
    LayoutPage page;
    SpecialWindow special;
    ASSERT_TRUE(special.CreateEx(0, nullptr, L"secret", WS_CHILD, CRect(), page.window.m_hWnd, 20000));
    special.reads = special.writes = 0;
    page.Add({.name = L"x", .placeholder = &special});
    page.Show();
    EXPECT_TRUE(page.Reference(L"x").excluded);
    EXPECT_EQ(page.Reference(L"x").text, L"");
    page.layout.UpdateControl(L"x", L"new", nullptr, L"");
    EXPECT_EQ(special.reads, 0);
    EXPECT_EQ(special.writes, 0);
    EXPECT_TRUE(special.IsWindowVisible());
    EXPECT_NE(special.GetStyle() & WS_TABSTOP, 0u);
    EXPECT_EQ(page.layout.GetColumnControl(L"x"), &special);
    EXPECT_GT(page.ControlRect(L"x").Width(), 0);
}

TEST(LayoutExclusion, DisabledRowKeepsItsTextAndIsGrey) {
    LayoutPage page;
    page.Add({.name = L"off", .value = L"kept", .disabled = true});
    page.Add(TextRow(L"on"));
    page.Show();
    EXPECT_TRUE(page.Reference(L"off").excluded);
    EXPECT_EQ(page.Reference(L"off").text, L"kept");
    EXPECT_FALSE(page.layout.GetColumnControl(L"off")->IsWindowEnabled());
    EXPECT_FALSE(page.layout.GetColumnPrompt(L"off")->IsWindowEnabled());
    EXPECT_FALSE(page.Reference(L"on").excluded);
    EXPECT_TRUE(page.layout.GetColumnControl(L"on")->IsWindowEnabled());
}

TEST(LayoutExclusion, RowWithoutAControlStaysInPlaceAndIsNotStored) {
    LayoutPage page;
    CWnd neverCreated;
    page.Add({.name = L"special", .placeholder = &neverCreated});
    page.Add({.name = L"unknown", .controlType = 99});
    page.Add(TextRow(L"last"));
    page.Show();
    for (const wchar_t* name : {L"special", L"unknown"}) {
        EXPECT_TRUE(page.Reference(name).excluded) << name;
        EXPECT_EQ(page.layout.GetColumnControl(name), nullptr) << name;
        EXPECT_NE(page.layout.GetColumnPrompt(name), nullptr) << name;
    }
    page.layout.UpdateControl(L"unknown", L"x", nullptr, L"");

    page.layout.GetColumnControl(L"last")->DestroyWindow();
    EXPECT_TRUE(page.Reference(L"last").excluded) << "a control that is gone is not stored as empty";
}

TEST(LayoutCheckBox, ClickOnItsPromptTogglesAndReportsIt) {
    LayoutPage page;
    page.Add(CheckRow(L"x", L"0"));
    RowSpec off = CheckRow(L"off", L"0");
    off.disabled = true;
    page.Add(off);
    page.Show();
    for (const wchar_t* name : {L"x", L"off"}) {
        const CWnd* const prompt = page.layout.GetColumnPrompt(name);
        page.window.SendMessage(WM_COMMAND, MAKEWPARAM(prompt->GetDlgCtrlID(), STN_CLICKED),
                                reinterpret_cast<LPARAM>(prompt->m_hWnd));
    }
    EXPECT_EQ(page.Reference(L"x").text, L"1");
    EXPECT_EQ(page.Reference(L"off").text, L"0");
}

// The frame is where a person looks for the focus: around the label, the whole of it and no more.
TEST(LayoutCheckBox, FocusFrameStandsAroundTheLabel) {
    LayoutPage page;
    RowSpec row = CheckRow(L"a", L"1");
    row.prompt = L"&Several words, and these a little longer than the other one's";
    page.Add(row);
    page.Add(CheckRow(L"b", L"1"));
    page.Show();
    page.layout.GetColumnControl(L"a")->SendMessage(WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS));
    page.layout.GetColumnControl(L"a")->SetFocus();
    CWnd* const prompt = page.layout.GetColumnPrompt(L"a");
    const auto* const label = dynamic_cast<qv::CheckBoxPrompt*>(prompt);
    ASSERT_NE(label, nullptr);
    prompt->Invalidate();
    ::UpdateWindow(prompt->m_hWnd);

    CClientDC dc(*prompt);
    dc.SelectFont(prompt->GetFont());
    const CRect client = prompt->GetClientRect();
    const int room = page.Scaled(qv::CheckBoxPrompt::kFrameRoom);
    const CRect frame = label->FocusFrame(dc.Get());
    const int text = static_cast<int>(dc.GetTextExtent(qv::WithoutMnemonic(row.prompt)).cx);
    EXPECT_EQ(frame.left, 0);
    EXPECT_EQ(frame.top, 0);
    EXPECT_EQ(frame.bottom, client.bottom);
    EXPECT_LE(frame.right, client.right) << "cut";
    EXPECT_LE(frame.right, text + 2 * room);
    EXPECT_GT(frame.right, text / 2);
}

TEST(Layouts, AreListedWhileTheyLive) {
    const std::size_t before = qv::LiveLayouts().size();
    {
        LayoutPage first;
        LayoutPage second;
        const auto live = qv::LiveLayouts();
        ASSERT_EQ(live.size(), before + 2);
        EXPECT_EQ(live[before], &first.layout);
        EXPECT_EQ(live[before + 1], &second.layout);
        second.Add(TextRow(L"x"));
        second.Show();
        EXPECT_EQ(second.layout.GetRows().at(0).control, second.layout.GetColumnControl(L"x"));
        EXPECT_EQ(second.layout.GetParent(), &second.window);
        second.window.DestroyWindow();
        EXPECT_EQ(second.layout.GetRows().at(0).control, nullptr) << "the page may go first";
    }
    EXPECT_EQ(qv::LiveLayouts().size(), before);
}

}  // namespace
