// Carries out a script in the settings dialog, one action whenever the message loop has nothing to do: as a person
// would, through the controls. Message boxes and pickers that appear are reported and answered from the script.
#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "app/script.h"

namespace qv {

class DialogView;
struct DialogRow;

class ScriptRunner {
public:
    using Tell = std::function<void(std::wstring_view)>;

    // tell: hears a line for every message box, picker and picture.
    ScriptRunner(std::vector<ScriptAction> actions, Tell tell);
    ~ScriptRunner();
    ScriptRunner(const ScriptRunner&) = delete;
    ScriptRunner& operator=(const ScriptRunner&) = delete;

    // Takes the idle handler and the sinks of message boxes and pickers until destruction.
    void Start();
    // True when every action was carried out and the dialog ended by itself.
    [[nodiscard]] bool Succeeded() const { return m_problem.empty(); }
    // One line; empty when all went well.
    [[nodiscard]] const std::wstring& Problem() const { return m_problem; }
    // To be called when the dialog is over: what is left of the script could not be done.
    void DialogEnded();

private:
    bool OnIdle(int count);
    void Perform(const ScriptAction& action);
    void ShowPage(const DialogView& view, const ScriptAction& action);
    void Set(const DialogView& view, const ScriptAction& action);
    void SetRow(const DialogRow& row, const std::wstring& text);
    void Press(const DialogView& view, const ScriptAction& action);
    void PressKey(const ScriptAction& action);
    void Snapshot(const DialogView& view, const ScriptAction& action);
    void Dump(const DialogView& view, const ScriptAction& action);
    void Fail(std::wstring problem);
    void TakeAnswers();

    std::vector<ScriptAction> m_actions;
    Tell m_tell;
    std::size_t m_next = 0;
    std::deque<ScriptAction> m_answers;  // given before the box or picker that they answer
    std::wstring m_problem;
    bool m_seenDialog = false;
    bool m_started = false;
};

}  // namespace qv
