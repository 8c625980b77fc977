// The loaders of the item types, one a family of definitions. The table of types calls them.
#pragma once

#include "qvclient/qvsettingsdialog/model/item_types.h"

namespace qv {

[[nodiscard]] bool LoadCheckBox(const Definition& definition, LoadedItem& item);
[[nodiscard]] bool LoadIntegerEdit(const Definition& definition, LoadedItem& item);
[[nodiscard]] bool LoadDoubleEdit(const Definition& definition, LoadedItem& item);
[[nodiscard]] bool LoadStringEdit(const Definition& definition, LoadedItem& item);
[[nodiscard]] bool LoadListComboBox(const Definition& definition, LoadedItem& item);
[[nodiscard]] bool LoadUnitComboBox(const Definition& definition, LoadedItem& item);
[[nodiscard]] bool LoadCheckedListBox(const Definition& definition, LoadedItem& item);
// Passwords, colours, folders, files and buttons.
[[nodiscard]] bool LoadTextControl(const Definition& definition, LoadedItem& item);

}  // namespace qv
