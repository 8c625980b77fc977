#include "host/libraries/units.h"

#include <utility>

namespace {

std::unique_ptr<XUAAdmin>& Database() {
    static std::unique_ptr<XUAAdmin> database;
    return database;
}

std::unique_ptr<XLMTranslDict>& UnitDictionary() {
    static std::unique_ptr<XLMTranslDict> dictionary;
    return dictionary;
}

}  // namespace

XUACategory::XUACategory(std::wstring name, const std::vector<std::optional<std::wstring>>& unitNames)
    : m_name(std::move(name)) {
    for (const auto& unit : unitNames)
        m_units.push_back(unit ? std::make_unique<XUAUnit>(*unit) : nullptr);
}

void XUACategory::GetUnits(std::vector<const XUAUnit*>& list) const {
    list.clear();
    for (const auto& unit : m_units)
        list.push_back(unit.get());
}

void XUAAdmin::AddCategory(XUACategory category) {
    std::wstring name = category.GetName();
    m_categories.try_emplace(std::move(name), std::move(category));
}

const XUACategory* XUAAdmin::FindCategory(std::wstring_view name) const {
    const auto found = m_categories.find(name);
    return found != m_categories.end() ? &found->second : nullptr;
}

std::wstring XLMTranslDict::StringTranslate(std::wstring_view text) const {
    const auto found = m_texts.find(text);
    return found != m_texts.end() ? found->second : std::wstring(text);
}

const XUAAdmin* XUAAdminStd::XUAAdminDefault() {
    return Database().get();
}

const XLMTranslDict* XUAAdminStd::XUATranslDictDefault() {
    return UnitDictionary().get();
}

namespace qv {

std::unique_ptr<XUAAdmin> SetUnitDatabase(std::unique_ptr<XUAAdmin> database) {
    return std::exchange(Database(), std::move(database));
}

std::unique_ptr<XLMTranslDict> SetUnitDictionary(std::unique_ptr<XLMTranslDict> dictionary) {
    return std::exchange(UnitDictionary(), std::move(dictionary));
}

}  // namespace qv
