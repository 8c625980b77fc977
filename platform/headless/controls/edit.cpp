#include "platform/headless/controls/edit.h"

#include <algorithm>

#include "platform/headless/controls/clipboard.h"

namespace qv::headless {

namespace {

constexpr size_t kInitialLimit = 30000;
constexpr size_t kSingleLineMaximum = 0x7FFFFFFE;
constexpr size_t kMultiLineMaximum = 0xFFFFFFFF;

constexpr wchar_t kControlC = 3;
constexpr wchar_t kControlV = 22;
constexpr wchar_t kControlX = 24;
constexpr wchar_t kControlZ = 26;
constexpr wchar_t kDeletedWord = 127;

bool IsDigit(wchar_t unit) {
    return unit >= L'0' && unit <= L'9';
}

}  // namespace

Edit::Edit(HWND window) : Control(window), m_limit(kInitialLimit) {
    if (Has(ES_PASSWORD)) m_passwordChar = L'*';
}

LRESULT Edit::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_CREATE:
            OnCreate(*reinterpret_cast<const CREATESTRUCTW*>(lParam));
            return 0;
        case WM_SETTEXT:
            OnSetText(reinterpret_cast<LPCWSTR>(lParam));
            return TRUE;
        case WM_GETTEXT:
            return OnGetText(wParam, reinterpret_cast<LPWSTR>(lParam));
        case WM_GETTEXTLENGTH:
            return static_cast<LRESULT>(m_buffer.Length());
        case WM_SETFONT:
            SetFont(wParam);
            return 0;
        case WM_GETFONT:
            return reinterpret_cast<LRESULT>(Font());
        case WM_GETDLGCODE:
            return OnGetDialogCode(reinterpret_cast<const MSG*>(lParam));
        case WM_SETFOCUS:
            Notify(EN_SETFOCUS);
            return 0;
        case WM_KILLFOCUS:
            Notify(EN_KILLFOCUS);
            return 0;
        case WM_CHAR:
            OnChar(static_cast<wchar_t>(wParam));
            return 0;
        case WM_KEYDOWN:
            OnKeyDown(static_cast<UINT>(wParam));
            return 0;
        case WM_LBUTTONDOWN:
            SetFocus(m_window);
            SetCapture(m_window);
            m_tracking = true;
            OnMouse(lParam, (wParam & MK_SHIFT) != 0);
            return 0;
        case WM_LBUTTONDBLCLK:
            SelectWordAt(lParam);
            return 0;
        case WM_MOUSEMOVE:
            if (m_tracking) OnMouse(lParam, true);
            return 0;
        case WM_LBUTTONUP:
            if (m_tracking) ReleaseCapture();
            return 0;
        case WM_CAPTURECHANGED:
            m_tracking = false;
            return 0;
        case WM_CUT:
            Copy();
            if (!IsReadOnly()) Clear();
            return 0;
        case WM_COPY:
            Copy();
            return 0;
        case WM_PASTE:
            Paste();
            return 0;
        case WM_CLEAR:
            if (!IsReadOnly()) Clear();
            return 0;
        case WM_UNDO:
            Undo();
            return TRUE;
        default:
            return HandleEditMessage(message, wParam, lParam);
    }
}

LRESULT Edit::HandleEditMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case EM_GETSEL:
            return GetSelection(reinterpret_cast<DWORD*>(wParam), reinterpret_cast<DWORD*>(lParam));
        case EM_SETSEL:
            SetSelection(static_cast<int>(wParam), static_cast<int>(lParam));
            return 1;
        case EM_REPLACESEL:
            ReplaceSelection(lParam != 0 ? reinterpret_cast<LPCWSTR>(lParam) : L"", wParam != 0, Limits::kHonoured);
            return 1;
        case EM_GETMODIFY:
            return m_modified;
        case EM_SETMODIFY:
            m_modified = wParam != 0;
            return 0;
        case EM_LIMITTEXT:
            SetLimit(static_cast<UINT>(wParam));
            return 0;
        case EM_GETLIMITTEXT:
            return static_cast<LRESULT>(m_limit);
        case EM_SETREADONLY:
            SetStyle(wParam != 0 ? Style() | ES_READONLY : Style() & ~DWORD{ES_READONLY});
            return 1;
        case EM_SETPASSWORDCHAR:
            SetPasswordChar(static_cast<wchar_t>(wParam));
            return 1;
        case EM_GETPASSWORDCHAR:
            return static_cast<LRESULT>(m_passwordChar);
        case EM_CANUNDO:
            return m_buffer.CanUndo();
        case EM_UNDO:
            Undo();
            return TRUE;
        case EM_GETLINECOUNT:
            return IsMultiLine() ? static_cast<LRESULT>(m_buffer.LineCount()) : 1;
        case EM_LINEINDEX: {
            const bool current = static_cast<int>(wParam) == -1;
            const size_t line = current ? m_buffer.LineOf(m_buffer.SelectionStart()) : wParam;
            return static_cast<int>(m_buffer.LineStart(line));
        }
        case EM_LINEFROMCHAR: {
            const bool current = static_cast<int>(wParam) == -1;
            return static_cast<LRESULT>(m_buffer.LineOf(current ? m_buffer.SelectionStart() : wParam));
        }
        case EM_LINELENGTH:
            return LineLength(static_cast<int>(wParam));
        case EM_GETLINE:
            return GetLine(wParam, reinterpret_cast<LPWSTR>(lParam));
        case EM_GETRECT:
            *reinterpret_cast<RECT*>(lParam) = TextRect();
            return 0;
        case EM_POSFROMCHAR:
            return PositionOf(wParam);
        case EM_SCROLLCARET:
            return TRUE;
        default:
            return Default(message, wParam, lParam);
    }
}

void Edit::OnCreate(const CREATESTRUCTW& create) {
    if (create.lpszName != nullptr) m_buffer.SetText(Converted(create.lpszName));
}

std::wstring Edit::Converted(std::wstring_view text) const {
    std::wstring converted(text);
    const auto length = static_cast<DWORD>(converted.size());
    if (Has(ES_UPPERCASE)) CharUpperBuffW(converted.data(), length);
    if (Has(ES_LOWERCASE)) CharLowerBuffW(converted.data(), length);
    return converted;
}

void Edit::OnSetText(LPCWSTR text) {
    m_buffer.SetText(Converted(text != nullptr ? text : L""));
    m_modified = false;
    // Documented: a multi-line edit does not report a text that the program sets.
    if (!IsMultiLine()) Changed();
}

LRESULT Edit::OnGetText(size_t room, LPWSTR buffer) const {
    if (room == 0 || buffer == nullptr) return 0;
    const size_t length = std::min(room - 1, m_buffer.Length());
    m_buffer.Text().copy(buffer, length);
    buffer[length] = L'\0';
    return static_cast<LRESULT>(length);
}

LRESULT Edit::OnGetDialogCode(const MSG* message) {
    if (message != nullptr) m_inDialog = true;
    LRESULT code = DLGC_HASSETSEL | DLGC_WANTCHARS | DLGC_WANTARROWS;
    if (IsMultiLine()) code |= DLGC_WANTALLKEYS;
    return code;
}

void Edit::OnChar(wchar_t unit) {
    switch (unit) {
        case L'\r':
        case L'\n':
            if (!IsMultiLine() || IsReadOnly()) return;
            if (m_inDialog && !Has(ES_WANTRETURN)) return;
            ReplaceSelection(L"\r\n", true, Limits::kHonoured);
            return;
        case L'\t':
            if (IsMultiLine() && !IsReadOnly() && !m_inDialog) ReplaceSelection(L"\t", true, Limits::kHonoured);
            return;
        case L'\b':
            if (IsReadOnly() || KeyHeld(VK_CONTROL)) return;
            if (!m_buffer.HasSelection()) m_buffer.MoveCaret(m_buffer.Before(m_buffer.Caret()), true);
            Clear();
            return;
        case kControlC:
            Copy();
            return;
        case kControlV:
            if (!IsReadOnly()) Paste();
            return;
        case kControlX:
            if (!IsReadOnly()) {
                Copy();
                if (m_passwordChar == 0) Clear();
            }
            return;
        case kControlZ:
            if (!IsReadOnly()) Undo();
            return;
        default:
            if (IsReadOnly() || unit < L' ' || unit == kDeletedWord) return;
            if (Has(ES_NUMBER) && !IsDigit(unit)) {
                MessageBeep(0);
                return;
            }
            ReplaceSelection(std::wstring_view(&unit, 1), true, Limits::kHonoured);
    }
}

void Edit::OnKeyDown(UINT key) {
    const bool shift = KeyHeld(VK_SHIFT);
    const bool control = KeyHeld(VK_CONTROL);
    if (m_inDialog && IsMultiLine() && OnDialogKey(key)) return;
    switch (key) {
        case VK_LEFT:
            m_buffer.MoveCaret(control ? m_buffer.WordBefore(m_buffer.Caret()) : m_buffer.Before(m_buffer.Caret()),
                               shift);
            return;
        case VK_RIGHT:
            m_buffer.MoveCaret(control ? m_buffer.WordAfter(m_buffer.Caret()) : m_buffer.After(m_buffer.Caret()),
                               shift);
            return;
        case VK_UP:
        case VK_DOWN:
            MoveVertically(key == VK_DOWN, shift);
            return;
        case VK_HOME:
            m_buffer.MoveCaret(control ? 0 : m_buffer.LineStart(m_buffer.LineOf(m_buffer.Caret())), shift);
            return;
        case VK_END:
            m_buffer.MoveCaret(control ? m_buffer.Length() : m_buffer.LineEnd(m_buffer.LineOf(m_buffer.Caret())),
                               shift);
            return;
        case VK_DELETE:
            if (IsReadOnly() || (shift && control)) return;
            if (m_buffer.HasSelection()) {
                if (shift) Copy();
            } else if (shift) {
                m_buffer.MoveCaret(m_buffer.Before(m_buffer.Caret()), true);
            } else if (control) {
                m_buffer.MoveCaret(m_buffer.LineEnd(m_buffer.LineOf(m_buffer.Caret())), true);
            } else {
                m_buffer.MoveCaret(m_buffer.After(m_buffer.Caret()), true);
            }
            Clear();
            return;
        case VK_INSERT:
            if (shift && !IsReadOnly()) Paste();
            if (control) Copy();
            return;
        case L'A':
            if (control) m_buffer.Select(0, m_buffer.Length());
            return;
        default:
            return;
    }
}

// A multi-line edit keeps every key from its dialog, and so does for the dialog what Escape, Tab and Enter do there.
bool Edit::OnDialogKey(UINT key) {
    switch (key) {
        case VK_ESCAPE:
            PostMessageW(Parent(), WM_CLOSE, 0, 0);
            return true;
        case VK_TAB:
            SendMessageW(Parent(), WM_NEXTDLGCTL, KeyHeld(VK_SHIFT), 0);
            return true;
        case VK_RETURN: {
            if (Has(ES_WANTRETURN) && !KeyHeld(VK_CONTROL)) return false;
            const auto answer = static_cast<DWORD>(SendMessageW(Parent(), DM_GETDEFID, 0, 0));
            if (HIWORD(answer) != DC_HASDEFID) return true;
            HWND button = GetDlgItem(Parent(), LOWORD(answer));
            if (button == nullptr) return true;
            SendMessageW(Parent(), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(button), TRUE);
            PostMessageW(button, WM_KEYDOWN, VK_RETURN, 0);
            return true;
        }
        default:
            return false;
    }
}

void Edit::MoveVertically(bool down, bool extend) {
    const size_t caret = m_buffer.Caret();
    if (!IsMultiLine()) {
        m_buffer.MoveCaret(down ? m_buffer.After(caret) : m_buffer.Before(caret), extend);
        return;
    }
    const size_t line = m_buffer.LineOf(caret);
    if (!down && line == 0) return;
    const size_t target = down ? line + 1 : line - 1;
    const size_t start = m_buffer.LineStart(target);
    if (start == EditBuffer::npos) return;
    const size_t column = caret - m_buffer.LineStart(line);
    m_buffer.MoveCaret(std::min(start + column, m_buffer.LineEnd(target)), extend);
}

void Edit::OnMouse(LPARAM position, bool extend) {
    m_buffer.MoveCaret(PositionAt(GET_X_LPARAM(position), GET_Y_LPARAM(position)), extend);
}

void Edit::SelectWordAt(LPARAM position) {
    const size_t at = PositionAt(GET_X_LPARAM(position), GET_Y_LPARAM(position));
    m_buffer.Select(m_buffer.WordBefore(m_buffer.After(at)), m_buffer.WordAfter(at));
}

void Edit::SetSelection(LONG_PTR first, LONG_PTR last) {
    if (first < 0) {
        m_buffer.MoveCaret(m_buffer.SelectionEnd(), false);
        return;
    }
    m_buffer.Select(static_cast<size_t>(first), last < 0 ? m_buffer.Length() : static_cast<size_t>(last));
}

LRESULT Edit::GetSelection(DWORD* first, DWORD* last) const {
    const size_t start = m_buffer.SelectionStart();
    const size_t end = m_buffer.SelectionEnd();
    if (first != nullptr) *first = static_cast<DWORD>(start);
    if (last != nullptr) *last = static_cast<DWORD>(end);
    return start > 0xFFFF || end > 0xFFFF ? -1 : MAKELONG(start, end);
}

size_t Edit::RoomFor(std::wstring_view text) const {
    const size_t kept = m_buffer.Length() - m_buffer.Selected().size();
    size_t room = kept >= m_limit ? 0 : std::min(text.size(), m_limit - kept);
    if (IsMultiLine() || Has(ES_AUTOHSCROLL)) return room;
    const int width = ClientWidth();
    std::wstring before = m_buffer.Text().substr(0, m_buffer.SelectionStart());
    const std::wstring after = m_buffer.Text().substr(m_buffer.SelectionEnd());
    while (room > 0 && TextWidth(before + std::wstring(text.substr(0, room)) + after) > width)
        --room;
    return room;
}

void Edit::ReplaceSelection(std::wstring_view text, bool canUndo, Limits limits) {
    std::wstring inserted = Converted(text);
    if (inserted.empty() && !m_buffer.HasSelection()) return;
    if (limits == Limits::kHonoured) {
        const size_t room = RoomFor(inserted);
        if (room < inserted.size()) {
            inserted.resize(room);
            if (!Notify(EN_MAXTEXT)) return;
        }
    }
    m_buffer.Replace(inserted, canUndo);
    m_modified = true;
    Changed();
}

void Edit::Changed() {
    if (Notify(EN_UPDATE)) Notify(EN_CHANGE);
}

void Edit::Undo() {
    if (!m_buffer.Undo()) return;
    m_modified = true;
    Changed();
}

void Edit::Copy() const {
    if (m_passwordChar == 0 && m_buffer.HasSelection()) SetClipboardText(m_buffer.Selected());
}

void Edit::Paste() {
    if (IsReadOnly()) return;
    ReplaceSelection(ClipboardText(), true, Limits::kHonoured);
}

void Edit::Clear() {
    if (m_buffer.HasSelection()) ReplaceSelection(L"", true, Limits::kIgnored);
}

void Edit::SetLimit(size_t limit) {
    const size_t maximum = IsMultiLine() ? kMultiLineMaximum : kSingleLineMaximum;
    m_limit = limit == 0 ? maximum : std::min(limit, maximum);
}

void Edit::SetPasswordChar(wchar_t unit) {
    m_passwordChar = unit;
    SetStyle(unit != 0 ? Style() | ES_PASSWORD : Style() & ~DWORD{ES_PASSWORD});
}

// The buffer's first unit says how many units fit; nothing ends the text.
LRESULT Edit::GetLine(size_t line, LPWSTR buffer) const {
    if (!IsMultiLine()) line = 0;
    const size_t start = m_buffer.LineStart(line);
    if (start == EditBuffer::npos) return 0;
    const size_t room = static_cast<WORD>(buffer[0]);
    const size_t length = std::min(room, m_buffer.LineEnd(line) - start);
    m_buffer.Text().copy(buffer, length, start);
    if (length < room) buffer[length] = L'\0';
    return static_cast<LRESULT>(length);
}

LRESULT Edit::LineLength(LONG_PTR position) const {
    if (!IsMultiLine()) return static_cast<LRESULT>(m_buffer.Length());
    if (position < 0) {
        // The units of the selected lines that are not selected.
        const size_t first = m_buffer.LineStart(m_buffer.LineOf(m_buffer.SelectionStart()));
        const size_t last = m_buffer.LineEnd(m_buffer.LineOf(m_buffer.SelectionEnd()));
        return static_cast<LRESULT>(last - first - m_buffer.Selected().size());
    }
    if (static_cast<size_t>(position) > m_buffer.Length()) return 0;
    const size_t line = m_buffer.LineOf(static_cast<size_t>(position));
    return static_cast<LRESULT>(m_buffer.LineEnd(line) - m_buffer.LineStart(line));
}

size_t Edit::PositionAt(int x, int y) const {
    const size_t line = IsMultiLine() ? std::min(static_cast<size_t>(std::max(0, y) / std::max(1, LineHeight())),
                                                 m_buffer.LineCount() - 1)
                                      : 0;
    const size_t start = m_buffer.LineStart(line);
    const std::wstring_view text = std::wstring_view(m_buffer.Text()).substr(start, m_buffer.LineEnd(line) - start);
    size_t position = 0;
    int left = 0;
    while (position < text.size()) {
        const int right = TextWidth(text.substr(0, position + 1));
        if (x < (left + right) / 2) break;
        left = right;
        ++position;
    }
    return start + position;
}

LRESULT Edit::PositionOf(size_t position) const {
    if (position >= m_buffer.Length()) return -1;
    const size_t line = IsMultiLine() ? m_buffer.LineOf(position) : 0;
    const size_t start = m_buffer.LineStart(line);
    const std::wstring_view before = std::wstring_view(m_buffer.Text()).substr(start, position - start);
    const LONG top = TextRect().top + static_cast<LONG>(line) * LineHeight();
    return MAKELONG(static_cast<DWORD>(TextWidth(before)), static_cast<DWORD>(top));
}

// A field of one line with a frame writes a pixel below it, where it is high enough.
RECT Edit::TextRect() const {
    RECT rect = {};
    GetClientRect(m_window, &rect);
    if (IsMultiLine()) return rect;
    const bool framed = (GetWindowLongW(m_window, GWL_EXSTYLE) & static_cast<LONG>(WS_EX_CLIENTEDGE)) != 0;
    if (framed && rect.bottom >= LineHeight() + 2) ++rect.top;
    rect.bottom = std::min(rect.bottom, rect.top + LineHeight());
    return rect;
}

}  // namespace qv::headless
