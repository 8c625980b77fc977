// The attributes of one item definition as the session data hands them out, and what becomes of them: an ItemDraft,
// common to all kinds of item. The walk that leads from one to the other is in item_walk.h.
#pragma once

#include <cstdint>
#include <deque>
#include <initializer_list>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/com.h"
#include "host/interfaces/session_data.h"

enum class AttributeName {
    Other,
    Label,
    Default,
    OrderNumber,
    PageNumber,
    FunctionGroup,
    GlobalData,
    UpperBound,
    LowerBound,
    MaxStringLength,
    UnitCategory,
    CheckPath,
    ListEntry,  // any other name with "value" in it
};

// A set of attributes.
class AttributeSet {
public:
    constexpr AttributeSet(std::initializer_list<AttributeName> names) noexcept {
        for (const AttributeName name : names)
            m_bits |= Bit(name);
    }
    [[nodiscard]] constexpr bool Has(AttributeName name) const noexcept { return (m_bits & Bit(name)) != 0; }
    [[nodiscard]] friend constexpr AttributeSet operator|(AttributeSet a, AttributeSet b) noexcept {
        a.m_bits |= b.m_bits;
        return a;
    }

private:
    static constexpr std::uint32_t Bit(AttributeName name) noexcept { return 1U << static_cast<unsigned>(name); }
    std::uint32_t m_bits = 0;
};

// The attributes that have one name; entries have any number.
struct AttributeNameRow {
    std::wstring_view name;  // lower case
    AttributeName attribute;
};
[[nodiscard]] std::span<const AttributeNameRow> AttributeNames() noexcept;
// The attribute that a lower-case name stands for.
[[nodiscard]] AttributeName FindAttributeName(std::wstring_view lowerName) noexcept;

struct Attribute {
    std::wstring_view name;  // blanks kept; lower case, but for names of entries
    std::wstring_view text;
    AttributeName asWritten = AttributeName::Other;      // what the name stands for
    AttributeName withoutBlanks = AttributeName::Other;  // the same of the name without the blanks around it
};

// Name and text pairs in ascending order of the names as they were written. The texts are views into the block of
// strings they came from: copying them would double the cost of loading.
class AttributeMap {
public:
    // Replaces the content by the block's pairs; of pairs with one name the first stays. The block must outlive it.
    void Assign(const qv::StringBlock& pairs);
    [[nodiscard]] bool Empty() const noexcept { return m_attributes.empty(); }
    [[nodiscard]] std::span<const Attribute> All() const noexcept { return m_attributes; }

private:
    std::vector<Attribute> m_attributes;
    std::deque<std::wstring> m_foldedNames;  // of the names that were not lower case already
};

// What an item has become while its attributes are read.
struct ItemDraft {
    std::wstring label;  // translated
    std::wstring value;
    std::wstring defaultText;
    bool hasDefault = false;
    bool valueRead = false;  // value came from the data scope
    std::int32_t order = 0;
    std::int32_t page = 0;
    bool disabled = false;
    SESSIONDATATYPE scope = SDT_userData;
};

// The first walk of the kinds that must know their default before their entries: its text, trimmed, when there is one.
[[nodiscard]] std::optional<std::wstring_view> FindDefault(const AttributeMap& attributes);
// Begins a draft with it.
void TakeDefaultFirst(const AttributeMap& attributes, ItemDraft& draft);

// "data|text" of a choice. A text without "|" has empty data; one that begins with it is no entry.
struct ListEntry {
    std::wstring_view data;
    std::wstring_view text;
};
[[nodiscard]] std::optional<ListEntry> SplitListEntry(std::wstring_view entry);
