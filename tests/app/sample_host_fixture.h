// The sample host in the test's process: files in a folder of their own, the component loaded from its library, and a
// script that drives the dialog as a person would. Every run starts from what the runs before have stored.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "app/main_window.h"
#include "app/options.h"
#include "base/module_state.h"
#include "tests/support/recorders.h"
#include "tests/support/temporary_folder.h"

class SampleHostTest : public testing::Test {
protected:
    using Lines = std::vector<std::wstring>;

    SampleHostTest();
    ~SampleHostTest() override;

    // Opens the dialog and carries the script out. Afterwards the fields below tell what came of it.
    void Run(std::string_view script);
    // What lies in a scope's file: "user", "machine", "userdb" or "global"; "(none)" when nothing does.
    [[nodiscard]] std::wstring Stored(const std::wstring& scope, std::string_view key, std::string_view name) const;
    // The dialog as a "dump" action of the script wrote it; DumpAction is that line.
    [[nodiscard]] std::string DumpAction() const;
    [[nodiscard]] nlohmann::json Dump() const;
    // An item's row in the dump; null when it is not there.
    [[nodiscard]] nlohmann::json Row(std::string_view item) const;
    // Four pages of items in all four scopes, and values for some of them.
    void CopyStationFiles() const;
    // Into the folder of this test.
    void CopyFiles(std::string_view from, std::initializer_list<const wchar_t*> files) const;

    qvtest::TemporaryFolder folder;
    qv::Options options;
    std::wstring problem;          // empty: every action was carried out and the dialog ended
    Lines told;                    // message boxes and pickers, as the program prints them
    std::function<void()> onTold;  // called inside each of these boxes and pickers
    Lines changes;                 // stored values that became others
    std::wstring browserUser;      // the user's name in the browser settings after the dialog

private:
    ModuleState m_moduleState{GetModuleHandleW(nullptr)};
    qvtest::ScopedNumberLocale m_locale{{}};
    qvtest::ScopedDictionary m_dictionary{{}};
    qv::MainWindow m_window;
};
