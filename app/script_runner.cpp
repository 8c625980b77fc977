#include "app/script_runner.h"

#include <array>

#include "app/dialog_view.h"
#include "framework/app.h"
#include "framework/check_list_box.h"
#include "framework/text.h"
#include "host/libraries/message_box.h"
#include "host/libraries/pickers.h"
#include "host/services/whole_file.h"
#include "platform/snapshot.h"
#include "platform/user.h"

namespace qv {

namespace {

struct NamedNumber {
    std::wstring_view name;
    int number;
};
constexpr std::array kDialogButtons{NamedNumber{L"ok", IDOK}, NamedNumber{L"cancel", IDCANCEL},
                                    NamedNumber{L"help", 126}, NamedNumber{L"default", 127},
                                    NamedNumber{L"apply", 128}};
constexpr std::array kAnswers{NamedNumber{L"ok", IDOK}, NamedNumber{L"cancel", IDCANCEL}, NamedNumber{L"yes", IDYES},
                              NamedNumber{L"no", IDNO}, NamedNumber{L"retry", IDRETRY}};
constexpr std::array kKeys{
    NamedNumber{L"tab", VK_TAB},     NamedNumber{L"enter", VK_RETURN}, NamedNumber{L"esc", VK_ESCAPE},
    NamedNumber{L"space", VK_SPACE}, NamedNumber{L"up", VK_UP},        NamedNumber{L"down", VK_DOWN},
    NamedNumber{L"left", VK_LEFT},   NamedNumber{L"right", VK_RIGHT},  NamedNumber{L"home", VK_HOME},
    NamedNumber{L"end", VK_END},     NamedNumber{L"pgup", VK_PRIOR},   NamedNumber{L"pgdn", VK_NEXT},
    NamedNumber{L"del", VK_DELETE},  NamedNumber{L"back", VK_BACK},    NamedNumber{L"f1", VK_F1},
    NamedNumber{L"f4", VK_F4},
};

// A person whose input is dispatched at once, through the framework's translation of keys.
const User& Person() {
    static const User person(&PumpPending);
    return person;
}

template <std::size_t N>
const NamedNumber* FindName(const std::array<NamedNumber, N>& table, std::wstring_view name) {
    for (const NamedNumber& entry : table) {
        if (EqualIgnoringCase(entry.name, name)) return &entry;
    }
    return nullptr;
}

}  // namespace

ScriptRunner::ScriptRunner(std::vector<ScriptAction> actions, Tell tell)
    : m_actions(std::move(actions)), m_tell(std::move(tell)) {}

ScriptRunner::~ScriptRunner() {
    if (!m_started) return;
    SetIdleHandler({});
    SetMessageBoxSink({});
    SetPickerSink({});
}

void ScriptRunner::Start() {
    m_started = true;
    SetIdleHandler([this](int count) { return OnIdle(count); });
    SetMessageBoxSink([this](const MessageBoxCall& box) {
        m_tell(Format(L"message box \"%s\": %s", box.caption, box.text));
        TakeAnswers();
        if (m_answers.empty() || m_answers.front().kind != ScriptAction::Kind::Answer) return IDOK;
        const NamedNumber* answer = FindName(kAnswers, m_answers.front().target);
        m_answers.pop_front();
        return answer != nullptr ? answer->number : IDOK;
    });
    const auto path = [this](const PathPickerRequest& request) -> std::optional<std::wstring> {
        m_tell(Format(L"picker \"%s\"", request.title));
        TakeAnswers();
        if (m_answers.empty() || m_answers.front().kind != ScriptAction::Kind::AnswerPath) return std::nullopt;
        std::wstring chosen = m_answers.front().text;
        m_answers.pop_front();
        return chosen;
    };
    SetPickerSink({path, path, [this](const ColorPickerRequest&) -> std::optional<COLORREF> {
                       m_tell(L"colour picker");
                       TakeAnswers();
                       if (m_answers.empty() || m_answers.front().kind != ScriptAction::Kind::AnswerColour)
                           return std::nullopt;
                       const auto colour = static_cast<COLORREF>(m_answers.front().first);
                       m_answers.pop_front();
                       return colour;
                   }});
}

// Answers stand in the script before what makes the box appear or right after it; both are taken when the box is there.
void ScriptRunner::TakeAnswers() {
    const auto isAnswer = [](const ScriptAction& action) {
        return action.kind == ScriptAction::Kind::Answer || action.kind == ScriptAction::Kind::AnswerPath ||
               action.kind == ScriptAction::Kind::AnswerColour;
    };
    while (m_next < m_actions.size() && isAnswer(m_actions[m_next]))
        m_answers.push_back(m_actions[m_next++]);
}

bool ScriptRunner::OnIdle(int count) {
    if (count != 0) return false;  // only after messages: the last action has then taken effect
    const DialogView view = DialogView::Look();
    if (!view.IsOpen()) return false;
    m_seenDialog = true;
    TakeAnswers();
    if (m_next == m_actions.size() || !m_problem.empty()) {
        if (m_problem.empty()) Fail(L"the script ended with the dialog open; it is cancelled");
        PostMessageW(GetActiveWindow(), WM_CLOSE, 0, 0);
        return false;
    }
    Perform(m_actions[m_next++]);
    // An action that posted nothing must not leave the loop waiting.
    PostMessageW(view.Frame(), WM_NULL, 0, 0);
    return false;
}

void ScriptRunner::DialogEnded() {
    if (!m_problem.empty()) return;
    TakeAnswers();
    if (!m_seenDialog) {
        Fail(L"no settings dialog appeared");
    } else if (m_next < m_actions.size()) {
        Fail(Format(L"line %d: the dialog is closed already", m_actions[m_next].line));
    }
}

void ScriptRunner::Fail(std::wstring problem) {
    m_problem = std::move(problem);
}

void ScriptRunner::Perform(const ScriptAction& action) {
    const DialogView view = DialogView::Look();
    switch (action.kind) {
        case ScriptAction::Kind::Page:
            return ShowPage(view, action);
        case ScriptAction::Kind::Set:
            return Set(view, action);
        case ScriptAction::Kind::Press:
            return Press(view, action);
        case ScriptAction::Kind::Key:
            return PressKey(action);
        case ScriptAction::Kind::Type:
            if (!Person().Type(action.text)) Fail(Format(L"line %d: nothing has the focus", action.line));
            return;
        case ScriptAction::Kind::Resize:
            SetWindowPos(view.Frame(), nullptr, 0, 0, action.first, action.second,
                         SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
            return;
        case ScriptAction::Kind::Snapshot:
            return Snapshot(view, action);
        case ScriptAction::Kind::Dump:
            return Dump(view, action);
        default:
            return;  // answers are taken when their box appears
    }
}

void ScriptRunner::ShowPage(const DialogView& view, const ScriptAction& action) {
    const std::optional<int> page = view.FindPage(action.target);
    if (!page) return Fail(Format(L"line %d: there is no page \"%s\"", action.line, action.target));
    if (view.ActivePage() == *page) return;
    Person().ChooseTab(view.Tabs(), *page);
    // In a small frame the tab may be scrolled out of sight; the keyboard reaches every page.
    for (int turns = view.PageCount(); view.ActivePage() != *page && turns > 0; --turns) {
        Person().Press(VK_NEXT, {.control = true});
    }
    if (view.ActivePage() != *page) Fail(Format(L"line %d: \"%s\" did not open", action.line, action.target));
}

void ScriptRunner::Set(const DialogView& view, const ScriptAction& action) {
    const DialogRow* row = view.FindRow(action.target);
    if (row == nullptr) return Fail(Format(L"line %d: there is no item %s", action.line, action.target));
    if (row->kind == RowKind::Missing) return Fail(Format(L"line %d: %s has no control", action.line, action.target));
    if (IsWindowEnabled(row->control) == FALSE) {
        return Fail(Format(L"line %d: %s may not be changed", action.line, action.target));
    }
    if (view.ActivePage() != row->page) {
        // A person turns to the page first; the action itself follows when the page is there.
        ShowPage(view, {ScriptAction::Kind::Page, action.line, std::to_wstring(row->page), {}});
        --m_next;
        return;
    }
    SetRow(*row, action.text);
}

void ScriptRunner::SetRow(const DialogRow& row, const std::wstring& text) {
    const int line = m_actions[m_next - 1].line;
    const auto isOn = [](std::wstring_view word) { return EqualIgnoringCase(word, L"on"); };
    switch (row.kind) {
        case RowKind::Check:
            if (isOn(text) != (ShownValue(row) == L"1")) Person().Click(row.control);
            return;
        case RowKind::Choice: {
            const LRESULT entry = SendMessageW(row.control, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                               reinterpret_cast<LPARAM>(text.c_str()));
            if (entry == CB_ERR) return Fail(Format(L"line %d: %s has no entry \"%s\"", line, row.item, text));
            Person().Choose(row.control, static_cast<int>(entry));
            return;
        }
        case RowKind::CheckList: {
            const std::size_t blank = text.find_last_of(L' ');
            const std::wstring name = text.substr(0, blank);
            auto* list = DynamicDownCast<CCheckListBox>(CWnd::FromHandlePermanent(row.control));
            const int entry = list != nullptr ? list->FindStringExact(-1, name) : LB_ERR;
            if (entry == LB_ERR) return Fail(Format(L"line %d: %s has no entry \"%s\"", line, row.item, name));
            if (isOn(Trim(text.substr(std::min(blank, text.size())))) == (list->GetCheck(entry) == 1)) return;
            Person().Focus(row.control);
            Person().Press(VK_HOME);
            for (int i = 0; i < entry; ++i)
                Person().Press(VK_DOWN);
            Person().Press(VK_SPACE);
            return;
        }
        case RowKind::Colour:
        case RowKind::Button:
            return Fail(Format(L"line %d: %s is a button: press it", line, row.item));
        default:
            break;
    }
    Person().Focus(row.control);  // a chooser passes the focus on to its field
    const HWND edit = ::GetFocus();
    SendMessageW(edit, EM_SETSEL, 0, -1);
    if (text.empty()) {
        Person().Press(VK_DELETE);
    } else {
        Person().Type(text);
    }
}

void ScriptRunner::Press(const DialogView& view, const ScriptAction& action) {
    HWND target = nullptr;
    if (const NamedNumber* button = FindName(kDialogButtons, action.target)) {
        // A dialog in front of the settings dialog hears its own buttons first.
        const HWND active = GetActiveWindow();
        if (active != nullptr) target = FindButton(active, button->number);
        if (target == nullptr) target = FindButton(view.Frame(), button->number);
    } else if (const DialogRow* row = view.FindRow(action.target)) {
        if (row->control != nullptr && view.ActivePage() != row->page) {
            ShowPage(view, {ScriptAction::Kind::Page, action.line, std::to_wstring(row->page), {}});
            --m_next;
            return;
        }
        target = row->control;
        // A chooser's button is the one in it.
        if (row->kind == RowKind::Path) target = FindWindowExW(row->control, nullptr, L"Button", nullptr);
    }
    if (target == nullptr)
        return Fail(Format(L"line %d: there is nothing to press for \"%s\"", action.line, action.target));
    if (IsWindowEnabled(target) == FALSE) return Fail(Format(L"line %d: \"%s\" is greyed", action.line, action.target));
    Person().Click(target);
}

void ScriptRunner::PressKey(const ScriptAction& action) {
    std::wstring_view name = action.target;
    User::Held modifiers;
    for (bool found = true; found;) {
        found = false;
        const std::pair<std::wstring_view, bool User::Held::*> prefixes[] = {
            {L"SHIFT+", &User::Held::shift}, {L"CTRL+", &User::Held::control}, {L"ALT+", &User::Held::alt}};
        for (const auto& [prefix, member] : prefixes) {
            if (name.size() <= prefix.size() || !EqualIgnoringCase(name.substr(0, prefix.size()), prefix)) continue;
            modifiers.*member = found = true;
            name.remove_prefix(prefix.size());
        }
    }
    if (const NamedNumber* key = FindName(kKeys, name)) {
        Person().Press(key->number, modifiers);
    } else if (name.size() == 1) {
        // Letters and digits have their capital's code as virtual key.
        const wchar_t letter =
            name[0] >= L'a' && name[0] <= L'z' ? static_cast<wchar_t>(name[0] - L'a' + L'A') : name[0];
        Person().Press(letter, modifiers);
    } else {
        Fail(Format(L"line %d: unknown key \"%s\"", action.line, action.target));
    }
}

void ScriptRunner::Snapshot(const DialogView& view, const ScriptAction& action) {
    switch (SaveSnapshot(view.Frame(), action.target)) {
        case SnapshotResult::Saved:
            return m_tell(L"picture " + action.target);
        case SnapshotResult::NoScreen:
            return Fail(Format(L"line %d: there is no screen here to take a picture of", action.line));
        case SnapshotResult::CannotRead:
            return Fail(Format(L"line %d: the screen could not be read", action.line));
        case SnapshotResult::CannotWrite:
            return Fail(Format(L"line %d: %s could not be written", action.line, action.target));
    }
}

void ScriptRunner::Dump(const DialogView& view, const ScriptAction& action) {
    if (!ReplaceWholeFile(action.target, DumpDialog(view))) {
        Fail(Format(L"line %d: %s could not be written", action.line, action.target));
    }
}

}  // namespace qv
