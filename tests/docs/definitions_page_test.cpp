// Every example of the definition reference, loaded through the sample host's loader and shown by the settings model.
#include <algorithm>

#include "base/text.h"
#include "host/services/data_files.h"
#include "qvclient/qvsettingsdialog/dialogs/dyn_property_page.h"
#include "tests/component/model/model_fixture.h"
#include "tests/docs/example_page.h"
#include "tests/support/component_in_program.h"
#include "tests/support/temporary_folder.h"

namespace {

std::wstring OnOneLine(std::wstring text) {
    std::wstring line;
    for (const wchar_t c : text) {
        const wchar_t shown = c == L'\n' ? L' ' : c;
        if (shown != L' ' || !line.ends_with(L' ')) line += shown;
    }
    return line;
}

class DefinitionsPage : public ModelTest, public ::testing::WithParamInterface<PageExample> {
protected:
    ~DefinitionsPage() override {
        m_pages.clear();
        m_sheet.DestroyWindow();
        m_top.DestroyWindow();
        qv::SetUnitDatabase(nullptr);
    }

    void Load() {
        m_folder.Write(L"definitions.json", GetParam().definitions);
        ASSERT_EQ(qv::LoadDefinitions(m_folder.At(L"definitions.json"), m_session->Definitions()), L"");
        if (!GetParam().values.empty()) {
            // Stored values are named texts below a key, as attributes are below an item.
            constexpr std::wstring_view kItem = L"tree/values/";
            m_folder.Write(L"values.json", "{ \"tree\": { \"values\": " + GetParam().values + " } }");
            qv::ScopeData values;
            ASSERT_EQ(qv::LoadDefinitions(m_folder.At(L"values.json"), values), L"");
            for (const auto& key : values.Keys()) {
                for (const auto& value : key.values)
                    m_session->Put(SDT_userData, key.path.substr(kItem.size()), value.name, value.text);
            }
        }
        std::unique_ptr<XUAAdmin> units;
        std::unique_ptr<XLMTranslDict> names;
        ASSERT_EQ(qv::LoadUnits(qv::FromUtf8(QV_UNITS), L"", units, names), L"");
        qv::SetUnitDatabase(std::move(units));
        m_rights->Refuse(L"Change settings/Global data");
        ASSERT_TRUE(Model().HasSettings());
        m_top.CreateEx(0, nullptr, L"Top", WS_OVERLAPPEDWINDOW, RECT{0, 0, 600, 400}, nullptr, 0);
        UINT index = 0;
        for (const auto& [number, record] : Items()) {
            auto page = std::make_unique<XDynPropertyPage>(*record, L"Page", index++, m_sheet);
            m_sheet.AddPage(page.get());
            m_pages.emplace(number, std::move(page));
        }
        ASSERT_TRUE(m_sheet.Create(&m_top, WS_CHILD));
        for (int i = 0; i < m_sheet.GetPageCount(); ++i)
            m_sheet.SetActivePage(i);  // which makes its windows
    }

    std::int32_t PageOf(const std::wstring& itemKey) {
        for (const auto& [number, record] : Items()) {
            for (const auto& row : record->Groups().at(0)->columns) {
                if (row->name == itemKey) return number;
            }
        }
        return -1;
    }
    std::wstring Shown(const std::wstring& itemKey) {
        const std::int32_t page = PageOf(itemKey);
        if (page < 0) return L"(not shown)";
        const PageRecord& record = *Page(page);
        for (const SpecialControlKind kind : record.ControlKinds()) {
            for (const auto& control : record.Controls(kind)) {
                std::wstring key;
                std::wstring name;
                if (control->GetStorageKey(key, name) && key + L"/" + name == itemKey) return control->GetValue();
            }
        }
        for (const auto& row : m_pages.at(page)->GetLayout().GetReferenceList()) {
            if (row.name == itemKey) return row.text;
        }
        return L"(no such row)";
    }
    std::wstring AfterDefault(const std::wstring& itemKey) {
        const std::int32_t page = PageOf(itemKey);
        if (page < 0) return L"(not shown)";
        Model().SetDefaults(m_pages.at(page)->GetLayout(), *Page(page));
        return Shown(itemKey);
    }
    std::wstring Refusal(const std::wstring& itemKey, const std::wstring& text) {
        const std::int32_t page = PageOf(itemKey);
        if (page < 0) return L"(not shown)";
        const std::wstring before = Shown(itemKey);
        const std::size_t said = boxes.size();
        XLayout& layout = m_pages.at(page)->GetLayout();
        layout.UpdateControl(itemKey, text, nullptr, {});
        const bool accepted = Model().ValidateInputs(*m_pages.at(page), *Page(page));
        layout.UpdateControl(itemKey, before, nullptr, {});
        if (accepted || boxes.size() != said + 1) return L"(accepted)";
        const std::wstring reason = OnOneLine(boxes.back().text);
        boxes.pop_back();
        return reason;
    }
    std::wstring Tabs() {
        std::list<PageEntry> pages;
        Model().LoadPages(pages);
        std::wstring titles;
        for (const PageEntry& page : pages) {
            if (Items().count(page.number) != 0) titles += (titles.empty() ? L"`" : L", `") + page.title + L"`";
        }
        return titles;
    }
    bool Take(std::vector<std::wstring>& texts, const std::wstring& text) {
        const auto found = std::find(texts.begin(), texts.end(), text);
        if (found == texts.end()) return false;
        texts.erase(found);
        return true;
    }

    qvtest::TemporaryFolder m_folder;
    ComponentInProgram m_component;
    CWnd m_top;
    CPropertySheet m_sheet{L"", &m_top, 0};
    std::map<std::int32_t, std::unique_ptr<XDynPropertyPage>> m_pages;
};

TEST_P(DefinitionsPage, ExampleDoesWhatThePageSays) {
    ASSERT_FALSE(GetParam().claims.empty());
    Load();
    if (HasFatalFailure()) return;
    std::vector<std::wstring> said;
    for (const auto& box : boxes)
        said.push_back(OnOneLine(box.text));
    boxes.clear();
    for (const std::wstring& claim : GetParam().claims) {
        SCOPED_TRACE(qv::ToUtf8(claim));
        if (const auto shows = Match(claim, L"`*` shows `*`."); !shows.empty()) {
            EXPECT_EQ(Shown(shows[0]), shows[1]);
        } else if (const auto back = Match(claim, L"`*` goes back to `*`."); !back.empty()) {
            EXPECT_EQ(AfterDefault(back[0]), back[1]);
        } else if (const auto missing = Match(claim, L"`*` is not shown."); !missing.empty()) {
            EXPECT_EQ(Shown(missing[0]), L"(not shown)");
        } else if (const auto fixed = Match(claim, L"`*` cannot be changed."); !fixed.empty()) {
            ASSERT_NE(Row(fixed[0]), nullptr);
            EXPECT_TRUE(Row(fixed[0])->disabled);
        } else if (const auto label = Match(claim, L"`*` is labelled `*`."); !label.empty()) {
            ASSERT_NE(Row(label[0]), nullptr);
            EXPECT_EQ(Row(label[0])->prompt, label[1]);
        } else if (const auto box = Match(claim, L"A box says `*`"); !box.empty()) {
            EXPECT_TRUE(Take(said, box[0]));
        } else if (const auto typed = Match(claim, L"Typing `*` into `*` is refused with `*`."); !typed.empty()) {
            EXPECT_EQ(Refusal(typed[1], typed[0]), typed[2]);
        } else if (const auto tabs = Match(claim, L"The tabs are *."); !tabs.empty()) {
            EXPECT_EQ(Tabs(), tabs[0]);
        } else {
            ADD_FAILURE() << "a line that no rule understands";
        }
    }
    for (const std::wstring& text : said)
        ADD_FAILURE() << "a box that the page does not mention: " << qv::ToUtf8(text);
    EXPECT_TRUE(boxes.empty());
}

INSTANTIATE_TEST_SUITE_P(Reference, DefinitionsPage,
                         ::testing::ValuesIn(LoadExamples(qv::FromUtf8(QV_DEFINITIONS_PAGE))),
                         [](const auto& tested) { return "Line" + std::to_string(tested.param.line); });

}  // namespace
