#include "tests/app/sample_host_fixture.h"

#include "app/sample_host.h"
#include "app/script.h"
#include "app/script_runner.h"
#include "base/text.h"
#include "framework/app.h"
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

void SampleHostTest::CopyFiles(std::string_view from, std::initializer_list<const wchar_t*> files) const {
    for (const wchar_t* file : files) {
        std::string bytes;
        ASSERT_EQ(qv::ReadWholeFile(qv::FromUtf8(from) + L"/" + file, bytes), qv::ReadResult::Done);
        folder.Write(file, bytes);
    }
}

void SampleHostTest::CopyStationFiles() const {
    CopyFiles(QV_STATION, {L"definitions.json", L"user.json", L"machine.json", L"userdb.json", L"users.json"});
}
