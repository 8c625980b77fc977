// XColorBtn: the host's colour button. It shows a colour and lets the user pick another in the platform's colour
// dialog (through host/libraries/pickers.h). It does not know where the colour is stored.
#pragma once

#include "framework/controls.h"

class XColorBtn : public CButton {
    QV_DECLARE_RUNTIME_CLASS
    XColorBtn() = default;
    ~XColorBtn() override;

    using CButton::Create;
    // Creates the button on the parent, visible and a tab stop, in the platform's usual button size. position: parent
    // client coordinates, pixels. False when the platform refuses.
    bool Create(POINT position, CWnd* parent, UINT id);
    // The colour as it was set, all 32 bits.
    [[nodiscard]] COLORREF GetSelColor() const noexcept { return m_color; }
    void SetSelColor(COLORREF color);

    const MessageMap* GetMessageMap() const override;
    static const MessageMap* GetThisMessageMap();

protected:
    // Opens the colour dialog. A colour that is chosen becomes the button's and is reported to the parent as a click
    // (BN_CLICKED); a cancelled dialog changes and reports nothing.
    virtual void PickColor();

private:
    LRESULT OnDrawItem(WPARAM wParam, LPARAM lParam);
    LRESULT OnGetDlgCode(WPARAM wParam, LPARAM lParam);
    LRESULT OnKeyDown(WPARAM wParam, LPARAM lParam);
    LRESULT OnKeyUp(WPARAM wParam, LPARAM lParam);
    LRESULT OnLButtonUp(WPARAM wParam, LPARAM lParam);
    LRESULT OnClick(WPARAM wParam, LPARAM lParam);
    // Takes a pressed button up without the platform's own click notification. False when it was not pressed.
    bool ReleasePressed();

    COLORREF m_color = 0;
    bool m_isPicking = false;
};
