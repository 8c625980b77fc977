#include "host/libraries/layout_combo_box.h"

namespace qv {

const MessageMap* RowComboBox::GetMessageMap() const {
    static const MessageMap map{CComboBox::GetThisMessageMap(),
                                {
                                    on::Message<&RowComboBox::OnMouseWheel>(WM_MOUSEWHEEL),
                                    on::ControlReflect<&RowComboBox::OnDropDown>(CBN_DROPDOWN),
                                }};
    return &map;
}

void RowComboBox::OnDropDown() {
    const CRect closed = GetWindowRect();
    SetWindowPos(nullptr, 0, 0, closed.Width(), closed.Height() + m_listHeight,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOREDRAW);
}

LRESULT RowComboBox::OnMouseWheel(WPARAM wParam, LPARAM lParam) {
    if (SendMessage(CB_GETDROPPEDSTATE) != FALSE) return Default();
    return ::SendMessageW(::GetParent(m_hWnd), WM_MOUSEWHEEL, wParam, lParam);
}

}  // namespace qv
