// Item: one item of a page, all that is known of it in one place. A loader makes a LoadedItem of a definition; the page
// record keeps it as an Item.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "host/interfaces/session_data.h"
#include "host/libraries/layout_rows.h"
#include "qvclient/qvsettingsdialog/controls/special_item.h"
#include "qvclient/qvsettingsdialog/model/range.h"

struct ItemFacts {
    std::optional<SESSIONDATATYPE> scope = {};     // every item that was loaded has one
    std::optional<RangePair> range = {};           // of numbers
    std::optional<std::wstring> defaultText = {};  // not of special controls, which keep theirs themselves
};

struct Item {
    qv::LayoutRows::Column& row;  // its name is the item key, which says where the value is stored
    ItemFacts facts;
    SpecialControl* control = nullptr;  // null: the layout's own control holds the value
};

namespace qv {

struct LoadedItem {
    std::int32_t page = 0;
    std::unique_ptr<LayoutRows::Column> row;
    ItemFacts facts;
    std::optional<SpecialItem> control;  // for items whose value a control of their own holds
};

}  // namespace qv
