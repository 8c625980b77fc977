#include "tests/app/sample_host_fixture.h"

#include "app/sample_host.h"
#include "app/script.h"
#include "app/script_runner.h"
#include "framework/app.h"
#include "framework/text.h"
#include "host/libraries/browser_settings.h"
#include "host/services/whole_file.h"

SampleHostTest::SampleHostTest() : m_window([] {}) {
    EXPECT_TRUE(SUCCEEDED(OleInitialize(nullptr)));
    SetProcessModuleState(m_moduleState);
    EXPECT_TRUE(m_window.CreateMain(L"Sample host"));
    m_window.ShowWindow(SW_SHOW);
    SetMainWnd(&m_window);
    options.definitions = folder.At(L"definitions.json");
    options.data = folder.Path();
}

SampleHostTest::~SampleHostTest() {
    SetMainWnd(nullptr);
    m_window.DestroyWindow();
    PumpPending();
    // Destroying the main window ended the loop that there was none of.
    MSG quit{};
    PeekMessageW(&quit, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE);
    OleUninitialize();
}

void SampleHostTest::Run(std::string_view script) {
    told.clear();
    changes.clear();
    problem.clear();
    std::vector<qv::ScriptAction> actions;
    if (!qv::ParseScript(qv::FromUtf8(script), actions, problem)) return;
    qv::SampleHost host([this](const std::wstring& line) { told.push_back(line); });
    if (!host.Start(options, problem)) return;
    qv::ScriptRunner runner(std::move(actions), [this](std::wstring_view line) {
        told.emplace_back(line);
        if (onTold) onTold();
    });
    runner.Start();
    EXPECT_TRUE(host.ChangeSettings(changes));
    if (const XQVBrowserSettings* settings = XQVBrowserSettings::GetBrowserSettingsObject()) {
        browserUser = settings->m_texts[0];
        XQVBrowserSettings::ReleaseBrowserSettingsObject();
    }
    runner.DialogEnded();
    problem = runner.Problem();
}

std::wstring SampleHostTest::Stored(const std::wstring& scope, std::string_view key, std::string_view name) const {
    const auto document = nlohmann::json::parse(folder.Read(scope + L".json"), nullptr, false);
    const std::string pointer = "/" + std::string(key) + "/" + std::string(name);
    const auto* const text = document.is_object() && document.contains(nlohmann::json::json_pointer(pointer))
                                 ? &document.at(nlohmann::json::json_pointer(pointer))
                                 : nullptr;
    return text != nullptr ? qv::FromUtf8(text->get<std::string>()) : L"(none)";
}

std::string SampleHostTest::DumpAction() const {
    return "dump " + qv::ToUtf8(folder.At(L"dump.json")) + "\n";
}

nlohmann::json SampleHostTest::Dump() const {
    std::string bytes;
    EXPECT_EQ(qv::ReadWholeFile(folder.At(L"dump.json"), bytes), qv::ReadResult::Done);
    return nlohmann::json::parse(bytes, nullptr, false);
}

nlohmann::json SampleHostTest::Row(std::string_view item) const {
    const nlohmann::json dump = Dump();
    if (!dump.is_object()) return nullptr;
    for (const auto& page : dump["pages"]) {
        for (const auto& row : page["rows"]) {
            if (row["item"] == item) return row;
        }
    }
    return nullptr;
}

void SampleHostTest::WriteStationFiles() const {
    folder.Write(L"definitions.json", R"({ "option-configuration": {
  "pages": { "1": "Person", "2": "Station", "3": "Team", "4": "Network" },
  "person": {
    "name":   { "type": 3, "label": "&Name", "pagenumber": 1, "ordernumber": 1, "globaldata": 0, "functiongroup": 0 },
    "recent": { "type": 1, "label": "&Recent", "pagenumber": 1, "ordernumber": 2, "globaldata": 0, "functiongroup": 0,
                "default": 4, "lowerbound": 0, "upperbound": 20 },
    "width":  { "type": 2, "label": "&Width", "pagenumber": 1, "ordernumber": 3, "globaldata": 0, "functiongroup": 0,
                "default": 1.5, "lowerbound": 0.5, "upperbound": 9 },
    "note":   { "type": 10, "label": "N&ote", "pagenumber": 1, "ordernumber": 4, "globaldata": 0, "functiongroup": 0 }
  },
  "station": {
    "mount":  { "type": 4, "label": "&Mount", "pagenumber": 2, "ordernumber": 1, "globaldata": 1, "functiongroup": 1,
                "default": "mast", "value1": "mast|A mast", "value2": "roof|A flat roof", "value3": "2,5|Two, five" },
    "height": { "type": 2, "label": "&Height", "pagenumber": 2, "ordernumber": 2, "globaldata": 1, "functiongroup": 1,
                "default": 10, "lowerbound": 0, "upperbound": 100 },
    "odd":    { "type": 1, "label": "O&dd", "pagenumber": 2, "ordernumber": 3, "globaldata": 1, "functiongroup": 1,
                "default": 3 }
  },
  "team": {
    "motto":  { "type": 3, "label": "M&otto", "pagenumber": 3, "ordernumber": 1, "globaldata": 2, "functiongroup": 2,
                "default": "" },
    "open":   { "type": 0, "label": "Op&en", "pagenumber": 3, "ordernumber": 2, "globaldata": 2, "functiongroup": 2,
                "default": 1 }
  },
  "network": {
    "server": { "type": 3, "label": "Ser&ver", "pagenumber": 4, "ordernumber": 1, "globaldata": 3, "functiongroup": 3,
                "default": "collect.example.org" },
    "port":   { "type": 1, "label": "&Port", "pagenumber": 4, "ordernumber": 2, "globaldata": 3, "functiongroup": 3,
                "default": 443, "lowerbound": 1, "upperbound": 65535 }
  } } })");
    folder.Write(L"user.json", R"({ "person": { "name": "Mira, 2,5", "recent": "7", "width": "2.25" } })");
    folder.Write(L"machine.json", R"({ "station": { "mount": "roof", "odd": "two" } })");
    folder.Write(L"userdb.json", R"({ "team": { "motto": "Rain, again" } })");
    folder.Write(L"users.json", R"({ "users": {
  "keeper": { "rights": [ "Change settings/User data", "Change settings/Machine data",
                          "Change settings/User DB data", "Change settings/Global data" ] },
  "observer": { "rights": [ "Change settings/User data", "Change settings/User DB data" ] } } })");
}
