#include "platform/headless/controls/button.h"

namespace qv::headless {

namespace {

constexpr LRESULT kCheckMask = BST_CHECKED | BST_INDETERMINATE;

bool IsRadio(DWORD type) {
    return type == BS_RADIOBUTTON || type == BS_AUTORADIOBUTTON;
}

bool IsCheckable(DWORD type) {
    return type == BS_CHECKBOX || type == BS_AUTOCHECKBOX || type == BS_3STATE || type == BS_AUTO3STATE ||
           IsRadio(type);
}

bool IsThreeState(DWORD type) {
    return type == BS_3STATE || type == BS_AUTO3STATE;
}

bool TellsDoubleClicks(DWORD type) {
    return type == BS_RADIOBUTTON || type == BS_OWNERDRAW;
}

}  // namespace

LRESULT Button::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_SETFONT:
            SetFont(wParam);
            return 0;
        case WM_GETFONT:
            return reinterpret_cast<LRESULT>(Font());
        case WM_GETDLGCODE:
            return DialogCode();
        case WM_LBUTTONDBLCLK:
            if (NotifiesAll() || TellsDoubleClicks(Type())) {
                Notify(BN_DOUBLECLICKED);
                return 0;
            }
            OnLeftDown(lParam);
            return 0;
        case WM_LBUTTONDOWN:
            OnLeftDown(lParam);
            return 0;
        case WM_MOUSEMOVE:
            OnMouseMove(lParam);
            return 0;
        case WM_LBUTTONUP:
            OnLeftUp(lParam);
            return 0;
        case WM_CAPTURECHANGED:
            if (m_tracking) {
                m_tracking = false;
                SetPushed(false);
            }
            return 0;
        case WM_KEYDOWN:
            if (wParam == VK_SPACE) SetPushed(true);
            return 0;
        case WM_KEYUP:
            if (wParam == VK_SPACE && (m_state & BST_PUSHED) != 0) {
                SetPushed(false);
                Clicked();
            }
            return 0;
        case WM_SETFOCUS:
            OnFocus(true);
            return 0;
        case WM_KILLFOCUS:
            OnFocus(false);
            return 0;
        case WM_NCHITTEST:
            return Type() == BS_GROUPBOX ? HTTRANSPARENT : Default(message, wParam, lParam);
        case BM_GETCHECK:
            return m_state & kCheckMask;
        case BM_SETCHECK:
            SetCheck(wParam);
            return 0;
        case BM_GETSTATE:
            return m_state;
        case BM_SETSTATE:
            SetPushed(wParam != 0);
            return 0;
        case BM_SETSTYLE:
            SetType(static_cast<DWORD>(wParam));
            return 0;
        case BM_CLICK:
            ClickByProgram();
            return 0;
        default:
            return Default(message, wParam, lParam);
    }
}

LRESULT Button::DialogCode() const {
    switch (Type()) {
        case BS_PUSHBUTTON:
            return DLGC_BUTTON | DLGC_UNDEFPUSHBUTTON;
        case BS_DEFPUSHBUTTON:
            return DLGC_BUTTON | DLGC_DEFPUSHBUTTON;
        case BS_GROUPBOX:
            return DLGC_STATIC;
        case BS_RADIOBUTTON:
        case BS_AUTORADIOBUTTON:
            return DLGC_BUTTON | DLGC_RADIOBUTTON;
        default:
            return DLGC_BUTTON;
    }
}

bool Button::Contains(LPARAM position) const {
    const int x = GET_X_LPARAM(position);
    const int y = GET_Y_LPARAM(position);
    return x >= 0 && y >= 0 && x < ClientWidth() && y < ClientHeight();
}

void Button::OnLeftDown(LPARAM) {
    if (Type() == BS_GROUPBOX) return;
    SetCapture(m_window);
    SetFocus(m_window);
    m_tracking = true;
    SetPushed(true);
}

void Button::OnMouseMove(LPARAM position) {
    if (m_tracking) SetPushed(Contains(position));
}

void Button::OnLeftUp(LPARAM position) {
    if (!m_tracking) return;
    m_tracking = false;
    const bool inside = Contains(position);
    SetPushed(false);
    ReleaseCapture();
    if (inside) Clicked();
}

void Button::OnFocus(bool gained) {
    if (gained) {
        m_state |= BST_FOCUS;
    } else {
        m_state &= ~LRESULT{BST_FOCUS};
        if (m_tracking) ReleaseCapture();
        SetPushed(false);
    }
    if (NotifiesAll()) Notify(gained ? BN_SETFOCUS : BN_KILLFOCUS);
}

void Button::SetPushed(bool pushed) {
    m_state = pushed ? m_state | BST_PUSHED : m_state & ~LRESULT{BST_PUSHED};
}

void Button::SetCheck(WPARAM check) {
    const DWORD type = Type();
    if (!IsCheckable(type)) return;
    const WPARAM highest = IsThreeState(type) ? BST_INDETERMINATE : BST_CHECKED;
    const WPARAM value = check > highest ? highest : check;
    if (IsRadio(type)) {
        // Of a group's radio buttons only the checked one stops the Tab key.
        SetStyle(value != 0 ? Style() | WS_TABSTOP : Style() & ~DWORD{WS_TABSTOP});
    }
    m_state = (m_state & ~kCheckMask) | static_cast<LRESULT>(value);
}

void Button::SetType(DWORD style) {
    const DWORD type = style & BS_TYPEMASK;
    SetStyle((Style() & ~DWORD{BS_TYPEMASK}) | type);
}

void Button::ClickByProgram() {
    SendMessageW(m_window, WM_LBUTTONDOWN, MK_LBUTTON, 0);
    SendMessageW(m_window, WM_LBUTTONUP, 0, 0);
}

void Button::Clicked() {
    const LRESULT check = m_state & kCheckMask;
    switch (Type()) {
        case BS_AUTOCHECKBOX:
            SetCheck(check == BST_UNCHECKED ? BST_CHECKED : BST_UNCHECKED);
            break;
        case BS_AUTO3STATE:
            SetCheck(check == BST_INDETERMINATE ? BST_UNCHECKED : static_cast<WPARAM>(check + 1));
            break;
        case BS_AUTORADIOBUTTON:
            UncheckOthersInGroup();
            SetCheck(BST_CHECKED);
            break;
        default:
            break;
    }
    Notify(BN_CLICKED);
}

void Button::UncheckOthersInGroup() const {
    HWND parent = Parent();
    HWND other = m_window;
    do {
        other = GetNextDlgGroupItem(parent, other, FALSE);
        if (other == nullptr || other == m_window) return;
        const LRESULT code = SendMessageW(other, WM_GETDLGCODE, 0, 0);
        const auto type = static_cast<DWORD>(GetWindowLongPtrW(other, GWL_STYLE)) & BS_TYPEMASK;
        if ((code & DLGC_RADIOBUTTON) != 0 && type == BS_AUTORADIOBUTTON) {
            SendMessageW(other, BM_SETCHECK, BST_UNCHECKED, 0);
        }
    } while (true);
}

}  // namespace qv::headless
