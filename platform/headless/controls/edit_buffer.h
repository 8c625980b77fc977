// The text of an edit control with its selection, lines and one step of undo. It knows neither windows nor limits: the
// control decides what may be typed and tells its parent.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace qv::headless {

// Positions count text units from 0; a line ends with \r\n, and no position lies between the two.
class EditBuffer {
public:
    const std::wstring& Text() const { return m_text; }
    size_t Length() const { return m_text.size(); }
    // Everything new, nothing selected, nothing to undo.
    void SetText(std::wstring_view text);

    size_t Caret() const { return m_caret; }
    size_t SelectionStart() const { return m_anchor < m_caret ? m_anchor : m_caret; }
    size_t SelectionEnd() const { return m_anchor < m_caret ? m_caret : m_anchor; }
    bool HasSelection() const { return m_anchor != m_caret; }
    std::wstring_view Selected() const;
    // Both are brought into the text; the caret stands at the second.
    void Select(size_t anchor, size_t caret);
    // The anchor follows unless the selection is being extended.
    void MoveCaret(size_t position, bool extend);

    // The selection gives way to the text, and the caret stands behind it.
    void Replace(std::wstring_view text, bool canUndo);
    // Takes back the last change and selects what came back; a second call does it again.
    bool Undo();
    bool CanUndo() const { return m_undo.inserted != 0 || !m_undo.removed.empty(); }
    void ForgetUndo() { m_undo = {}; }

    // The position a character or a line break away; the ends of the text stay.
    size_t Before(size_t position) const;
    size_t After(size_t position) const;
    // The start of the word before, of the next word.
    size_t WordBefore(size_t position) const;
    size_t WordAfter(size_t position) const;

    size_t LineCount() const;
    size_t LineOf(size_t position) const;
    // npos past the last line.
    size_t LineStart(size_t line) const;
    // Without the break.
    size_t LineEnd(size_t line) const;

    static constexpr size_t npos = std::wstring::npos;

private:
    struct Change {
        size_t position = 0;
        size_t inserted = 0;
        std::wstring removed;
    };

    std::wstring m_text;
    size_t m_anchor = 0;
    size_t m_caret = 0;
    Change m_undo;
};

}  // namespace qv::headless
