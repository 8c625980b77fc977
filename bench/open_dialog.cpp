// What opening the whole settings dialog costs, beside the bare creation of the same windows: a page's prompts and
// controls, the frame around them, with the same styles, places, fonts, texts and entries, by plain calls of the
// platform. Both are done in turn in one process, so that the ratio does not depend on the machine's mood. A program of
// its own rather than a benchmark library's, because it runs in both builds.
//
// open_dialog [ITEMS [TURNS]]: without arguments 100 and 1,000 items.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string>
#include <vector>

#include "app/component.h"
#include "base/module_state.h"
#include "base/text.h"
#include "framework/app.h"
#include "host/services/host_object.h"
#include "host/services/multi_user_manager.h"
#include "platform/command_line.h"
#include "tests/support/memory_session_data.h"

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kRowsAPage = 25;
constexpr const wchar_t* kBareClass = L"QvBenchmarkBare";

double Milliseconds(Clock::duration time) {
    return std::chrono::duration<double, std::milli>(time).count();
}

qv::ComPtr<qv::MemorySessionData> MakeDefinitions(int items) {
    auto session = qv::MemorySessionData::Create();
    for (int i = 0; i < items; ++i) {
        const int page = i / kRowsAPage + 1;
        if (i % kRowsAPage == 0) {
            session->Define(L"option-configuration/pages", std::to_wstring(page), qv::Format(L"Page %d", page));
        }
        const std::wstring key = qv::Format(L"option-configuration/common/item%d", i);
        const std::wstring type = std::to_wstring(i % 5);
        session->Define(key, L"type", type);
        session->Define(key, L"label", qv::Format(L"Number of entries %d", i));
        session->Define(key, L"pagenumber", std::to_wstring(page));
        session->Define(key, L"ordernumber", std::to_wstring(i));
        session->Define(key, L"globaldata", L"0");
        session->Define(key, L"functiongroup", L"0");
        session->Define(key, L"default", L"4");
        if (i % 5 == 3) session->Define(key, L"maxstringlength", L"40");
        if (i % 5 != 4) continue;
        session->Define(key, L"value1", L"1|First entry");
        session->Define(key, L"value2", L"4|Second entry");
        session->Define(key, L"value3", L"9|Third entry");
    }
    return session;
}

// One window of the dialog as it stands, to be created again.
struct Window {
    std::wstring className;
    std::wstring text;
    DWORD style;
    DWORD exStyle;
    RECT place;          // in the parent's client area; the frame's on the screen
    std::size_t parent;  // index; the frame is its own
    HFONT font;
    std::vector<std::wstring> entries;
    LRESULT selected;
    LRESULT limit;
};

std::wstring ClassOf(HWND window) {
    wchar_t name[64] = {};
    GetClassNameW(window, name, 64);
    return name;
}

std::wstring TextFrom(HWND window, UINT lengthMessage, UINT textMessage, WPARAM index) {
    const LRESULT length = SendMessageW(window, lengthMessage, index, 0);
    if (length <= 0) return {};
    std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
    const WPARAM argument = textMessage == WM_GETTEXT ? text.size() : index;
    SendMessageW(window, textMessage, argument, reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(length));
    return text;
}

class BareDialog {
public:
    // Takes down what the dialog consists of.
    void Capture(HWND frame) {
        m_windows.clear();
        m_handles.clear();
        Take(frame, 0);
    }
    [[nodiscard]] std::size_t Count() const { return m_windows.size(); }

    [[nodiscard]] double Open() {
        const auto start = Clock::now();
        m_handles.assign(m_windows.size(), nullptr);
        for (std::size_t i = 0; i < m_windows.size(); ++i)
            m_handles[i] = Create(m_windows[i], i);
        ShowWindow(m_handles[0], SW_SHOW);
        PumpPending();
        return Milliseconds(Clock::now() - start);
    }
    void Close() {
        DestroyWindow(m_handles[0]);
        PumpPending();
    }

private:
    void Take(HWND window, std::size_t parent) {
        const std::size_t index = m_windows.size();
        Window taken{ClassOf(window), {}, 0, 0, {}, parent, nullptr, {}, -1, 0};
        taken.text = TextFrom(window, WM_GETTEXTLENGTH, WM_GETTEXT, 0);
        taken.style = static_cast<DWORD>(GetWindowLongPtrW(window, GWL_STYLE));
        taken.exStyle = static_cast<DWORD>(GetWindowLongPtrW(window, GWL_EXSTYLE));
        if (index == 0) taken.style &= ~static_cast<DWORD>(WS_VISIBLE);
        GetWindowRect(window, &taken.place);
        if (index != 0) {
            const HWND around = GetParent(window);
            MapWindowPoints(nullptr, around, reinterpret_cast<POINT*>(&taken.place), 2);
        }
        taken.font = reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0));
        const bool isCombo = qv::EqualIgnoringCase(taken.className, L"ComboBox");
        if (isCombo) {
            const LRESULT count = SendMessageW(window, CB_GETCOUNT, 0, 0);
            for (LRESULT i = 0; i < count; ++i) {
                taken.entries.push_back(TextFrom(window, CB_GETLBTEXTLEN, CB_GETLBTEXT, static_cast<WPARAM>(i)));
            }
            taken.selected = SendMessageW(window, CB_GETCURSEL, 0, 0);
        }
        if (qv::EqualIgnoringCase(taken.className, L"Edit")) taken.limit = SendMessageW(window, EM_GETLIMITTEXT, 0, 0);
        if (qv::EqualIgnoringCase(taken.className, WC_TABCONTROLW)) {
            taken.entries.resize(static_cast<std::size_t>(SendMessageW(window, TCM_GETITEMCOUNT, 0, 0)), L"Page 00");
        }
        m_windows.push_back(std::move(taken));
        if (isCombo) return;  // what stands in a combo box is its own
        for (HWND child = GetWindow(window, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT))
            Take(child, index);
    }

    HWND Create(const Window& window, std::size_t index) {
        const auto is = [&](const wchar_t* name) { return qv::EqualIgnoringCase(window.className, name); };
        const bool isTab = is(WC_TABCONTROLW);
        const bool isCombo = is(L"ComboBox");
        const bool isStandard = isTab || isCombo || is(L"Static") || is(L"Edit") || is(L"Button") || is(L"ScrollBar");
        const RECT& place = window.place;
        const HWND made =
            CreateWindowExW(window.exStyle, isStandard ? window.className.c_str() : kBareClass, window.text.c_str(),
                            window.style, place.left, place.top, place.right - place.left, place.bottom - place.top,
                            index == 0 ? nullptr : m_handles[window.parent], nullptr, m_instance, nullptr);
        if (window.font != nullptr) SendMessageW(made, WM_SETFONT, reinterpret_cast<WPARAM>(window.font), FALSE);
        if (window.limit > 0) SendMessageW(made, EM_SETLIMITTEXT, static_cast<WPARAM>(window.limit), 0);
        for (const std::wstring& entry : window.entries) {
            if (isCombo) SendMessageW(made, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(entry.c_str()));
            if (!isTab) continue;
            TCITEMW item{};
            item.mask = TCIF_TEXT;
            item.pszText = const_cast<wchar_t*>(entry.c_str());
            SendMessageW(made, TCM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
        }
        if (isCombo) SendMessageW(made, CB_SETCURSEL, static_cast<WPARAM>(window.selected), 0);
        return made;
    }

    const HINSTANCE m_instance = GetModuleHandleW(nullptr);
    std::vector<Window> m_windows;
    std::vector<HWND> m_handles;
};

double Median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

int Compare(int items, int turns) {
    const auto session = MakeDefinitions(items);
    const auto users = qv::MultiUserManager::CreateWithAllRights();
    const auto host = qv::HostObject::Create(session.Get(), users.Get());
    qv::SettingsComponent component;
    std::wstring problem;
    if (!component.Connect(host.Get(), problem)) {
        std::fprintf(stderr, "open_dialog: %s\n", qv::ToUtf8(problem).c_str());
        return 1;
    }
    BareDialog bare;
    std::vector<double> opening, creating;
    for (int turn = 0; turn <= turns; ++turn) {
        Clock::time_point settled;
        bool isSettled = false;
        SetIdleHandler([&](int) {
            if (!isSettled) {
                settled = Clock::now();
                isSettled = true;
                const HWND frame = GetAncestor(GetFocus(), GA_ROOT);
                if (turn == 0) bare.Capture(frame);
                PostMessageW(frame, WM_CLOSE, 0, 0);
            }
            return false;
        });
        const auto start = Clock::now();
        const bool isShown = component.ChangeSettings();
        SetIdleHandler({});
        if (!isShown || !isSettled) {
            std::fprintf(stderr, "open_dialog: the dialog did not open\n");
            return 1;
        }
        const double created = bare.Open();
        bare.Close();
        if (turn == 0) continue;  // both have warmed up
        opening.push_back(Milliseconds(settled - start));
        creating.push_back(created);
    }
    const auto fastest = [](const std::vector<double>& values) {
        return *std::min_element(values.begin(), values.end());
    };
    const double openingMedian = Median(opening), creatingMedian = Median(creating);
    const double openingLeast = fastest(opening), creatingLeast = fastest(creating);
    std::printf("%6d %8zu  %9.2f %9.2f %6.2f   %9.2f %9.2f %6.2f\n", items, bare.Count(), openingMedian, creatingMedian,
                openingMedian / creatingMedian, openingLeast, creatingLeast, openingLeast / creatingLeast);
    std::fflush(stdout);
    return 0;
}

}  // namespace

int main() {
    if (FAILED(OleInitialize(nullptr))) return 1;
    ModuleState state{GetModuleHandleW(nullptr)};
    SetProcessModuleState(state);
    WNDCLASSW bare{};
    bare.lpfnWndProc = &DefWindowProcW;
    bare.hInstance = GetModuleHandleW(nullptr);
    bare.lpszClassName = kBareClass;
    RegisterClassW(&bare);

    const std::vector<std::wstring> arguments = qv::CommandLineArguments();
    const int items = arguments.size() > 1 ? qv::LeadingInteger(arguments[1]) : 0;
    const int turns = arguments.size() > 2 ? qv::LeadingInteger(arguments[2]) : 0;
    std::printf("                  median: ms     bare  ratio    fastest: ms     bare  ratio\n");
    std::printf(" items  windows    opening  creation             opening  creation\n");
    int status = 0;
    if (items > 0) {
        status = Compare(items, turns > 0 ? turns : 9);
    } else {
        status = Compare(100, 25);
        if (status == 0) status = Compare(1000, 9);
    }
    OleUninitialize();
    return status;
}
