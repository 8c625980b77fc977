// ItemSource: what an item is asked of the host while it is loaded, its stored value and the right to change it.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/com.h"
#include "host/interfaces/multi_user.h"
#include "host/interfaces/session_data.h"
#include "qvclient/qvsettingsdialog/model/value_store.h"

namespace qv {

class ItemSource {
public:
    // Without multiUser nobody has a right.
    explicit ItemSource(ComPtr<IMultiUserManager> multiUser);
    ItemSource(const ItemSource&) = delete;
    ItemSource& operator=(const ItemSource&) = delete;

    [[nodiscard]] bool HasRight(std::wstring_view rightName);
    // What the scope code (0 to 3) of an item means: the data scope of its value, and whether the user holds the right
    // to change it (asked anew each time). Nothing for an unknown code.
    [[nodiscard]] static std::optional<SESSIONDATATYPE> FindScope(std::int32_t scopeCode);
    [[nodiscard]] std::optional<bool> IsGroupGranted(std::int32_t scopeCode);

    // Readers: false when there is nothing to read; the value is then untouched (ReadString's is empty).
    bool ReadString(std::wstring_view definitionName, SESSIONDATATYPE scope, std::wstring& value);
    // Text that is no number reads as 0.
    bool ReadInteger(std::wstring_view definitionName, SESSIONDATATYPE scope, std::int32_t& value);
    bool ReadDouble(std::wstring_view definitionName, SESSIONDATATYPE scope, double& value);
    bool ReadBoolean(std::wstring_view definitionName, SESSIONDATATYPE scope, bool& value);
    bool ReadStringList(std::wstring_view definitionName, SESSIONDATATYPE scope, std::vector<std::wstring>& value);
    // Appends the "|"-separated pieces of text, each trimmed; the last one also when it is empty.
    static void SplitStringList(std::wstring_view text, std::vector<std::wstring>& list);

protected:
    static constexpr std::int32_t kScopeCodes = 4;
    ~ItemSource() = default;

    std::unique_ptr<ValueStore> m_values;  // null: there is nothing to read
    ComPtr<IMultiUserManager> m_multiUser;

private:
    [[nodiscard]] Variant ReadText(std::wstring_view definitionName, SESSIONDATATYPE scope);

    std::array<Bstr, kScopeCodes> m_rightNames;  // by scope code, ready to be asked with
    Bstr m_latestKey;                            // most items are stored below the key of the item before
};

}  // namespace qv
