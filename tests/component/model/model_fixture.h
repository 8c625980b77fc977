// The settings model on an in-memory host: a definition tree, stored values, rights, and a recorder of message boxes.
// A test defines items, then asks for what became of them.
#pragma once

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "host/services/multi_user_manager.h"
#include "qvclient/qvsettingsdialog/model/construction_set.h"
#include "tests/support/memory_session_data.h"
#include "tests/support/recorders.h"

using Pairs = std::vector<std::pair<std::wstring, std::wstring>>;

// Names the rows of a table of cases by their first field.
inline constexpr auto kCaseName = [](const auto& tested) { return std::string(tested.param.name); };

class ModelTest : public ::testing::Test, protected qvtest::MessageBoxRecorder {
protected:
    static constexpr const wchar_t* kRoot = L"option-configuration";

    // itemKey: below the root, "common/recentfiles". "pagenumber" 1 and "label" are added when the attributes do not
    // have them.
    void Define(std::wstring_view itemKey, const Pairs& attributes);
    // The same with a value in the user data, and the "globaldata" that leads there. No text: nothing stored.
    void Define(std::wstring_view itemKey, const Pairs& attributes, const std::optional<std::wstring>& stored);
    void DefinePages(const Pairs& numbersAndTitles);

    // The model on what has been defined so far, made at the first call.
    XConstructionSet& Model();
    // Its pages, loaded at the first call.
    std::map<std::int32_t, PageRecord*>& Items();
    // Null when there is no such page, row or default.
    PageRecord* Page(std::int32_t number = 1);
    const qv::LayoutRows::Column* Row(std::wstring_view itemKey);
    const std::wstring* DefaultOf(std::wstring_view itemKey);

    qv::ComPtr<qv::MemorySessionData> m_session = qv::MemorySessionData::Create();
    qv::ComPtr<qv::MultiUserManager> m_rights = qv::MultiUserManager::CreateWithAllRights();
    IQVSettingsDialogDataIO* m_dataIO = nullptr;
    std::int32_t m_controlPath = SDT_machineData;
    qv::ControlFactory m_makeControl = qv::MakeSpecialControl;

private:
    const Item* Find(std::wstring_view itemKey);

    std::unique_ptr<XConstructionSet> m_model;
    std::optional<std::map<std::int32_t, PageRecord*>> m_items;
};

// The text of the only box that was shown; a failure note otherwise.
[[nodiscard]] std::wstring OnlyText(const std::vector<qv::MessageBoxCall>& boxes);

namespace qv {
void PrintTo(const MessageBoxCall& call, std::ostream* out);
}
