// The host's unit administration: a database of unit categories and the dictionary for their names. The settings model
// asks it for the units of a category; the host's services fill it. It converts nothing.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

class XUAUnit {
public:
    explicit XUAUnit(std::wstring name) : m_name(std::move(name)) {}
    [[nodiscard]] const std::wstring& GetName() const noexcept { return m_name; }

private:
    std::wstring m_name;
};

class XUACategory {
public:
    // An absent name keeps an empty place.
    XUACategory(std::wstring name, const std::vector<std::optional<std::wstring>>& unitNames);
    [[nodiscard]] const std::wstring& GetName() const noexcept { return m_name; }
    // Replaces the list's content by the category's units, in their order; null for an empty place. The units stay the
    // category's.
    void GetUnits(std::vector<const XUAUnit*>& list) const;

private:
    std::wstring m_name;
    std::vector<std::unique_ptr<XUAUnit>> m_units;
};

class XUAAdmin {
public:
    // A category of a name that is there already is passed over.
    void AddCategory(XUACategory category);
    // Null when there is none; names compare exactly.
    [[nodiscard]] const XUACategory* FindCategory(std::wstring_view name) const;

private:
    std::map<std::wstring, XUACategory, std::less<>> m_categories;
};

class XLMTranslDict {
public:
    explicit XLMTranslDict(std::map<std::wstring, std::wstring, std::less<>> texts) : m_texts(std::move(texts)) {}
    // The text itself when the dictionary does not know it.
    [[nodiscard]] std::wstring StringTranslate(std::wstring_view text) const;

private:
    std::map<std::wstring, std::wstring, std::less<>> m_texts;
};

struct XUAAdminStd {
    // The process's unit database and the dictionary of its names, or null when the host has none.
    [[nodiscard]] static const XUAAdmin* XUAAdminDefault();
    [[nodiscard]] static const XLMTranslDict* XUATranslDictDefault();
};

namespace qv {
// Null takes it away. Returns the one before.
std::unique_ptr<XUAAdmin> SetUnitDatabase(std::unique_ptr<XUAAdmin> database);
std::unique_ptr<XLMTranslDict> SetUnitDictionary(std::unique_ptr<XLMTranslDict> dictionary);
}  // namespace qv
