#include "app/script_actions.h"

#include <array>
#include <utility>

#include "app/dialog_view.h"
#include "base/text.h"
#include "framework/check_list_box.h"
#include "host/services/whole_file.h"
#include "platform/snapshot.h"

namespace qv {

namespace {

struct NamedNumber {
    std::wstring_view name;
    int number;
};
constexpr std::array kDialogButtons{NamedNumber{L"ok", IDOK}, NamedNumber{L"cancel", IDCANCEL},
                                    NamedNumber{L"help", 126}, NamedNumber{L"default", 127},
                                    NamedNumber{L"apply", 128}};
constexpr std::array kKeys{
    NamedNumber{L"tab", VK_TAB},     NamedNumber{L"enter", VK_RETURN}, NamedNumber{L"esc", VK_ESCAPE},
    NamedNumber{L"space", VK_SPACE}, NamedNumber{L"up", VK_UP},        NamedNumber{L"down", VK_DOWN},
    NamedNumber{L"left", VK_LEFT},   NamedNumber{L"right", VK_RIGHT},  NamedNumber{L"home", VK_HOME},
    NamedNumber{L"end", VK_END},     NamedNumber{L"pgup", VK_PRIOR},   NamedNumber{L"pgdn", VK_NEXT},
    NamedNumber{L"del", VK_DELETE},  NamedNumber{L"back", VK_BACK},    NamedNumber{L"f1", VK_F1},
    NamedNumber{L"f4", VK_F4},
};

template <std::size_t N>
const NamedNumber* FindName(const std::array<NamedNumber, N>& table, std::wstring_view name) {
    for (const NamedNumber& entry : table) {
        if (EqualIgnoringCase(entry.name, name)) return &entry;
    }
    return nullptr;
}

bool IsOn(std::wstring_view word) {
    return EqualIgnoringCase(word, L"on");
}

std::wstring OutOfReach(std::wstring_view what) {
    return Format(L"%s cannot be reached: it is hidden, greyed or behind another window", what);
}

}  // namespace

std::wstring ScriptActions::Perform(const ScriptAction& action) const {
    const DialogView view = DialogView::Look();
    switch (action.kind) {
        case ScriptAction::Kind::Page:
            return ShowPage(view, action.target);
        case ScriptAction::Kind::Set:
            return Set(view, action);
        case ScriptAction::Kind::Press:
            return Press(view, action);
        case ScriptAction::Kind::Key:
            return PressKey(action.target);
        case ScriptAction::Kind::Type:
            return m_person.Type(action.text) ? L"" : L"nothing has the focus";
        case ScriptAction::Kind::Resize:
            SetWindowPos(view.Frame(), nullptr, 0, 0, action.first, action.second,
                         SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
            return {};
        case ScriptAction::Kind::Snapshot:
            return Snapshot(view, action.target);
        case ScriptAction::Kind::Dump:
            return ReplaceWholeFile(action.target, DumpDialog(view)) ? L"" : action.target + L" could not be written";
        default:
            return {};  // answers are taken when their box appears
    }
}

std::wstring ScriptActions::ShowPage(const DialogView& view, const std::wstring& title) const {
    const std::optional<int> page = view.FindPage(title);
    if (!page) return Format(L"there is no page \"%s\"", title);
    if (view.ActivePage() == *page) return {};
    m_person.ChooseTab(view.Tabs(), *page);
    // In a small frame the tab may be scrolled out of sight; the keyboard reaches every page.
    for (int turns = view.PageCount(); view.ActivePage() != *page && turns > 0; --turns)
        m_person.Press(VK_NEXT, {.control = true});
    return view.ActivePage() == *page ? L"" : Format(L"page \"%s\" did not open", title);
}

// By the page's window, not by its place among the tabs: whether the row can be seen is what counts.
std::wstring ScriptActions::ShowPageOf(const DialogView& view, const DialogRow& row) const {
    if (IsWindowVisible(row.pageWindow) != FALSE) return {};
    m_person.ChooseTab(view.Tabs(), row.page);
    for (int turns = view.PageCount(); IsWindowVisible(row.pageWindow) == FALSE && turns > 0; --turns)
        m_person.Press(VK_NEXT, {.control = true});
    return IsWindowVisible(row.pageWindow) != FALSE ? L"" : Format(L"the page of %s did not open", row.item);
}

std::wstring ScriptActions::Set(const DialogView& view, const ScriptAction& action) const {
    const DialogRow* row = view.FindRow(action.target);
    if (row == nullptr) return Format(L"there is no item %s", action.target);
    if (row->kind == RowKind::Missing) return Format(L"%s has no control", action.target);
    if (!IsEnabled(*row)) return Format(L"%s may not be changed", action.target);
    if (std::wstring problem = ShowPageOf(view, *row); !problem.empty()) return problem;
    DialogView::GiveWindows(action.target);
    const DialogView shown = DialogView::Look();
    row = shown.FindRow(action.target);
    if (row == nullptr || row->control == nullptr) return Format(L"%s has no control", action.target);
    return User::CanReach(row->control) ? SetRow(*row, action.text) : OutOfReach(row->item);
}

std::wstring ScriptActions::SetRow(const DialogRow& row, const std::wstring& text) const {
    switch (row.kind) {
        case RowKind::Check:
            if (IsOn(text) != (ShownValue(row) == L"1")) m_person.Click(row.control);
            return {};
        case RowKind::Choice: {
            const LRESULT entry = SendMessageW(row.control, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                               reinterpret_cast<LPARAM>(text.c_str()));
            if (entry == CB_ERR) return Format(L"%s has no entry \"%s\"", row.item, text);
            return m_person.Choose(row.control, static_cast<int>(entry))
                       ? L""
                       : Format(L"entry \"%s\" of %s could not be chosen", text, row.item);
        }
        case RowKind::CheckList:
            return Tick(row, text);
        case RowKind::Colour:
        case RowKind::Button:
            return Format(L"%s is a button: press it", row.item);
        default:
            break;
    }
    m_person.Focus(row.control);  // a chooser passes the focus on to its field
    const HWND edit = ::GetFocus();
    SendMessageW(edit, EM_SETSEL, 0, -1);
    if (text.empty()) {
        m_person.Press(VK_DELETE);
    } else {
        m_person.Type(text);
    }
    return {};
}

std::wstring ScriptActions::Tick(const DialogRow& row, const std::wstring& entryAndState) const {
    const std::size_t blank = entryAndState.find_last_of(L' ');
    const std::wstring name = entryAndState.substr(0, blank);
    const auto* list = DynamicDownCast<CCheckListBox>(CWnd::FromHandlePermanent(row.control));
    const int entry = list != nullptr ? list->FindStringExact(-1, name) : LB_ERR;
    if (entry == LB_ERR) return Format(L"%s has no entry \"%s\"", row.item, name);
    const bool on = IsOn(Trim(entryAndState.substr(std::min(blank, entryAndState.size()))));
    if (on == (list->GetCheck(entry) == 1)) return {};
    if (!list->IsEnabled(entry)) return Format(L"%s may not be changed", row.item);
    m_person.Focus(row.control);
    m_person.Press(VK_HOME);
    for (int i = 0; i < entry; ++i)
        m_person.Press(VK_DOWN);
    m_person.Press(VK_SPACE);
    return {};
}

std::wstring ScriptActions::Press(const DialogView& view, const ScriptAction& action) const {
    HWND target = nullptr;
    if (const NamedNumber* button = FindName(kDialogButtons, action.target)) {
        // A dialog in front of the settings dialog hears its own buttons first.
        const HWND active = GetActiveWindow();
        if (active != nullptr) target = FindButton(active, button->number);
        if (target == nullptr) target = FindButton(view.Frame(), button->number);
    } else if (const DialogRow* row = view.FindRow(action.target)) {
        if (row->kind != RowKind::Missing) {
            if (std::wstring problem = ShowPageOf(view, *row); !problem.empty()) return problem;
        }
        DialogView::GiveWindows(action.target);
        const DialogView shown = DialogView::Look();
        row = shown.FindRow(action.target);
        if (row != nullptr) target = row->control;
        // A chooser's button is the one in it.
        if (row != nullptr && row->kind == RowKind::Path) target = FindWindowExW(target, nullptr, L"Button", nullptr);
    }
    if (target == nullptr) return Format(L"there is nothing to press for \"%s\"", action.target);
    if (IsWindowEnabled(target) == FALSE) return Format(L"\"%s\" is greyed", action.target);
    return m_person.Click(target) ? L"" : OutOfReach(Format(L"\"%s\"", action.target));
}

std::wstring ScriptActions::PressKey(const std::wstring& keys) const {
    std::wstring_view name = keys;
    User::Held held;
    for (bool found = true; found;) {
        found = false;
        const std::pair<std::wstring_view, bool User::Held::*> prefixes[] = {
            {L"SHIFT+", &User::Held::shift}, {L"CTRL+", &User::Held::control}, {L"ALT+", &User::Held::alt}};
        for (const auto& [prefix, member] : prefixes) {
            if (name.size() <= prefix.size() || !EqualIgnoringCase(name.substr(0, prefix.size()), prefix)) continue;
            held.*member = found = true;
            name.remove_prefix(prefix.size());
        }
    }
    int key = 0;
    if (const NamedNumber* known = FindName(kKeys, name)) {
        key = known->number;
    } else if (name.size() == 1) {
        // Letters and digits have their capital's code as virtual key.
        key = name[0] >= L'a' && name[0] <= L'z' ? name[0] - L'a' + L'A' : name[0];
    } else {
        return Format(L"unknown key \"%s\"", keys);
    }
    // The platform's own menu runs a message loop of its own, in which no script goes on.
    if (key == VK_SPACE && held.alt && !held.control)
        return Format(L"%s opens a menu, where a script cannot go on", keys);
    return m_person.Press(key, held) ? L"" : L"nothing has the focus";
}

std::wstring ScriptActions::Snapshot(const DialogView& view, const std::wstring& file) const {
    switch (SaveSnapshot(view.Frame(), file)) {
        case SnapshotResult::Saved:
            m_tell(L"picture " + file);
            return {};
        case SnapshotResult::NoScreen:
            return L"there is no screen here to take a picture of";
        case SnapshotResult::CannotRead:
            return L"the screen could not be read";
        case SnapshotResult::CannotWrite:
            return file + L" could not be written";
    }
    return {};
}

}  // namespace qv
