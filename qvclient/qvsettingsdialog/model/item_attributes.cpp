#include "qvclient/qvsettingsdialog/model/item_attributes.h"

#include <algorithm>

#include "base/text.h"

namespace {

constexpr AttributeNameRow kNames[] = {
    {L"label", AttributeName::Label},
    {L"default", AttributeName::Default},
    {L"ordernumber", AttributeName::OrderNumber},
    {L"pagenumber", AttributeName::PageNumber},
    {L"functiongroup", AttributeName::FunctionGroup},
    {L"globaldata", AttributeName::GlobalData},
    {L"upperbound", AttributeName::UpperBound},
    {L"lowerbound", AttributeName::LowerBound},
    {L"maxstringlength", AttributeName::MaxStringLength},
    {L"unitcategory", AttributeName::UnitCategory},
    {L"checkpath", AttributeName::CheckPath},
};

std::wstring_view ViewOf(BSTR text) {
    return text != nullptr ? std::wstring_view(text, SysStringLen(text)) : std::wstring_view();
}

// Most names are written in small letters; only the others cost a copy.
bool IsLowerAscii(std::wstring_view name) {
    return std::none_of(name.begin(), name.end(), [](wchar_t c) { return (c >= L'A' && c <= L'Z') || c >= 0x80; });
}

}  // namespace

std::span<const AttributeNameRow> AttributeNames() noexcept {
    return kNames;
}

AttributeName FindAttributeName(std::wstring_view lowerName) noexcept {
    if (lowerName.empty()) return AttributeName::Other;
    for (const AttributeNameRow& row : kNames) {
        // Length and first character tell all but equal names apart; the whole comparison is for the one that is left.
        if (row.name.size() == lowerName.size() && row.name[0] == lowerName[0] && row.name == lowerName) {
            return row.attribute;
        }
    }
    return lowerName.find(L"value") != std::wstring_view::npos ? AttributeName::ListEntry : AttributeName::Other;
}

void AttributeMap::Assign(const qv::StringBlock& pairs) {
    m_attributes.clear();
    m_foldedNames.clear();
    const std::size_t count = pairs.Count();
    m_attributes.reserve(count);
    const auto less = [](const Attribute& a, const Attribute& b) { return a.name < b.name; };
    bool ascending = true;
    for (std::size_t i = 0; i < count; ++i) {
        m_attributes.push_back({ViewOf(pairs.At(2 * i)), ViewOf(pairs.At(2 * i + 1))});
        ascending = ascending && (i == 0 || less(m_attributes[i - 1], m_attributes[i]));
    }
    if (!ascending) {  // most hosts answer in order
        std::stable_sort(m_attributes.begin(), m_attributes.end(), less);
        m_attributes.erase(std::unique(m_attributes.begin(), m_attributes.end(),
                                       [](const Attribute& a, const Attribute& b) { return a.name == b.name; }),
                           m_attributes.end());
    }

    // Folded only now: the order is that of the names as they were written.
    for (Attribute& attribute : m_attributes) {
        attribute.asWritten = FindAttributeName(attribute.name);
        if (attribute.asWritten == AttributeName::Other && !IsLowerAscii(attribute.name)) {
            attribute.name = m_foldedNames.emplace_back(qv::ToLower(attribute.name));
            attribute.asWritten = FindAttributeName(attribute.name);
        }
        const std::wstring_view trimmed = qv::TrimView(attribute.name);
        const bool hasBlanks = trimmed.size() != attribute.name.size();
        attribute.withoutBlanks = hasBlanks ? FindAttributeName(trimmed) : attribute.asWritten;
    }
}

std::optional<std::wstring_view> FindDefault(const AttributeMap& attributes) {
    std::optional<std::wstring_view> found;
    for (const Attribute& pair : attributes.All()) {
        if (pair.withoutBlanks == AttributeName::Default) found = qv::TrimView(pair.text);
    }
    return found;
}

void TakeDefaultFirst(const AttributeMap& attributes, ItemDraft& draft) {
    const auto text = FindDefault(attributes);
    if (!text) return;
    draft.defaultText = *text;
    draft.value = *text;
    draft.hasDefault = true;
}

std::optional<ListEntry> SplitListEntry(std::wstring_view entry) {
    const auto separator = entry.find(L'|');
    if (separator == 0) return std::nullopt;
    // deliberate: an entry without data can only match an empty value.
    if (separator == std::wstring_view::npos) return ListEntry{{}, entry};
    return ListEntry{entry.substr(0, separator), entry.substr(separator + 1)};
}
