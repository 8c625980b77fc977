#include "tests/component/model/model_fixture.h"

#include <algorithm>

#include "base/text.h"

void ModelTest::Define(std::wstring_view itemKey, const Pairs& attributes) {
    const std::wstring path = std::wstring(kRoot) + L'/' + std::wstring(itemKey);
    const auto has = [&](std::wstring_view name) {
        return std::any_of(attributes.begin(), attributes.end(), [&](const auto& pair) { return pair.first == name; });
    };
    for (const auto& [name, text] : attributes)
        m_session->Define(path, name, text);
    if (!has(L"pagenumber")) m_session->Define(path, L"pagenumber", L"1");
    if (!has(L"label")) m_session->Define(path, L"label", L"A label");
}

void ModelTest::Define(std::wstring_view itemKey, const Pairs& attributes, const std::optional<std::wstring>& stored) {
    Pairs all = attributes;
    all.emplace_back(L"globaldata", L"0");
    Define(itemKey, all);
    if (!stored) return;
    const auto separator = itemKey.rfind(L'/');
    m_session->Put(SDT_userData, itemKey.substr(0, separator), itemKey.substr(separator + 1), *stored);
}

void ModelTest::DefinePages(const Pairs& numbersAndTitles) {
    for (const auto& [number, title] : numbersAndTitles) {
        m_session->Define(std::wstring(kRoot) + L"/pages", number, title);
    }
}

XConstructionSet& ModelTest::Model() {
    if (!m_model) {
        m_model = std::make_unique<XConstructionSet>(kRoot, m_controlPath, m_dataIO, m_session.Get(), m_rights.Get(),
                                                     m_makeControl);
    }
    return *m_model;
}

std::map<std::int32_t, PageRecord*>& ModelTest::Items() {
    if (!m_items) {
        m_items.emplace();
        Model().LoadItems(*m_items);
    }
    return *m_items;
}

PageRecord* ModelTest::Page(std::int32_t number) {
    const auto found = Items().find(number);
    return found != Items().end() ? found->second : nullptr;
}

const qv::LayoutRows::Column* ModelTest::Row(std::wstring_view itemKey) {
    const Item* item = Find(itemKey);
    return item != nullptr ? &item->row : nullptr;
}

const std::wstring* ModelTest::DefaultOf(std::wstring_view itemKey) {
    const Item* item = Find(itemKey);
    return item != nullptr && item->facts.defaultText ? &*item->facts.defaultText : nullptr;
}

const Item* ModelTest::Find(std::wstring_view itemKey) {
    for (const auto& [number, record] : Items()) {
        for (const Item& item : record->Items()) {
            if (item.row.name == itemKey) return &item;
        }
    }
    return nullptr;
}

std::wstring OnlyText(const std::vector<qv::MessageBoxCall>& boxes) {
    return boxes.size() == 1 ? boxes[0].text : qv::Format(L"(%d boxes)", boxes.size());
}

namespace qv {
void PrintTo(const MessageBoxCall& call, std::ostream* out) {
    *out << ToUtf8(call.caption) << ": " << ToUtf8(call.text);
}
}  // namespace qv
