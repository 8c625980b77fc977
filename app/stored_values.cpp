#include "app/stored_values.h"

#include <array>
#include <nlohmann/json.hpp>

#include "base/text.h"
#include "host/services/whole_file.h"

namespace qv {

namespace {
constexpr std::array kScopes{L"user", L"machine", L"userdb", L"global"};
}  // namespace

StoredValues ReadStoredValues(const std::wstring& folder) {
    StoredValues values;
    for (const wchar_t* scope : kScopes) {
        std::string bytes;
        if (ReadWholeFile(folder + L"/" + scope + L".json", bytes) != ReadResult::Done) continue;
        const auto document = nlohmann::json::parse(bytes, nullptr, false);
        if (!document.is_object()) continue;
        for (const auto& [key, names] : document.items()) {
            if (!names.is_object()) continue;
            for (const auto& [name, text] : names.items()) {
                if (!text.is_string()) continue;
                values[Format(L"%s %s/%s", scope, FromUtf8(key), FromUtf8(name))] = FromUtf8(text.get<std::string>());
            }
        }
    }
    return values;
}

std::vector<std::wstring> DescribeChanges(const StoredValues& before, const StoredValues& after,
                                          const ScopeData& definitions, const std::wstring& optionKey) {
    std::vector<std::wstring> lines;
    for (const auto& [name, text] : after) {
        const auto old = before.find(name);
        if (old != before.end()) {
            if (old->second != text) lines.push_back(Format(L"%s = \"%s\" (was \"%s\")", name, text, old->second));
            continue;
        }
        const std::wstring item = name.substr(name.find(L' ') + 1);
        const std::wstring* standard = definitions.Find(optionKey + L"/" + item, L"default");
        if (standard == nullptr || *standard != text) lines.push_back(Format(L"%s = \"%s\"", name, text));
    }
    return lines;
}

}  // namespace qv
