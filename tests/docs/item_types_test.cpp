// The definition reference has a section for every item type, and the section names the attributes that the type knows.
#include <gtest/gtest.h>

#include <fstream>
#include <map>

#include "base/text.h"
#include "qvclient/qvsettingsdialog/model/item_types.h"

namespace {

// The sections of the page by the codes in their headings: "## 7: Folder, 9: File" and "## 10 to 13: Button".
std::map<std::int32_t, std::wstring> SectionsByCode() {
    std::map<std::int32_t, std::wstring> sections;
    std::ifstream page(QV_DEFINITIONS_PAGE);
    std::vector<std::int32_t> codes;
    for (std::string line; std::getline(page, line);) {
        const std::wstring text = qv::FromUtf8(line);
        if (text.starts_with(L"## ")) {
            codes.clear();
            const std::wstring heading = text.substr(0, text.rfind(L':'));
            for (std::size_t at = heading.find_first_of(L"0123456789"); at != std::wstring::npos;
                 at = heading.find_first_of(L"0123456789", heading.find_first_not_of(L"0123456789", at))) {
                const std::int32_t code = qv::LeadingInteger(std::wstring_view(heading).substr(at));
                const bool isRange = heading.substr(0, at).ends_with(L" to ");
                for (std::int32_t each = isRange ? codes.back() + 1 : code; each <= code; ++each)
                    codes.push_back(each);
            }
        }
        for (const std::int32_t code : codes)
            sections[code] += text + L'\n';
    }
    return sections;
}

TEST(DefinitionReference, NamesTheAttributesThatEachTypeKnows) {
    const auto sections = SectionsByCode();
    const auto plain = qv::FindItemType(0)->knows;  // a check box knows the common ones alone
    for (const qv::ItemType& type : qv::ItemTypes()) {
        SCOPED_TRACE(type.code);
        ASSERT_TRUE(sections.contains(type.code));
        const std::wstring& section = sections.at(type.code);
        for (const AttributeNameRow& row : AttributeNames()) {
            if (plain.Has(row.attribute)) continue;
            const std::wstring quoted = L'`' + std::wstring(row.name) + L'`';
            if (type.knows.Has(row.attribute)) {
                EXPECT_NE(section.find(quoted), std::wstring::npos) << qv::ToUtf8(quoted);
            } else {
                EXPECT_EQ(section.find(L"| " + quoted), std::wstring::npos) << qv::ToUtf8(quoted);
            }
        }
        EXPECT_EQ(section.find(L"with `value` in") != std::wstring::npos, type.knows.Has(AttributeName::ListEntry));
    }
    EXPECT_EQ(sections.size(), qv::ItemTypes().size());
}

}  // namespace
