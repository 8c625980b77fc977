#include "platform/headless/controls/edit_buffer.h"

#include <algorithm>
#include <utility>

namespace qv::headless {

namespace {

constexpr std::wstring_view kLineBreak = L"\r\n";

bool IsBlank(wchar_t unit) {
    return unit == L' ' || unit == L'\t' || unit == L'\r' || unit == L'\n';
}

}  // namespace

void EditBuffer::SetText(std::wstring_view text) {
    m_text = text;
    m_anchor = m_caret = 0;
    ForgetUndo();
}

std::wstring_view EditBuffer::Selected() const {
    return std::wstring_view(m_text).substr(SelectionStart(), SelectionEnd() - SelectionStart());
}

void EditBuffer::Select(size_t anchor, size_t caret) {
    m_anchor = std::min(anchor, m_text.size());
    m_caret = std::min(caret, m_text.size());
}

void EditBuffer::MoveCaret(size_t position, bool extend) {
    m_caret = std::min(position, m_text.size());
    if (!extend) m_anchor = m_caret;
}

void EditBuffer::Replace(std::wstring_view text, bool canUndo) {
    const size_t start = SelectionStart();
    const size_t removed = SelectionEnd() - start;
    if (!canUndo) {
        ForgetUndo();
    } else if (removed == 0 && CanUndo() && start == m_undo.position + m_undo.inserted) {
        m_undo.inserted += text.size();  // typing on is one step
    } else {
        m_undo = {start, text.size(), m_text.substr(start, removed)};
    }
    m_text.replace(start, removed, text);
    m_anchor = m_caret = start + text.size();
}

bool EditBuffer::Undo() {
    if (!CanUndo()) return false;
    const Change change = std::exchange(m_undo, {});
    m_undo = {change.position, change.removed.size(), m_text.substr(change.position, change.inserted)};
    m_text.replace(change.position, change.inserted, change.removed);
    Select(change.position, change.position + change.removed.size());
    return true;
}

size_t EditBuffer::Before(size_t position) const {
    if (position == 0) return 0;
    if (position >= 2 && m_text.compare(position - 2, 2, kLineBreak) == 0) return position - 2;
    return position - 1;
}

size_t EditBuffer::After(size_t position) const {
    if (position >= m_text.size()) return m_text.size();
    if (m_text.compare(position, 2, kLineBreak) == 0) return position + 2;
    return position + 1;
}

size_t EditBuffer::WordBefore(size_t position) const {
    while (position > 0 && IsBlank(m_text[position - 1]))
        --position;
    while (position > 0 && !IsBlank(m_text[position - 1]))
        --position;
    return position;
}

size_t EditBuffer::WordAfter(size_t position) const {
    while (position < m_text.size() && !IsBlank(m_text[position]))
        ++position;
    while (position < m_text.size() && IsBlank(m_text[position]))
        ++position;
    return position;
}

size_t EditBuffer::LineCount() const {
    return LineOf(m_text.size()) + 1;
}

size_t EditBuffer::LineOf(size_t position) const {
    size_t line = 0;
    for (size_t at = m_text.find(kLineBreak); at != npos && at + 2 <= position; at = m_text.find(kLineBreak, at + 2)) {
        ++line;
    }
    return line;
}

size_t EditBuffer::LineStart(size_t line) const {
    size_t start = 0;
    for (; line > 0; --line) {
        const size_t lineBreak = m_text.find(kLineBreak, start);
        if (lineBreak == npos) return npos;
        start = lineBreak + 2;
    }
    return start;
}

size_t EditBuffer::LineEnd(size_t line) const {
    const size_t start = LineStart(line);
    if (start == npos) return npos;
    return std::min(m_text.find(kLineBreak, start), m_text.size());
}

}  // namespace qv::headless
