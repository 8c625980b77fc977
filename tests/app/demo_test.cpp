// The definition file that is shipped: every page of it, in both languages, with the host's services behind it.
#include "framework/text.h"
#include "host/libraries/browser_settings.h"
#include "host/libraries/translation.h"
#include "host/services/whole_file.h"
#include "tests/app/sample_host_fixture.h"

namespace {

class Demo : public SampleHostTest {
protected:
    Demo() { options.definitions = qv::FromUtf8(QV_DEMO) + L"/definitions.json"; }
    void SetUp() override {
        for (const wchar_t* file : {L"user.json", L"machine.json", L"userdb.json", L"global.json"}) {
            std::string bytes;
            ASSERT_EQ(qv::ReadWholeFile(qv::FromUtf8(QV_DEMO) + L"/data/" + file, bytes), qv::ReadResult::Done);
            folder.Write(file, bytes);
        }
    }
    // The dialog as it opens.
    nlohmann::json Shown() {
        Run(DumpAction() + "press cancel");
        return Dump();
    }
};

TEST_F(Demo, EveryItemGetsItsRowAndItsControl) {
    const auto dump = Shown();
    EXPECT_EQ(problem, L"");
    ASSERT_EQ(dump["pages"].size(), 8u);
    std::size_t rows = 0;
    for (const auto& page : dump["pages"]) {
        for (const auto& row : page["rows"]) {
            EXPECT_NE(row["kind"], "missing") << row["item"];
            ++rows;
        }
    }
    EXPECT_GE(rows, 60u);
    // Out-of-range values lie in the demo's data on purpose; each is told once.
    EXPECT_FALSE(told.empty());
}

TEST_F(Demo, GermanTextsReachTabsPromptsButtonsAndManual) {
    options.language = L"de";
    const auto dump = Shown();
    EXPECT_EQ(problem, L"");
    EXPECT_EQ(dump["pages"][0]["title"], "Allgemein");
    EXPECT_EQ(dump["buttons"]["cancel"]["text"], "Abbrechen");
    const auto english = [&] {
        options.language.clear();
        qv::SetDictionary({});
        return Shown();
    }();
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
