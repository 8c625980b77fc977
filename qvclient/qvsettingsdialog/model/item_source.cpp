#include "qvclient/qvsettingsdialog/model/item_source.h"

#include <utility>

#include "base/text.h"
#include "qvclient/qvsettingsdialog/model/range.h"
#include "qvclient/qvsettingsdialog/model/settings_path.h"

namespace qv {

namespace {

struct ScopeRow {
    SESSIONDATATYPE scope;
    std::wstring_view right;
};
constexpr ScopeRow kScopeTable[] = {
    {SDT_userData, L"Change settings/User data"},
    {SDT_machineData, L"Change settings/Machine data"},
    {SDT_userDataDB, L"Change settings/User DB data"},
    {SDT_globalData, L"Change settings/Global data"},
};

std::wstring_view ViewOf(const Bstr& text) {
    return {text.Get(), SysStringLen(text.Get())};
}

}  // namespace

ItemSource::ItemSource(ComPtr<IMultiUserManager> multiUser) : m_multiUser(std::move(multiUser)) {
    static_assert(std::size(kScopeTable) == kScopeCodes);
    for (std::size_t code = 0; code < m_rightNames.size(); ++code)
        m_rightNames[code] = Bstr(kScopeTable[code].right);
}

bool ItemSource::HasRight(std::wstring_view rightName) {
    const Bstr name(rightName);
    return m_multiUser && m_multiUser->CheckRight(name.Get()) == S_OK;
}

std::optional<bool> ItemSource::IsGroupGranted(std::int32_t scopeCode) {
    if (scopeCode < 0 || scopeCode >= kScopeCodes) return std::nullopt;
    return m_multiUser && m_multiUser->CheckRight(m_rightNames[static_cast<std::size_t>(scopeCode)].Get()) == S_OK;
}

std::optional<SESSIONDATATYPE> ItemSource::FindScope(std::int32_t scopeCode) {
    if (scopeCode < 0 || scopeCode >= kScopeCodes) return std::nullopt;
    return kScopeTable[scopeCode].scope;
}

Variant ItemSource::ReadText(std::wstring_view definitionName, SESSIONDATATYPE scope) {
    const auto path = SplitValuePath(definitionName);
    if (!path || !m_values) return {};
    // Taken out for the time of the call, in which the host may lead back here.
    Bstr key = std::exchange(m_latestKey, Bstr());
    if (key.Get() == nullptr || ViewOf(key) != path->key) key = Bstr(path->key);
    const Bstr name(path->name);
    Variant value = m_values->Read(key.Get(), name.Get(), scope);
    m_latestKey = std::move(key);
    return value;
}

bool ItemSource::ReadString(std::wstring_view definitionName, SESSIONDATATYPE scope, std::wstring& value) {
    value.clear();
    const Variant stored = ReadText(definitionName, scope);
    const auto text = stored.Text();
    if (!text) return false;
    value = TrimView(*text);
    return true;
}

bool ItemSource::ReadInteger(std::wstring_view definitionName, SESSIONDATATYPE scope, std::int32_t& value) {
    Variant stored = ReadText(definitionName, scope);
    const std::wstring_view text = stored.Text().value_or(std::wstring_view());
    if (text.empty()) return false;
    if (const auto number = PlainInteger(text)) {
        value = *number;
        return true;
    }
    // deliberate: a text that the conversion refuses is a successful read of 0, not a reason to show the default.
    value = stored.ChangeType(VT_I4) == S_OK ? static_cast<std::int32_t>(stored.Get().lVal) : 0;
    return true;
}

bool ItemSource::ReadDouble(std::wstring_view definitionName, SESSIONDATATYPE scope, double& value) {
    const Variant stored = ReadText(definitionName, scope);
    const auto text = stored.Text();
    if (!text) return false;
    value = TextToDouble(*text);
    return true;
}

bool ItemSource::ReadBoolean(std::wstring_view definitionName, SESSIONDATATYPE scope, bool& value) {
    const Variant stored = ReadText(definitionName, scope);
    const auto text = stored.Text();
    if (!text) return false;
    value = TrimView(*text) == L"1";
    return true;
}

bool ItemSource::ReadStringList(std::wstring_view definitionName, SESSIONDATATYPE scope,
                                std::vector<std::wstring>& value) {
    const Variant stored = ReadText(definitionName, scope);
    const auto text = stored.Text();
    if (!text) return false;
    value.clear();
    SplitStringList(TrimView(*text), value);
    return true;
}

void ItemSource::SplitStringList(std::wstring_view text, std::vector<std::wstring>& list) {
    for (;;) {
        const auto separator = text.find(L'|');
        list.emplace_back(TrimView(text.substr(0, separator)));
        if (separator == std::wstring_view::npos) return;
        text.remove_prefix(separator + 1);
    }
}

}  // namespace qv
