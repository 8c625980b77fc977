// The demo as people see it: every page of it in both languages, opened as large as the dialog makes itself and as
// small as a remembered placement lets it become. ctest runs this at several resolutions.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "app/sample_host.h"
#include "base/module_state.h"
#include "base/text.h"
#include "framework/check_list_box.h"
#include "tests/app/demo/window_checks.h"
#include "tests/support/settings_driver.h"
#include "tests/support/temporary_folder.h"

using namespace qvtest;

namespace {

struct Opening {
    const char* name;
    const wchar_t* language;
    // A remembered placement: the dialog is then no larger than its pages need.
    bool compact;
};

class DemoDialog : public ::testing::TestWithParam<Opening> {
protected:
    DemoDialog() {
        EXPECT_GE(OleInitialize(nullptr), S_OK);
        m_state.resources = GetModuleHandleW(nullptr);
        SetProcessModuleState(m_state);
    }
    ~DemoDialog() override { OleUninitialize(); }

    // Opens the dialog, calls check with each page in front, and cancels.
    void OnEveryPage(const std::function<void(HWND page)>& check) {
        if (GetParam().compact) {
            m_data.Write(L"user.json",
                         R"({ "common": { "configdialoginit": "1" },
                              "sizeconfigdialog": { "top.x": "20", "top.y": "20", "bottom.x": "420", "bottom.y": "320" } })");
        }
        qv::SampleHost host([](const std::wstring& problem) { ADD_FAILURE() << qv::ToUtf8(problem); });
        qv::Options options;
        options.definitions = L"app/demo/definitions.json";
        options.data = m_data.Path();
        options.language = GetParam().language;
        std::wstring problem;
        ASSERT_TRUE(host.Start(options, problem)) << qv::ToUtf8(problem);
        driver.Run(
            [&] {
                std::vector<std::wstring> changes;
                (void)host.ChangeSettings(changes);
                return 0;
            },
            {[&] { VisitPages(check); }, [&] { driver.PressKey(VK_ESCAPE); }});
    }

    SettingsDriver driver;

private:
    void VisitPages(const std::function<void(HWND page)>& check) {
        const int pages = static_cast<int>(driver.TabTitles().size());
        ASSERT_GT(pages, 1);
        for (int i = 0; i < pages; ++i) {
            ASSERT_TRUE(driver.SwitchPage(i));
            const CWnd* page = driver.Sheet().GetActivePage();
            ASSERT_NE(page, nullptr);
            SCOPED_TRACE("page " + std::to_string(i + 1));
            check(page->m_hWnd);
        }
    }

    TemporaryFolder m_data;
    ModuleState m_state{};
};

const XLayout& LayoutOf(HWND page) {
    for (const XLayout* layout : qv::LiveLayouts()) {
        if (layout->GetParent() != nullptr && layout->GetParent()->m_hWnd == page) return *layout;
    }
    throw std::logic_error("a page without a layout");
}

void ExpectAccessible(HWND window, const std::wstring& name) {
    const AccessibleFacts facts = AskAccessible(window);
    EXPECT_EQ(facts.name, name) << Describe(window);
    EXPECT_NE(facts.role, 0) << Describe(window);
    RECT place{};
    GetClientRect(window, &place);
    MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&place), 2);
    EXPECT_NE(EqualRect(&facts.place, &place), FALSE) << Describe(window);
}

TEST_P(DemoDialog, ShowsEveryTextWholeAndCoversNothing) {
    OnEveryPage([&](HWND page) {
        CheckTextFits(page);
        CheckNoOverlap(page);
        // Where the screen is too low for a page, its rows scroll; where it is not, none may be cut.
        const auto bars = static_cast<DWORD>(GetWindowLongW(page, GWL_STYLE)) & (WS_HSCROLL | WS_VSCROLL);
        if (bars == 0) CheckInside(page);
        const HWND tabs = driver.Sheet().GetTabControl()->m_hWnd;
        CheckTabTitlesFit(tabs);
        // The page lies in the tab control, below the titles.
        RECT body{}, place{};
        GetWindowRect(tabs, &body);
        SendMessageW(tabs, TCM_ADJUSTRECT, FALSE, reinterpret_cast<LPARAM>(&body));
        GetWindowRect(page, &place);
        EXPECT_GE(place.top, body.top - GetSystemMetrics(SM_CYEDGE));
        GetWindowRect(tabs, &body);
        EXPECT_LE(place.right, body.right);
        EXPECT_LE(place.bottom, body.bottom);

        const HWND dialog = driver.Dialog().m_hWnd;
        CheckNoOverlap(dialog);
        CheckInside(dialog);
        for (HWND child : VisibleChildren(dialog)) {
            if (qv::EqualIgnoringCase(ClassOf(child), L"BUTTON")) CheckTextFits(child);
        }
    });
}

// The frame stands on the screen, and the dialog in it needs no bar.
TEST_P(DemoDialog, OpensWholeOnTheScreen) {
    if (GetParam().compact) GTEST_SKIP() << "a remembered frame stands where it stood";
    OnEveryPage([&](HWND page) {
        RECT frame{}, screen{}, common{};
        GetWindowRect(driver.Frame().m_hWnd, &frame);
        GetWindowRect(GetDesktopWindow(), &screen);
        IntersectRect(&common, &frame, &screen);
        EXPECT_NE(EqualRect(&common, &frame), FALSE);
        const CWnd& dialog = driver.Dialog();
        const CWnd& view = *dialog.GetParent();
        EXPECT_EQ(view.GetStyle() & (WS_HSCROLL | WS_VSCROLL), 0u);
        EXPECT_EQ(dialog.GetWindowRect().Width(), view.GetClientRect().Width());
        EXPECT_EQ(dialog.GetWindowRect().Height(), view.GetClientRect().Height());
        EXPECT_TRUE(IsWhollySeen(page));
    });
}

// The field of a row of one line: the control itself or, of a chooser, the edit control in it. Null for other rows.
HWND FieldOf(const XLayout::RowView& row) {
    const HWND control = row.control->m_hWnd;
    if (qv::EqualIgnoringCase(ClassOf(control), L"EDIT") || qv::EqualIgnoringCase(ClassOf(control), L"COMBOBOX")) {
        return control;
    }
    return FindWindowExW(control, nullptr, L"EDIT", nullptr);
}

LONG HeightOf(HWND window) {
    const RECT place = OnScreen(window);
    return place.bottom - place.top;
}

TEST_P(DemoDialog, WritesEveryPromptAndFieldOnTheLineOfItsRow) {
    LONG height = 0;
    LONG distance = 0;
    OnEveryPage([&](HWND page) {
        LONG before = 0;
        for (const XLayout::RowView& row : LayoutOf(page).GetRows()) {
            const LONG promptTop = OnScreen(row.prompt->m_hWnd).top;
            const HWND field = FieldOf(row);
            const bool isList = qv::EqualIgnoringCase(ClassOf(row.control->m_hWnd), L"LISTBOX");
            if (field != nullptr) {
                if (height == 0) height = HeightOf(field);
                EXPECT_EQ(HeightOf(field), height) << Describe(field);
                EXPECT_EQ(TextTopOnScreen(field), promptTop) << Describe(field);
            } else if (isList) {
                EXPECT_EQ(TextTopOnScreen(row.control->m_hWnd), promptTop) << Describe(row.control->m_hWnd);
            }
            // Whatever its control is, a row's text stands where the eye expects the next line.
            const bool isOneLine = !isList && HeightOf(row.prompt->m_hWnd) < height;
            if (isOneLine && before != 0) {
                if (distance == 0) distance = promptTop - before;
                EXPECT_EQ(promptTop - before, distance) << Describe(row.prompt->m_hWnd);
            }
            before = isOneLine ? promptTop : 0;
        }
    });
    EXPECT_GT(distance, height);
}

// The letter that a label marks, in lower case; 0 for none.
wchar_t MarkedLetter(const std::wstring& label) {
    for (std::size_t i = 0; i + 1 < label.size(); ++i) {
        if (label[i] != L'&') continue;
        if (label[++i] != L'&') return qv::ToLower(label.substr(i, 1)).front();
    }
    return 0;
}

TEST_P(DemoDialog, MarksEveryLetterOnceOnAPage) {
    OnEveryPage(
        [&](HWND page) {
            std::map<wchar_t, std::vector<std::wstring>> rows;
            const auto add = [&rows](const std::wstring& label, const std::wstring& what) {
                if (const wchar_t letter = MarkedLetter(label)) rows[letter].push_back(what + L" \"" + label + L"\"");
                // Small sizes of a font may be drawn narrower than they are measured: the line is then beside the text.
                EXPECT_FALSE(label.size() > 1 && label[label.size() - 2] == L'&') << qv::ToUtf8(label);
            };
            for (const XLayout::RowView& row : LayoutOf(page).GetRows())
                add(row.column.prompt, row.column.name);
            for (HWND child : VisibleChildren(driver.Dialog().m_hWnd))
                add(CWnd::FromHandle(child)->GetWindowText(), L"the dialog's");
            for (const std::wstring& title : driver.TabTitles())
                add(title, L"the tab");
            for (const auto& [letter, users] : rows) {
                EXPECT_EQ(users.size(), 1u)
                    << qv::ToUtf8(driver.TabTitles()[static_cast<std::size_t>(driver.Sheet().GetActiveIndex())]) << ": "
                    << qv::ToUtf8(std::wstring(1, letter)) << " marks " << ::testing::PrintToString(users);
            }
        });
}

TEST_P(DemoDialog, IsTabbedThroughAsItIsRead) {
    OnEveryPage([&](HWND page) { CheckTabOrder(driver.Frame().m_hWnd, page); });
}

TEST_P(DemoDialog, NamesEveryControlToAccessibilityClients) {
    OnEveryPage([&](HWND page) {
        for (const XLayout::RowView& row : LayoutOf(page).GetRows()) {
            ASSERT_NE(row.control, nullptr);
            const std::wstring name = qv::PlainLabel(row.column.prompt);
            ASSERT_FALSE(name.empty());
            ExpectAccessible(row.control->m_hWnd, name);
            ExpectAccessible(row.prompt->m_hWnd, name);
            if (qv::EqualIgnoringCase(ClassOf(row.control->m_hWnd), L"COMBOBOX")) continue;
            // A chooser's field and button.
            for (HWND part : VisibleChildren(row.control->m_hWnd)) {
                const bool isField = qv::EqualIgnoringCase(ClassOf(part), L"EDIT");
                ExpectAccessible(part, isField ? name : name + L" ...");
            }
        }
        const CPropertySheet& sheet = driver.Sheet();
        ExpectAccessible(driver.Sheet().GetTabControl()->m_hWnd, sheet.GetWindowText());
        for (HWND child : VisibleChildren(driver.Dialog().m_hWnd)) {
            if (!qv::EqualIgnoringCase(ClassOf(child), L"BUTTON")) continue;
            ExpectAccessible(child, qv::PlainLabel(CWnd::FromHandle(child)->GetWindowText()));
        }
    });
}

INSTANTIATE_TEST_SUITE_P(Openings, DemoDialog,
                         ::testing::Values(Opening{"English", L"", false}, Opening{"EnglishCompact", L"", true},
                                           Opening{"German", L"de", false}, Opening{"GermanCompact", L"de", true}),
                         [](const auto& testCase) { return testCase.param.name; });

}  // namespace
