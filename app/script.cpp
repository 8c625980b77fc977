#include "app/script.h"

#include <array>

#include "base/text.h"
#include "platform/platform.h"

namespace qv {

namespace {

struct Verb {
    std::wstring_view word;
    ScriptAction::Kind kind;
};
constexpr std::array kVerbs{
    Verb{L"page", ScriptAction::Kind::Page},     Verb{L"set", ScriptAction::Kind::Set},
    Verb{L"press", ScriptAction::Kind::Press},   Verb{L"key", ScriptAction::Kind::Key},
    Verb{L"type", ScriptAction::Kind::Type},     Verb{L"resize", ScriptAction::Kind::Resize},
    Verb{L"dump", ScriptAction::Kind::Dump},     Verb{L"snapshot", ScriptAction::Kind::Snapshot},
    Verb{L"answer", ScriptAction::Kind::Answer},
};

struct NamedAnswer {
    std::wstring_view word;
    int button;
};
constexpr std::array kAnswers{NamedAnswer{L"ok", IDOK}, NamedAnswer{L"cancel", IDCANCEL}, NamedAnswer{L"yes", IDYES},
                              NamedAnswer{L"no", IDNO}, NamedAnswer{L"retry", IDRETRY}};

// The first word of text, which loses it and the blanks around it.
std::wstring TakeWord(std::wstring& text) {
    text = Trim(text);
    const std::size_t end = std::min(text.find_first_of(L" \t"), text.size());
    std::wstring word = text.substr(0, end);
    text = Trim(std::wstring_view(text).substr(end));
    return word;
}

bool IsNumber(std::wstring_view text) {
    return !text.empty() && text.find_first_not_of(L"0123456789") == std::wstring_view::npos && text.size() < 10;
}

// What is wrong with the rest of the line; empty when it is right.
std::wstring FillAction(ScriptAction& action, std::wstring rest) {
    switch (action.kind) {
        case ScriptAction::Kind::Set:
            action.target = TakeWord(rest);
            action.text = rest;
            return action.target.empty() ? L"needs KEY/NAME and a text" : L"";
        case ScriptAction::Kind::Type:
            action.text = std::move(rest);
            return action.text.empty() ? L"needs a text" : L"";
        case ScriptAction::Kind::Resize: {
            const std::wstring width = TakeWord(rest);
            if (!IsNumber(width) || !IsNumber(rest)) return L"needs a width and a height in pixels";
            action.first = LeadingInteger(width);
            action.second = LeadingInteger(rest);
            return L"";
        }
        case ScriptAction::Kind::Answer:
            action.target = TakeWord(rest);
            if (action.target == L"path") {
                action.kind = ScriptAction::Kind::AnswerPath;
                action.text = rest;
                return rest.empty() ? L"needs a path" : L"";
            }
            if (action.target == L"colour") {
                action.kind = ScriptAction::Kind::AnswerColour;
                action.first = LeadingInteger(rest);
                return IsNumber(rest) ? L"" : L"needs a colour number";
            }
            for (const NamedAnswer& answer : kAnswers) {
                if (answer.word != action.target || !rest.empty()) continue;
                action.first = answer.button;
                return L"";
            }
            return L"needs ok, cancel, yes, no, retry, path or colour";
        default:
            action.target = rest;
            return rest.empty() ? L"needs to know what" : L"";
    }
}

}  // namespace

bool ParseScript(std::wstring_view script, std::vector<ScriptAction>& actions, std::wstring& problem) {
    int line = 0;
    while (!script.empty()) {
        ++line;
        const std::size_t end = std::min(script.find(L'\n'), script.size());
        std::wstring rest = Trim(script.substr(0, end));
        script.remove_prefix(std::min(end + 1, script.size()));
        if (rest.empty() || rest.front() == L'#') continue;

        const std::wstring word = TakeWord(rest);
        const Verb* verb = nullptr;
        for (const Verb& candidate : kVerbs) {
            if (candidate.word == word) verb = &candidate;
        }
        if (verb == nullptr) {
            problem = Format(L"line %d: unknown action \"%s\"", line, word);
            return false;
        }
        ScriptAction action{verb->kind, line, {}, {}};
        if (const std::wstring wrong = FillAction(action, std::move(rest)); !wrong.empty()) {
            problem = Format(L"line %d: %s %s", line, word, wrong);
            return false;
        }
        actions.push_back(std::move(action));
    }
    return true;
}

}  // namespace qv
