// The layout row of an item: what differs by kind, and the row made from it and the item's draft. The typed loaders
// call it; storing asks it whether a row is free text.
#pragma once

#include <memory>
#include <string>

#include "host/libraries/layout.h"
#include "qvclient/qvsettingsdialog/model/item_attributes.h"

namespace qv {

struct RowShape {
    int dataType;
    int controlType;
    int resizeMode = XLayout::kResizeDefault;
    int lower = 0;
    int upper = 0;
    double lowerReal = 0.0;
    double upperReal = 0.0;
    int limit = 0;  // characters: digits of a number, length of a text
    int decimals = 0;
};

// Takes the draft's label over.
[[nodiscard]] std::unique_ptr<XLayout::Column> MakeRow(ItemDraft& draft, std::wstring itemKey, std::wstring value,
                                                       const RowShape& shape);

// True for a row of free text: string items and the placeholders of special controls. Decimal separators in it are the
// user's own. False for null.
[[nodiscard]] bool IsTextEdit(const XLayout::Column* row) noexcept;

}  // namespace qv
