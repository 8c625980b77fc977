// What the whole settings dialog costs, from the menu command to its end, for growing numbers of items: opening,
// showing a page for the first time and again, resizing, Apply with every page's first field changed, closing; how many
// windows it has and how much heap an item takes while it is open. Beside it two floors in the same process, taken in
// turn, so that ratios do not depend on the machine's mood: the bare windows that the dialog has, and those that it
// would have if every page had been seen. A program of its own rather than a benchmark library's, because it runs in
// both builds.
//
// dialog_costs [ITEMS [TURNS]]: without arguments 100, 1,000 and 10,000 items. Each step is also told to a window that
// nobody sees, so that a trace of the requests to a display server shows where it begins ("begin: open").
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "app/component.h"
#include "app/dialog_view.h"
#include "base/module_state.h"
#include "base/text.h"
#include "bench/bare_dialog.h"
#include "bench/heap.h"
#include "framework/app.h"
#include "host/libraries/layout.h"
#include "host/services/file_session_data.h"
#include "host/services/host_object.h"
#include "host/services/multi_user_manager.h"
#include "platform/command_line.h"
#include "platform/user.h"
#include "tests/support/temporary_folder.h"

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kRowsAPage = 25;
// More windows than a process may have: no floor of all rows for so many items.
constexpr int kMostItemsAllSeen = 2000;

void Define(qv::ScopeData& definitions, int items) {
    for (int i = 0; i < items; ++i) {
        const int page = i / kRowsAPage + 1;
        if (i % kRowsAPage == 0) {
            definitions.Set(L"option-configuration/pages", std::to_wstring(page), qv::Format(L"Page %d", page));
        }
        const std::wstring key = qv::Format(L"option-configuration/common/item%d", i);
        const std::wstring type = std::to_wstring(i % 5);
        definitions.Set(key, L"type", type);
        definitions.Set(key, L"label", qv::Format(L"Number of entries %d", i));
        definitions.Set(key, L"pagenumber", std::to_wstring(page));
        definitions.Set(key, L"ordernumber", std::to_wstring(i));
        definitions.Set(key, L"globaldata", L"0");
        definitions.Set(key, L"functiongroup", L"0");
        definitions.Set(key, L"default", L"4");
        if (i % 5 == 3) definitions.Set(key, L"maxstringlength", L"40");
        if (i % 5 != 4) continue;
        definitions.Set(key, L"value1", L"1|First entry");
        definitions.Set(key, L"value2", L"4|Second entry");
        definitions.Set(key, L"value3", L"9|Third entry");
    }
}

HWND Frame() {
    for (const XLayout* layout : qv::LiveLayouts()) {
        if (layout->GetParent() != nullptr && layout->GetParent()->IsLive()) {
            return GetAncestor(layout->GetParent()->m_hWnd, GA_ROOT);
        }
    }
    return nullptr;
}

// Milliseconds of every step, in the order in which steps were first timed.
class Times {
public:
    void Add(const char* step, double milliseconds) {
        if (!m_times.contains(step)) m_order.push_back(step);
        m_times[step].push_back(milliseconds);
    }
    [[nodiscard]] double Median(const char* step) {
        std::vector<double>& times = m_times[step];
        if (times.empty()) return 0;
        std::sort(times.begin(), times.end());
        return times[times.size() / 2];
    }
    [[nodiscard]] const std::vector<const char*>& Steps() const { return m_order; }
    void Clear() { *this = {}; }

private:
    std::vector<const char*> m_order;
    std::map<std::string_view, std::vector<double>> m_times;
};

class Measurement {
public:
    explicit Measurement(int items) : m_items(items) {
        m_marker.CreateEx(0, nullptr, L"", WS_POPUP, CRect(0, 0, 10, 10), nullptr, 0);
    }

    bool Run(int turns) {
        for (int turn = 0; turn <= turns; ++turn) {
            if (turn == 1) m_times.Clear();  // by then everything has warmed up
            if (!Host() || !OneDialog(turn == 0)) return false;
            Time("bare windows of the dialog", [this] { m_bare.Open(); });
            m_bare.Close();
            if (m_all.Count() == 0) continue;
            Time("bare windows of all rows", [this] { m_all.Open(); });
            m_all.Close();
        }
        return true;
    }

    void Print() {
        const double own = m_times.Median("bare windows of the dialog");
        const double all = m_times.Median("bare windows of all rows");
        std::printf("%d items: %zu windows at open", m_items, m_bare.Count());
        if (m_all.Count() != 0) std::printf(", %zu when every page was seen", m_all.Count());
        if (m_heap > 0) std::printf("; %.2f KB of heap an item", m_heap / 1024 / m_items);
        std::printf("\n");
        for (const char* step : m_times.Steps())
            std::printf("    %-28s %10.2f ms\n", step, m_times.Median(step));
        const double open = m_times.Median("open");
        if (own > 0) std::printf("    open / bare windows of the dialog  %.2f\n", open / own);
        if (all > 0) std::printf("    open / bare windows of all rows    %.2f\n", open / all);
        const int rows = std::min(m_items, kRowsAPage);
        if (m_items > kRowsAPage) {
            std::printf("    a row of a page seen first         %.2f ms\n", m_times.Median("page, first time") / rows);
        }
        std::fflush(stdout);
    }

private:
    // A host with nothing stored, so that the same values are new every time.
    bool Host() {
        m_folder.emplace();
        const auto session = qv::FileSessionData::Create(m_folder->Path(), {});
        Define(session->Definitions(), m_items);
        m_host = qv::HostObject::Create(session.Get(), m_users.Get());
        std::wstring problem;
        if (m_component.Connect(m_host.Get(), problem)) return true;
        std::fprintf(stderr, "dialog_costs: %s\n", qv::ToUtf8(problem).c_str());
        return false;
    }

    template <class Act>
    void Time(const char* step, const Act& act) {
        Mark(step);
        const auto start = Clock::now();
        act();
        m_times.Add(step, std::chrono::duration<double, std::milli>(Clock::now() - start).count());
    }
    void Mark(const char* step) {
        ::SetWindowTextW(m_marker.m_hWnd, qv::FromUtf8(std::string("begin: ") + step).c_str());
    }

    // Steps run whenever the dialog has nothing left to do; what it does next is counted for the step.
    bool OneDialog(bool isFirst) {
        const bool seesAll = isFirst && m_items <= kMostItemsAllSeen;
        const std::size_t pages = static_cast<std::size_t>((m_items + kRowsAPage - 1) / kRowsAPage);
        const qv::User person([] { PumpPending(); });
        const auto showPage = [&person](int) { person.Press(VK_NEXT, {.control = true}); };
        struct Step {
            const char* name;
            std::function<void()> act;
        };
        std::vector<Step> steps;
        if (pages > 1) {
            steps.push_back({"page, first time", [&] { showPage(1); }});
            if (seesAll) {
                for (std::size_t page = 2; page < pages; ++page)
                    steps.push_back({"page, first time", [&] { showPage(1); }});
                steps.push_back({"page, seen before", [&] { m_all.Capture(Frame()); }});
            }
            steps.push_back({"page, seen before", [&] { person.Press(VK_PRIOR, {.control = true}); }});
        } else if (isFirst) {
            steps.push_back({"capture", [&] { m_all.Capture(Frame()); }});
        }
        steps.push_back({"resize", [] {
                             RECT place{};
                             GetWindowRect(Frame(), &place);
                             SetWindowPos(Frame(), nullptr, 0, 0, place.right - place.left - 40,
                                          place.bottom - place.top - 40, SWP_NOMOVE | SWP_NOZORDER);
                         }});
        // Default counts as a change, so that Apply has something to do.
        steps.push_back({"default", [] { SendMessageW(qv::FindButton(Frame(), 127), BM_CLICK, 0, 0); }});
        steps.push_back({"apply to files", [] { SendMessageW(qv::FindButton(Frame(), 128), BM_CLICK, 0, 0); }});
        steps.push_back({"close", [] { PostMessageW(Frame(), WM_CLOSE, 0, 0); }});

        const double heapBefore = bench::HeapBytes();
        const char* running = "open";
        std::size_t next = 0;
        Mark(running);
        auto start = Clock::now();
        SetIdleHandler([&](int) {
            m_times.Add(running, std::chrono::duration<double, std::milli>(Clock::now() - start).count());
            if (next == 0) {
                m_heap = bench::HeapBytes() - heapBefore;
                if (isFirst) m_bare.Capture(Frame());
            }
            if (next == steps.size()) return false;
            const Step& step = steps[next++];
            running = step.name;
            Mark(running);
            start = Clock::now();
            step.act();
            return true;
        });
        const bool isShown = m_component.ChangeSettings();
        m_times.Add(running, std::chrono::duration<double, std::milli>(Clock::now() - start).count());
        Mark("end");
        SetIdleHandler({});
        if (isShown && next == steps.size()) return true;
        std::fprintf(stderr, "dialog_costs: the dialog did not open\n");
        return false;
    }

    int m_items;
    std::optional<qvtest::TemporaryFolder> m_folder;
    qv::ComPtr<qv::MultiUserManager> m_users = qv::MultiUserManager::CreateWithAllRights();
    qv::ComPtr<qv::HostObject> m_host;
    qv::SettingsComponent m_component;
    CWnd m_marker;
    bench::BareDialog m_bare;  // the windows of the dialog when it has just opened
    bench::BareDialog m_all;   // and when every page has been seen
    Times m_times;
    double m_heap = 0;
};

bool Measure(int items, int turns) {
    Measurement measurement(items);
    if (!measurement.Run(turns)) return false;
    measurement.Print();
    return true;
}

}  // namespace

int main() {
    if (FAILED(OleInitialize(nullptr))) return 1;
    ModuleState state{GetModuleHandleW(nullptr)};
    SetProcessModuleState(state);
    const std::vector<std::wstring> arguments = qv::CommandLineArguments();
    const int items = arguments.size() > 1 ? qv::LeadingInteger(arguments[1]) : 0;
    const int turns = arguments.size() > 2 ? qv::LeadingInteger(arguments[2]) : 0;
    const bool isDone =
        items > 0 ? Measure(items, turns > 0 ? turns : 9) : Measure(100, 15) && Measure(1000, 9) && Measure(10000, 3);
    OleUninitialize();
    return isDone ? 0 : 1;
}
