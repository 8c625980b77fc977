#include "qvclient/qvsettingsdialog/dialogs/settings_manual.h"

#include <gtest/gtest.h>

#include "host/services/memory_session_data.h"

namespace {

TEST(SettingsManual, PathIsBuiltFromHelpPathAndLanguage) {
    struct Case {
        const char* name;
        const wchar_t* helpPath;  // null: not stored
        const wchar_t* language;
        const wchar_t* expected;  // null: no manual
    };
    const Case cases[] = {
        {"both", L"C:\\Help", L"1031", L"C:\\Help\\1031\\Settingsmanual.pdf"},
        {"empty language falls back", L"C:\\Help", L"", L"C:\\Help\\1033\\Settingsmanual.pdf"},
        {"no language at all does not", L"C:\\Help", nullptr, L"C:\\Help\\\\Settingsmanual.pdf"},
        {"empty help path", L"", L"1031", L"\\1031\\Settingsmanual.pdf"},
        {"no help path", nullptr, L"1031", nullptr},
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(each.name);
        const auto session = qv::MemorySessionData::Create();
        if (each.helpPath != nullptr) session->Put(SDT_machineData, L"common", L"help_path", each.helpPath);
        if (each.language != nullptr) session->Put(SDT_userData, L"common", L"languageid", each.language);
        const std::optional<std::wstring> path = SettingsManualPath(*session.Get());
        ASSERT_EQ(path.has_value(), each.expected != nullptr);
        if (path) {
            EXPECT_EQ(*path, each.expected);
        }
        // Hosts tell the two spellings of the key apart by what they store where.
        EXPECT_EQ(session->Calls()[0].key, L"Common");
    }
}

// A session that says no to the help path, with or without a value in its hand.
class UnwillingSession final : public qv::SessionDataBase {
public:
    explicit UnwillingSession(const wchar_t* delivered) : m_delivered(delivered) {}
    HRESULT STDMETHODCALLTYPE ReadData(BSTR, BSTR valueName, USHORT, VARIANT* value, SESSIONDATATYPE) override {
        VariantInit(value);
        if (m_delivered != nullptr && qv::TextOf(valueName) == L"help_path") {
            value->vt = VT_BSTR;
            value->bstrVal = SysAllocString(m_delivered);
        }
        return E_FAIL;
    }

private:
    const wchar_t* m_delivered;
};

// Deliberate: what counts for the path is whether there is one, not what the read answered.
TEST(SettingsManual, AFailedReadCountsByWhatItDelivers) {
    const qv::ComPtr<ISessionDataManager> delivers(new UnwillingSession(L"D:\\Manuals"));
    EXPECT_EQ(SettingsManualPath(*delivers.Get()), L"D:\\Manuals\\\\Settingsmanual.pdf");
    const qv::ComPtr<ISessionDataManager> deliversEmptyText(new UnwillingSession(L""));
    EXPECT_EQ(SettingsManualPath(*deliversEmptyText.Get()), L"\\\\Settingsmanual.pdf");
    const qv::ComPtr<ISessionDataManager> deliversNothing(new UnwillingSession(nullptr));
    EXPECT_EQ(SettingsManualPath(*deliversNothing.Get()), std::nullopt);
}

}  // namespace
