// The combo box of a row. Used by the layout alone.
#pragma once

#include "framework/controls.h"

namespace qv {

// It is made as high as it is closed, which spares the platform half of the work, and takes room for its list when that
// drops. Its wheel is the page's while the list is closed: whoever scrolls past it may not change a setting unawares.
class RowComboBox : public CComboBox {
public:
    // Pixels of the list.
    explicit RowComboBox(int listHeight) : m_listHeight(listHeight) {}
    const MessageMap* GetMessageMap() const override;

private:
    LRESULT OnMouseWheel(WPARAM wParam, LPARAM lParam);
    void OnDropDown();

    int m_listHeight;
};

}  // namespace qv
