// SpecialItem: what an item with a control of its own comes to when its definition and its stored value have been read.
// The control is made from it.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "qvclient/qvsettingsdialog/controls/special_control.h"

struct SpecialItem {
    SpecialControlKind kind{};
    std::int32_t typeCode = 0;
    // As stored; of a checked list the keys below instead.
    std::wstring value;
    std::wstring defaultText;
    bool hasDefault = false;
    bool readOnly = false;
    // Where the value is kept; a control without a place (either part empty) is never stored.
    std::wstring key;
    std::wstring name;
    std::wstring label;                   // translated
    std::optional<std::wstring> caption;  // of a button: the label as the definition has it
    bool checkPath = false;
    std::map<std::wstring, std::wstring> entries;  // of a checked list: key to text, translated
    std::vector<std::wstring> keys;
    std::vector<std::wstring> defaultKeys;
};

namespace qv {

// Makes the control of an item, without a window.
using ControlFactory = std::unique_ptr<SpecialControl> (*)(SpecialItem&& item);

// The controls that the dialog shows. A chooser that checks its paths and a password that cannot be deciphered report
// what is wrong with their values here.
[[nodiscard]] std::unique_ptr<SpecialControl> MakeSpecialControl(SpecialItem&& item);

}  // namespace qv
