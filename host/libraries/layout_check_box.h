// The two windows of a check box row. The box stands in the control column and its label in the prompt column, yet they
// behave as one check box: a click on the label toggles it, and the label shows the focus. Used by the layout alone.
#pragma once

#include <string>
#include <string_view>

#include "framework/controls.h"

namespace qv {

class CheckBoxPrompt : public CStatic {
public:
    // On either side of the label, for the frame that shows the focus; pixels at 96 dpi.
    static constexpr int kFrameRoom = 2;

    // box: the row's, which is made after its prompt; null until then. frameRoom: in pixels; the label begins that far
    // inside the window.
    CheckBoxPrompt(CWnd* const& box, int frameRoom) : m_box(box), m_frameRoom(frameRoom) {}
    // The frame around the label in client coordinates; it leaves a pixel free on either side of it.
    [[nodiscard]] CRect FocusFrame(HDC dc) const;

    const MessageMap* GetMessageMap() const override;

private:
    void OnClicked();
    LRESULT OnPaint(WPARAM wParam, LPARAM lParam);
    LRESULT OnLookChanged(WPARAM wParam, LPARAM lParam);
    [[nodiscard]] bool ShowsFocus() const;
    CWnd* const& m_box;
    int m_frameRoom;
};

class RowCheckBox : public CButton {
public:
    // Its text is the label too, so that assistive programs read it; it is too narrow to show any of it.
    // style: besides what makes it a check box.
    bool Create(std::wstring_view label, CWnd& prompt, const CWnd& page, DWORD style, const RECT& place, UINT id);
    // Of the box alone, in pixels at 96 dpi.
    static constexpr int kSize = 14;

    const MessageMap* GetMessageMap() const override;

private:
    LRESULT OnFocusChanged(WPARAM wParam, LPARAM lParam);
    CWnd* m_prompt = nullptr;
};

// A label whose mnemonic is not marked: "&Save && close" becomes "Save && close".
[[nodiscard]] std::wstring WithoutMnemonic(std::wstring_view label);

}  // namespace qv
