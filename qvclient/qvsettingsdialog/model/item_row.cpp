#include "qvclient/qvsettingsdialog/model/item_row.h"

#include "qvclient/qvsettingsdialog/model/page_record.h"

namespace qv {

std::unique_ptr<XLayout::Column> MakeRow(ItemDraft& draft, std::wstring itemKey, std::wstring value,
                                         const RowShape& shape) {
    return std::make_unique<XLayout::Column>(
        nullptr, std::move(itemKey), std::move(draft.label), std::move(value), draft.order, true, draft.disabled,
        shape.dataType, shape.controlType, shape.resizeMode, nullptr, shape.lower, shape.upper, shape.lowerReal,
        shape.upperReal, shape.limit, shape.decimals, PageRecord::kGroupNumber, std::wstring(), false, nullptr, false,
        1, 0, 0, std::wstring(), std::wstring(), std::wstring());
}

bool IsTextEdit(const XLayout::Column* row) noexcept {
    return row != nullptr && row->dataType == XLayout::kText && row->controlType == XLayout::kEdit;
}

}  // namespace qv
