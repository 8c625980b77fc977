// The demo as people see it: every page of it in both languages, opened as large as the dialog makes itself and as
// small as a remembered placement lets it become. ctest runs this at several resolutions.
#include <gtest/gtest.h>

#include <algorithm>

#include "app/sample_host.h"
#include "framework/check_list_box.h"
#include "framework/module_state.h"
#include "framework/text.h"
#include "host/libraries/translation.h"
#include "tests/app/demo/window_checks.h"
#include "tests/component/settings_driver.h"
#include "tests/host/temporary_folder.h"

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
    ~DemoDialog() override {
        qv::SetDictionary({});
        OleUninitialize();
    }

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
        ASSERT_EQ(pages, 8);
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
        CheckInside(page);
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
