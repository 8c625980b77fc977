#include "qvclient/qvsettingsdialog/dialogs/settings_manual.h"

#include <gtest/gtest.h>

#include "tests/support/memory_session_data.h"

namespace {

TEST(SettingsManual, PathIsBuiltFromHelpPathAndLanguage) {
    const struct {
        const char* name;
        const wchar_t* helpPath;  // null: not stored
        const wchar_t* language;
        const wchar_t* expected;  // null: no manual
    } cases[] = {
        {"both", L"C:\\Help", L"1031", L"C:\\Help\\1031\\Settingsmanual.pdf"},
        {"empty language falls back", L"C:\\Help", L"", L"C:\\Help\\1033\\Settingsmanual.pdf"},
        {"no language at all does not", L"C:\\Help", nullptr, L"C:\\Help\\\\Settingsmanual.pdf"},
        {"empty help path", L"", L"1031", L"\\1031\\Settingsmanual.pdf"},
        {"no help path", nullptr, L"1031", nullptr},
    };
    for (const auto& each : cases) {
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

// What a session leaves in the value and answers, for one value name; the others are not there. The text stays its own.
class OddSession final : public qv::SessionDataBase {
public:
    struct Answer {
        HRESULT status;
        VARTYPE type;
        BSTR text;
    };
    OddSession(std::wstring name, Answer answer) : m_name(std::move(name)), m_answer(answer) {}
    HRESULT STDMETHODCALLTYPE ReadData(BSTR, BSTR valueName, USHORT, VARIANT* value, SESSIONDATATYPE) override {
        if (qv::TextOf(valueName) == L"help_path" && m_name != L"help_path") {
            value->vt = VT_BSTR;
            value->bstrVal = SysAllocString(L"H");
            return S_OK;
        }
        if (qv::TextOf(valueName) != m_name) return E_FAIL;
        value->vt = m_answer.type;
        value->bstrVal = m_answer.text;
        return m_answer.status;
    }

private:
    std::wstring m_name;
    Answer m_answer;
};

// Deliberate: what counts for the path is whether there is a text, not what the read answered. What a failed read
// leaves may lead anywhere, and is nobody's to free.
TEST(SettingsManual, AFailedReadOfTheHelpPathCountsByWhatItLeaves) {
    const qv::Bstr manuals(L"D:\\Manuals");
    const qv::Bstr empty(L"");
    const qv::Bstr tooLong(std::wstring(40000, L'x'));
    const auto poison = reinterpret_cast<BSTR>(std::uintptr_t{0xDDDDDDDDDDDDDDDD});
    const struct {
        const char* name;
        OddSession::Answer answer;
        std::optional<std::wstring> expected;
    } cases[] = {
        {"a text", {E_FAIL, VT_BSTR, manuals.Get()}, L"D:\\Manuals\\\\Settingsmanual.pdf"},
        {"a text and S_FALSE", {S_FALSE, VT_BSTR, manuals.Get()}, L"D:\\Manuals\\\\Settingsmanual.pdf"},
        {"an empty text", {E_FAIL, VT_BSTR, empty.Get()}, L"\\\\Settingsmanual.pdf"},
        {"no text", {E_FAIL, VT_BSTR, nullptr}, std::nullopt},
        {"nothing", {E_FAIL, VT_EMPTY, nullptr}, std::nullopt},
        {"a pointer that leads nowhere", {E_FAIL, VT_BSTR, poison}, std::nullopt},
        {"a small number for a pointer", {E_FAIL, VT_BSTR, reinterpret_cast<BSTR>(std::uintptr_t{2})}, std::nullopt},
        {"another type", {E_FAIL, VT_UNKNOWN, poison}, std::nullopt},
        {"no type at all", {E_FAIL, 0xDDDD, poison}, std::nullopt},
        {"no path", {E_FAIL, VT_BSTR, tooLong.Get()}, std::nullopt},
        {"success without a text", {S_OK, VT_I4, nullptr}, std::nullopt},
        {"success with a null text", {S_OK, VT_BSTR, nullptr}, L"\\\\Settingsmanual.pdf"},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        const qv::ComPtr<ISessionDataManager> session(new OddSession(L"help_path", each.answer));
        EXPECT_EQ(SettingsManualPath(*session.Get()), each.expected);
    }
    EXPECT_EQ(qv::TextOf(manuals.Get()), L"D:\\Manuals");
}

// The fallback language is for an empty text only, not for what is no text.
TEST(SettingsManual, ALanguageThatIsNoTextIsNone) {
    const auto poison = reinterpret_cast<BSTR>(std::uintptr_t{0xDDDDDDDDDDDDDDDD});
    for (const OddSession::Answer& answer :
         {OddSession::Answer{S_OK, VT_I4, nullptr}, OddSession::Answer{E_FAIL, VT_BSTR, poison},
          OddSession::Answer{S_FALSE, VT_BSTR, poison}}) {
        const qv::ComPtr<ISessionDataManager> session(new OddSession(L"languageid", answer));
        EXPECT_EQ(SettingsManualPath(*session.Get()), L"H\\\\Settingsmanual.pdf");
    }
    const qv::ComPtr<ISessionDataManager> nullText(new OddSession(L"languageid", {S_OK, VT_BSTR, nullptr}));
    EXPECT_EQ(SettingsManualPath(*nullText.Get()), L"H\\1033\\Settingsmanual.pdf");
}

}  // namespace
