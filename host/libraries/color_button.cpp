#include "host/libraries/color_button.h"

#include <optional>

#include "base/raised_flag.h"
#include "host/libraries/pickers.h"

namespace {

constexpr int kButtonWidth = 75;  // pixels at 96 dpi
constexpr int kButtonHeight = 23;
constexpr int kSwatchMargin = 4;
constexpr int kFocusMargin = 2;
constexpr COLORREF kVisibleColor = 0x00FFFFFF;  // the bits that a device draws

int ScaledFor(HWND window, int pixels) {
    const int dpi = static_cast<int>(::GetDpiForWindow(window));
    return dpi > 0 ? pixels * dpi / 96 : pixels;
}

RECT Deflated(const RECT& rect, int margin) {
    return {rect.left + margin, rect.top + margin, rect.right - margin, rect.bottom - margin};
}

// Half way to the button's face: the colour stays recognisable but looks switched off.
COLORREF Greyed(COLORREF color) {
    const COLORREF face = ::GetSysColor(COLOR_BTNFACE);
    return RGB((GetRValue(color) + GetRValue(face)) / 2, (GetGValue(color) + GetGValue(face)) / 2,
               (GetBValue(color) + GetBValue(face)) / 2);
}

bool IsEnter(const MSG& message) {
    return (message.message == WM_KEYDOWN || message.message == WM_CHAR) && message.wParam == VK_RETURN;
}

}  // namespace

QV_RUNTIME_CLASS(XColorBtn, CButton)

XColorBtn::~XColorBtn() = default;

const MessageMap* XColorBtn::GetThisMessageMap() {
    static const MessageMap map{CButton::GetThisMessageMap(),
                                {
                                    on::MessageReflect<&XColorBtn::OnDrawItem>(WM_DRAWITEM),
                                    on::Message<&XColorBtn::OnGetDlgCode>(WM_GETDLGCODE),
                                    on::Message<&XColorBtn::OnKeyDown>(WM_KEYDOWN),
                                    on::Message<&XColorBtn::OnKeyUp>(WM_KEYUP),
                                    on::Message<&XColorBtn::OnLButtonUp>(WM_LBUTTONUP),
                                    on::Message<&XColorBtn::OnClick>(BM_CLICK),
                                }};
    return &map;
}

const MessageMap* XColorBtn::GetMessageMap() const {
    return GetThisMessageMap();
}

bool XColorBtn::Create(POINT position, CWnd* parent, UINT id) {
    const HWND window = parent != nullptr ? parent->m_hWnd : nullptr;
    const CRect rect(static_cast<int>(position.x), static_cast<int>(position.y),
                     static_cast<int>(position.x) + ScaledFor(window, kButtonWidth),
                     static_cast<int>(position.y) + ScaledFor(window, kButtonHeight));
    return CButton::Create(L"", WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_OWNERDRAW, rect, parent, id);
}

void XColorBtn::SetSelColor(COLORREF color) {
    m_color = color;
    if (IsLive()) Invalidate(false);
}

void XColorBtn::PickColor() {
    if (m_isPicking) return;
    std::optional<COLORREF> picked;
    {
        const qv::RaisedFlag picking(m_isPicking);
        const CWnd* top = GetTopLevelParent();
        picked = qv::PickColor({top != nullptr ? top->m_hWnd : nullptr, m_color & kVisibleColor});
    }
    if (!IsLive()) return;
    SetFocus();
    if (!picked) return;
    SetSelColor(*picked);
    if (const CWnd* parent = GetParent()) {
        parent->SendMessage(WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(), BN_CLICKED), reinterpret_cast<LPARAM>(m_hWnd));
    }
}

LRESULT XColorBtn::OnDrawItem(WPARAM, LPARAM lParam) {
    const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
    const bool pressed = (item.itemState & ODS_SELECTED) != 0;
    const bool disabled = (item.itemState & ODS_DISABLED) != 0;

    RECT frame = item.rcItem;
    ::DrawFrameControl(
        item.hDC, &frame, DFC_BUTTON,
        static_cast<UINT>(DFCS_BUTTONPUSH | (pressed ? DFCS_PUSHED : 0) | (disabled ? DFCS_INACTIVE : 0)));

    RECT swatch = Deflated(item.rcItem, ScaledFor(m_hWnd, kSwatchMargin));
    if (swatch.right > swatch.left && swatch.bottom > swatch.top) {
        const COLORREF shown = m_color & kVisibleColor;
        if (const HBRUSH fill = ::CreateSolidBrush(disabled ? Greyed(shown) : shown)) {
            ::FillRect(item.hDC, &swatch, fill);
            ::DeleteObject(fill);
        }
        ::FrameRect(item.hDC, &swatch, ::GetSysColorBrush(disabled ? COLOR_GRAYTEXT : COLOR_WINDOWFRAME));
    }
    if ((item.itemState & ODS_FOCUS) != 0) {
        const RECT focus = Deflated(item.rcItem, ScaledFor(m_hWnd, kFocusMargin));
        ::DrawFocusRect(item.hDC, &focus);
    }
    return TRUE;
}

// An owner-drawn button is never the dialog's default button, so Enter would press another one.
LRESULT XColorBtn::OnGetDlgCode(WPARAM, LPARAM lParam) {
    const LRESULT code = Default();
    const auto* message = reinterpret_cast<const MSG*>(lParam);
    return message != nullptr && IsEnter(*message) ? code | DLGC_WANTMESSAGE : code;
}

LRESULT XColorBtn::OnKeyDown(WPARAM wParam, LPARAM) {
    if (wParam != VK_RETURN) return Default();
    PickColor();
    return 0;
}

// The platform's button reports every click to its parent, whatever comes of it. This one reports a colour that was
// picked and nothing else, so it takes the click for itself.
bool XColorBtn::ReleasePressed() {
    if ((SendMessage(BM_GETSTATE) & BST_PUSHED) == 0) return false;
    SendMessage(BM_SETSTATE, FALSE);
    if (::GetCapture() == m_hWnd) ::ReleaseCapture();
    return true;
}

LRESULT XColorBtn::OnKeyUp(WPARAM wParam, LPARAM) {
    if (wParam != VK_SPACE || !ReleasePressed()) return Default();
    PickColor();
    return 0;
}

LRESULT XColorBtn::OnLButtonUp(WPARAM, LPARAM lParam) {
    const auto x = static_cast<short>(LOWORD(static_cast<DWORD_PTR>(lParam)));
    const auto y = static_cast<short>(HIWORD(static_cast<DWORD_PTR>(lParam)));
    const CRect client = GetClientRect();
    if (!::PtInRect(&client, POINT{x, y}) || !ReleasePressed()) return Default();
    PickColor();
    return 0;
}

LRESULT XColorBtn::OnClick(WPARAM, LPARAM) {
    if (IsWindowEnabled()) PickColor();
    return 0;
}
