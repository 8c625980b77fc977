#include "host/libraries/layout_combo_box.h"

namespace qv {

const MessageMap* RowComboBox::GetMessageMap() const {
    static const MessageMap map{CComboBox::GetThisMessageMap(),
                                {
                                    on::Message<&RowComboBox::OnMouseWheel>(WM_MOUSEWHEEL),
                                }};
    return &map;
}

LRESULT RowComboBox::OnMouseWheel(WPARAM wParam, LPARAM lParam) {
    if (SendMessage(CB_GETDROPPEDSTATE) != FALSE) return Default();
    return ::SendMessageW(::GetParent(m_hWnd), WM_MOUSEWHEEL, wParam, lParam);
}

}  // namespace qv
