// The combo box of a row. Used by the layout alone.
#pragma once

#include "framework/controls.h"

namespace qv {

// Its wheel is the page's while the list is closed: whoever scrolls past it may not change a setting unawares.
class RowComboBox : public CComboBox {
public:
    const MessageMap* GetMessageMap() const override;

private:
    LRESULT OnMouseWheel(WPARAM wParam, LPARAM lParam);
};

}  // namespace qv
