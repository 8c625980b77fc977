// The definition file that is shipped: every page of it, in both languages, with the host's services behind it.
#include <set>

#include "base/text.h"
#include "host/libraries/browser_settings.h"
#include "host/services/data_files.h"
#include "tests/app/sample_host_fixture.h"

namespace {

class Demo : public SampleHostTest {
protected:
    Demo() { options.definitions = qv::FromUtf8(QV_DEMO) + L"/definitions.json"; }
    void SetUp() override {
        CopyFiles(QV_DEMO "/data", {L"user.json", L"machine.json", L"userdb.json", L"global.json"});
    }
    // The dialog as it opens.
    nlohmann::json Shown() {
        Run(DumpAction() + "press cancel");
        return Dump();
    }
};

TEST_F(Demo, EveryPageAndItemOfTheFileIsShown) {
    const std::wstring root = L"option-configuration/";
    qv::ScopeData definitions;
    ASSERT_EQ(qv::LoadDefinitions(options.definitions, definitions), L"");
    std::set<std::string> defined;
    for (const auto& key : definitions.Keys()) {
        if (definitions.Find(key.path, L"type") != nullptr) defined.insert(qv::ToUtf8(key.path.substr(root.size())));
    }
    const auto dump = Shown();
    EXPECT_EQ(problem, L"");
    EXPECT_EQ(dump["pages"].size(), definitions.FindKey(root + L"pages")->values.size());
    std::set<std::string> shown;
    for (const auto& page : dump["pages"]) {
        for (const auto& row : page["rows"]) {
            EXPECT_NE(row["kind"], "missing") << row["item"];
            shown.insert(row["item"]);
        }
    }
    EXPECT_EQ(shown, defined);
    EXPECT_FALSE(told.empty()) << "values that lie out of range on purpose";
}

TEST_F(Demo, GermanTextsReachTabsPromptsButtonsAndManual) {
    options.language = L"de";
    const auto dump = Shown();
    EXPECT_EQ(problem, L"");
    EXPECT_EQ(dump["pages"][0]["title"], "Allgemein");
    EXPECT_EQ(dump["buttons"]["cancel"]["text"], "Abbrechen");
    options.language.clear();
    qv::SetDictionary({});
    const auto english = Shown();
    for (std::size_t page = 0; page < dump["pages"].size(); ++page) {
        EXPECT_NE(dump["pages"][page]["rows"][0]["prompt"], english["pages"][page]["rows"][0]["prompt"]) << page;
    }
}

TEST_F(Demo, BrowserSettingsAreReadAgainAfterTheDialog) {
    // The folder that the demo starts with is not on every machine.
    Run("set export/folder " + qv::ToUtf8(folder.Path()) + "\nset common/username Noor\npress ok");
    EXPECT_EQ(problem, L"");
    EXPECT_EQ(browserUser, L"Noor") << testing::PrintToString(told);
    EXPECT_EQ(XQVBrowserSettings::GetBrowserSettingsObject(), nullptr) << "they go with the host";
}

}  // namespace
