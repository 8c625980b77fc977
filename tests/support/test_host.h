// A host in memory with a definition tree, for the tests of every layer that shows the settings dialog.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

#include "host/services/multi_user_manager.h"
#include "tests/support/memory_session_data.h"

namespace qvtest {

inline constexpr const wchar_t* kOptionKey = L"option-configuration";

// Session data with a definition tree under kOptionKey, and a user who may do everything.
class TestHost {
public:
    using Attributes = std::initializer_list<std::pair<std::wstring_view, std::wstring_view>>;

    TestHost();
    void DefinePage(std::wstring_view number, std::wstring_view title);
    // itemKey: key/name below the option key. "globaldata" 0 (the user's data) is added.
    void DefineItem(std::wstring_view itemKey, Attributes attributes);
    // Its label is its name, unless the attributes say another.
    void DefineItem(std::wstring_view itemKey, int type, int page, Attributes attributes = {});
    // One page with an item of each plain kind: flag (boolean), count (integer 0 to 10, default 4), ratio (floating
    // point 0.5 to 2.5, default 2), name (text), unit (list mm, cm), all under key "common", all stored.
    void DefinePlainPage();
    // What is stored for the item in the user's data; "(none)" when nothing is.
    [[nodiscard]] std::wstring Stored(std::wstring_view itemKey) const;

    qv::ComPtr<qv::MemorySessionData> session;
    qv::ComPtr<qv::MultiUserManager> users;
};

}  // namespace qvtest
