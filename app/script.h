// The scripted host's language: one user action a line, blank lines and lines that begin with # skipped.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace qv {

struct ScriptAction {
    enum class Kind { Page, Set, Press, Key, Type, Resize, Snapshot, Dump, Answer, AnswerPath, AnswerColour };
    Kind kind;
    int line;             // in the script, from 1
    std::wstring target;  // page, item key, button, key, file, answer
    std::wstring text;    // Set: what to type or choose; Type: what to type; AnswerPath: the path
    int first = 0;        // Resize: width; Answer: the button's id; AnswerColour: the colour
    int second = 0;       // Resize: height
};

// False with one line that names the script line and what is wrong with it.
[[nodiscard]] bool ParseScript(std::wstring_view script, std::vector<ScriptAction>& actions, std::wstring& problem);

}  // namespace qv
