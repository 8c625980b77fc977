// The EDIT class: text with limits, kinds of characters, selection, keys and clipboard, and what the parent is told
// about them. A single line that does not scroll takes what fits its width; long lines of a multi-line edit are not
// wrapped.
#pragma once

#include "platform/headless/controls/control.h"
#include "platform/headless/controls/edit_buffer.h"

namespace qv::headless {

class Edit final : public Control {
public:
    explicit Edit(HWND window);
    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    enum class Limits { kHonoured, kIgnored };

    bool IsMultiLine() const { return Has(ES_MULTILINE); }
    bool IsReadOnly() const { return Has(ES_READONLY); }
    std::wstring Converted(std::wstring_view text) const;
    // As much of the text as limit and width leave room for.
    size_t RoomFor(std::wstring_view text) const;

    LRESULT HandleEditMessage(UINT message, WPARAM wParam, LPARAM lParam);
    void OnCreate(const CREATESTRUCTW& create);
    void OnSetText(LPCWSTR text);
    LRESULT OnGetText(size_t room, LPWSTR buffer) const;
    LRESULT OnGetDialogCode(const MSG* message);
    void OnChar(wchar_t unit);
    void OnKeyDown(UINT key);
    bool OnDialogKey(UINT key);
    void OnMouse(LPARAM position, bool extend);
    void SelectWordAt(LPARAM position);

    void SetSelection(LONG_PTR first, LONG_PTR last);
    LRESULT GetSelection(DWORD* first, DWORD* last) const;
    void ReplaceSelection(std::wstring_view text, bool canUndo, Limits limits);
    void Changed();
    void Undo();
    void Copy() const;
    void Paste();
    void Clear();
    void MoveVertically(bool down, bool extend);

    void SetLimit(size_t limit);
    void SetPasswordChar(wchar_t unit);
    LRESULT GetLine(size_t line, LPWSTR buffer) const;
    LRESULT LineLength(LONG_PTR position) const;
    size_t PositionAt(int x, int y) const;
    LRESULT PositionOf(size_t position) const;
    // Where the text is drawn, in client coordinates.
    RECT TextRect() const;

    EditBuffer m_buffer;
    size_t m_limit;
    wchar_t m_passwordChar = 0;
    bool m_modified = false;
    bool m_inDialog = false;
    bool m_tracking = false;
};

}  // namespace qv::headless
