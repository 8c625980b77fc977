#include "app/script_runner.h"

#include <exception>
#include <optional>

#include "app/dialog_view.h"
#include "base/text.h"
#include "framework/app.h"
#include "framework/wnd.h"
#include "host/libraries/message_box.h"
#include "host/libraries/pickers.h"

namespace qv {

namespace {

constexpr UINT kTickMilliseconds = 100;
// A loop of the framework is idle after every message. One that goes on for two seconds without is the platform's own:
// a menu, a box, a window that is being moved.
constexpr int kTicksOfOtherLoop = 20;
constexpr int kTicksForDialog = 100;
// Two would do for a dialog in front of the settings dialog; whatever needs more does not want to go.
constexpr int kTimesToClose = 20;

ScriptRunner* g_started = nullptr;  // timers have no argument of their own

bool IsAnswer(const ScriptAction& action) {
    return action.kind == ScriptAction::Kind::Answer || action.kind == ScriptAction::Kind::AnswerPath ||
           action.kind == ScriptAction::Kind::AnswerColour;
}

// A dialog or box that waits for somebody: not the program's window, and no list or menu that dropped from somewhere.
bool IsWaiting(HWND window) {
    const CWnd* main = GetMainWnd();
    if (window == nullptr || (main != nullptr && window == main->m_hWnd)) return false;
    const auto style = static_cast<DWORD>(GetWindowLongW(window, GWL_STYLE));
    return IsWindowVisible(window) != FALSE && IsWindowEnabled(window) != FALSE && (style & WS_CAPTION) == WS_CAPTION;
}

HWND WaitingWindow() {
    if (const HWND active = GetActiveWindow(); IsWaiting(active)) return active;
    HWND waiting = nullptr;
    EnumThreadWindows(
        GetCurrentThreadId(),
        [](HWND window, LPARAM param) -> BOOL {
            if (!IsWaiting(window)) return TRUE;
            *reinterpret_cast<HWND*>(param) = window;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&waiting));
    return waiting;
}

// Every loop that waits looks at its queue again.
void Wake() {
    PostMessageW(nullptr, WM_NULL, 0, 0);
}

}  // namespace

ScriptRunner::ScriptRunner(std::vector<ScriptAction> actions, Tell tell)
    : m_actions(std::move(actions)), m_tell(tell), m_hands(std::move(tell), [this] {
          m_ticksInOtherLoop = m_ticksWithoutDialog = 0;
          PumpPending();
      }) {}

ScriptRunner::~ScriptRunner() {
    if (!m_started) return;
    StopTimer();
    SetIdleHandler({});
    SetMessageBoxSink({});
    SetPickerSink({});
}

void ScriptRunner::Start() {
    m_started = true;
    SetIdleHandler([this](int count) { return OnIdle(count); });
    SetMessageBoxSink([this](const MessageBoxCall& box) {
        m_tell(Format(L"message box \"%s\": %s", box.caption, box.text));
        const auto answer = AnswerFor(ScriptAction::Kind::Answer);
        return answer ? answer->first : IDOK;
    });
    const auto path = [this](const PathPickerRequest& request) -> std::optional<std::wstring> {
        m_tell(Format(L"picker \"%s\"", request.title));
        const auto answer = AnswerFor(ScriptAction::Kind::AnswerPath);
        return answer ? std::optional(answer->text) : std::nullopt;
    };
    SetPickerSink({path, path, [this](const ColorPickerRequest&) -> std::optional<COLORREF> {
                       m_tell(L"colour picker");
                       const auto answer = AnswerFor(ScriptAction::Kind::AnswerColour);
                       return answer ? std::optional(static_cast<COLORREF>(answer->first)) : std::nullopt;
                   }});
    g_started = this;
    m_timer = SetTimer(nullptr, 0, kTickMilliseconds, [](HWND, UINT, UINT_PTR, DWORD) {
        if (g_started != nullptr) g_started->OnTick();
    });
}

void ScriptRunner::StopTimer() {
    if (m_timer != 0) KillTimer(nullptr, m_timer);
    m_timer = 0;
    if (g_started == this) g_started = nullptr;
}

// Answers stand in the script before what makes the box appear or right after it; both are taken when the box is there.
void ScriptRunner::TakeAnswers() {
    while (m_next < m_actions.size() && IsAnswer(m_actions[m_next]))
        m_answers.push_back(m_actions[m_next++]);
}

std::optional<ScriptAction> ScriptRunner::AnswerFor(ScriptAction::Kind kind) {
    TakeAnswers();
    if (m_answers.empty() || m_answers.front().kind != kind) return std::nullopt;
    ScriptAction answer = std::move(m_answers.front());
    m_answers.pop_front();
    return answer;
}

bool ScriptRunner::OnIdle(int count) {
    m_ticksInOtherLoop = 0;
    if (count != 0) return false;  // only after messages: the last action has then taken effect
    const bool isOpen = DialogView::Look().IsOpen();
    if (isOpen) {
        m_seenDialog = true;
        m_ticksWithoutDialog = 0;
    }
    TakeAnswers();
    if (m_problem.empty() && isOpen && m_next < m_actions.size()) {
        PerformNext();
        // An action that posted nothing must not leave the loop waiting.
        Wake();
    } else if (m_problem.empty() && isOpen) {
        const HWND front = WaitingWindow();
        const DialogView view = DialogView::Look();
        Fail(front == nullptr || front == view.Frame()
                 ? L"the script ended with the dialog open; it is cancelled"
                 : Format(L"the script ended with \"%s\" open; it and the dialog are cancelled", TextOfWindow(front)));
    }
    if (!m_problem.empty()) CloseFront();
    return false;
}

// Comes in every message loop, the platform's own ones too.
void ScriptRunner::OnTick() {
    ++m_ticksInOtherLoop;
    ++m_ticksWithoutDialog;
    if (m_ticksInOtherLoop > kTicksOfOtherLoop) {
        const int line = m_next > 0 ? m_actions[m_next - 1].line : 0;
        Fail(Format(L"line %d: something that no script can answer waits for a person; the dialog is cancelled", line));
        CloseFront();
    } else if (m_ticksWithoutDialog > kTicksForDialog) {
        Fail(m_seenDialog ? L"the settings dialog is gone, and the program still waits for something"
                          : L"no settings dialog appeared");
        CloseFront();
    }
}

void ScriptRunner::DialogEnded() {
    StopTimer();
    if (!m_problem.empty()) return;
    TakeAnswers();
    if (!m_seenDialog) {
        Fail(L"no settings dialog appeared");
    } else if (m_next < m_actions.size()) {
        Fail(Format(L"line %d: the dialog is closed already", m_actions[m_next].line));
    }
}

void ScriptRunner::Fail(std::wstring problem) {
    if (m_problem.empty()) m_problem = std::move(problem);
}

// Closes what is in front, and after that what was behind it. What will not go is left without its message loop: a quit
// message ends them all, up to the program's.
void ScriptRunner::CloseFront() {
    if (m_timesClosed++ >= kTimesToClose) return PostQuitMessage(0);
    if (const HWND front = WaitingWindow()) {
        SendMessageW(front, WM_CANCELMODE, 0, 0);  // ends its menus first
        PostMessageW(front, WM_CLOSE, 0, 0);
    } else {
        Wake();
    }
}

void ScriptRunner::PerformNext() {
    const ScriptAction action = m_actions[m_next++];
    std::wstring problem;
    try {
        problem = m_hands.Perform(action);
    } catch (const std::exception& error) {
        problem = L"failed: " + FromUtf8(error.what());
    }
    if (!problem.empty()) Fail(Format(L"line %d: %s", action.line, problem));
}

}  // namespace qv
