// The one list of item types: what a definition's "type" may be, which attributes the type knows, which row shows it,
// and how it is loaded. To add a type, add a row to the table and write its loader.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "qvclient/qvsettingsdialog/controls/special_control.h"
#include "qvclient/qvsettingsdialog/model/item.h"
#include "qvclient/qvsettingsdialog/model/item_attributes.h"

namespace qv {

class ItemSource;
struct ItemType;

// One definition, ready to be loaded.
struct Definition {
    ItemSource& source;
    std::wstring_view name;
    const AttributeMap& attributes;
    const ItemType& type;
};
// Fills the item in. False when it is dropped, silently or with an error box; a bad item may be corrected with a
// message.
using ItemLoader = bool (*)(const Definition& definition, LoadedItem& item);

// Whether blanks around attribute names and texts count.
enum class Blanks { Trim, Keep };

// The row that shows items of a type.
struct RowShape {
    int dataType;
    int controlType;
    int resizeMode = LayoutRows::kResizeDefault;
    // Pixels at 96 dpi; 0: the layout's own measure.
    int minWidth = 0, maxWidth = 0;
    int minHeight = 0, maxHeight = 0;
};

struct ItemType {
    std::int32_t code;
    std::optional<SpecialControlKind> kind;  // none: the layout's own control
    Blanks blanks;
    AttributeSet knows;  // any other attribute is passed over
    RowShape shape;
    ItemLoader load;
};

// In ascending order of their codes.
[[nodiscard]] std::span<const ItemType> ItemTypes() noexcept;
// Null for a code that no type has.
[[nodiscard]] const ItemType* FindItemType(std::int32_t code) noexcept;

}  // namespace qv
