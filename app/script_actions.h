// What one line of a script does in the dialog that stands on the screen, as a person would: through the controls, and
// only what a person could reach. Boxes, pickers and answers are the runner's.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "app/script.h"
#include "platform/user.h"

namespace qv {

class DialogView;
struct DialogRow;

class ScriptActions {
public:
    using Tell = std::function<void(std::wstring_view)>;

    // tell: hears a line for every picture. pump: empties the message queue through the framework; called after every
    // press and click.
    ScriptActions(Tell tell, std::function<void()> pump) : m_tell(std::move(tell)), m_person(std::move(pump)) {}

    // Empty when it was done, otherwise what is wrong, without the line's number. Answers do nothing.
    [[nodiscard]] std::wstring Perform(const ScriptAction& action) const;

private:
    [[nodiscard]] std::wstring ShowPage(const DialogView& view, const std::wstring& title) const;
    [[nodiscard]] std::wstring ShowPageOf(const DialogView& view, const DialogRow& row) const;
    [[nodiscard]] std::wstring Set(const DialogView& view, const ScriptAction& action) const;
    [[nodiscard]] std::wstring SetRow(const DialogRow& row, const std::wstring& text) const;
    [[nodiscard]] std::wstring Tick(const DialogRow& row, const std::wstring& entryAndState) const;
    [[nodiscard]] std::wstring Press(const DialogView& view, const ScriptAction& action) const;
    [[nodiscard]] std::wstring PressKey(const std::wstring& keys) const;
    [[nodiscard]] std::wstring Snapshot(const DialogView& view, const std::wstring& file) const;

    Tell m_tell;
    User m_person;
};

}  // namespace qv
