// Carries out a script in the settings dialog, one action whenever the message loop has nothing to do. Message boxes
// and pickers that appear are reported and answered from the script. However the dialog behaves, the script ends: what
// is left open is closed, and a problem in words tells why.
#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "app/script.h"
#include "app/script_actions.h"

namespace qv {

class ScriptRunner {
public:
    using Tell = std::function<void(std::wstring_view)>;

    // tell: hears a line for every message box, picker and picture.
    ScriptRunner(std::vector<ScriptAction> actions, Tell tell);
    ~ScriptRunner();
    ScriptRunner(const ScriptRunner&) = delete;
    ScriptRunner& operator=(const ScriptRunner&) = delete;

    // Takes the idle handler, the sinks of message boxes and pickers and a timer until destruction. One runner at a
    // time is started.
    void Start();
    // True when every action was carried out and the dialog ended by itself.
    [[nodiscard]] bool Succeeded() const { return m_problem.empty(); }
    // One line; empty when all went well.
    [[nodiscard]] const std::wstring& Problem() const { return m_problem; }
    // To be called when the dialog is over: what is left of the script could not be done.
    void DialogEnded();

private:
    bool OnIdle(int count);
    void OnTick();
    void PerformNext();
    // The first problem is the one that counts.
    void Fail(std::wstring problem);
    void CloseFront();
    void TakeAnswers();
    void StopTimer();
    // The answer that the script has for what just appeared; nothing when its next answer is for something else.
    std::optional<ScriptAction> AnswerFor(ScriptAction::Kind kind);

    std::vector<ScriptAction> m_actions;
    Tell m_tell;
    ScriptActions m_hands;
    std::size_t m_next = 0;
    std::deque<ScriptAction> m_answers;  // given before the box or picker that they answer
    std::wstring m_problem;
    bool m_seenDialog = false;
    bool m_started = false;
    UINT_PTR m_timer = 0;
    int m_ticksInOtherLoop = 0;    // since a loop of ours had nothing to do
    int m_ticksWithoutDialog = 0;  // since the dialog was there
    int m_timesClosed = 0;
};

}  // namespace qv
