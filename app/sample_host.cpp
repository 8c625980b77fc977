#include "app/sample_host.h"

#include "app/browser_reader.h"
#include "app/stored_values.h"
#include "base/text.h"
#include "host/libraries/browser_settings.h"
#include "host/services/data_files.h"
#include "host/services/dialog_service.h"
#include "host/services/host_object.h"
#include "host/services/multi_user_manager.h"

namespace qv {

namespace {

// The key that the menu command opens.
constexpr const wchar_t* kOptionKey = L"option-configuration";

std::wstring Beside(const std::wstring& file, const wchar_t* name) {
    return file.substr(0, file.find_last_of(L"\\/") + 1) + name;
}

bool Exists(const std::wstring& file) {
    return GetFileAttributesW(file.c_str()) != INVALID_FILE_ATTRIBUTES;
}

std::wstring FullPath(const std::wstring& file) {
    std::wstring path(32768, L'\0');
    const DWORD length = GetFullPathNameW(file.c_str(), static_cast<DWORD>(path.size()), path.data(), nullptr);
    path.resize(length < path.size() ? length : 0);
    return path;
}

// What this host itself answers to every reader, below what is stored: where the manuals are, and in which language.
// The manuals' folders carry the platform's language numbers.
void OfferManual(ScopeData& answers, const Options& options) {
    const std::wstring manuals = Beside(options.definitions, L"help");
    if (!Exists(manuals)) return;
    answers.Set(L"common", L"help_path", FullPath(manuals));
    answers.Set(L"common", L"languageid", EqualIgnoringCase(options.language, L"de") ? L"1031" : L"");
}

}  // namespace

// Translations and units are offered, not required: a definition file may come alone.
std::wstring SampleHost::LoadTexts(const Options& options) {
    const std::wstring translations = Beside(options.definitions, L"translations.json");
    if (!options.language.empty()) {
        if (!Exists(translations)) return translations + L" is needed for --language and is not there";
        Dictionary dictionary;
        if (std::wstring problem = LoadTranslations(translations, options.language, dictionary); !problem.empty()) {
            return problem;
        }
        SetDictionary(std::move(dictionary));
    }
    const std::wstring units = Beside(options.definitions, L"units.json");
    if (!Exists(units)) return {};
    std::unique_ptr<XUAAdmin> database;
    std::unique_ptr<XLMTranslDict> names;
    std::wstring problem = LoadUnits(units, options.language, database, names);
    if (problem.empty()) {
        SetUnitDatabase(std::move(database));
        SetUnitDictionary(std::move(names));
    }
    return problem;
}

ComPtr<IMultiUserManager> SampleHost::LoadUser(const Options& options, std::wstring& problem) {
    if (options.users.empty()) return MultiUserManager::CreateWithAllRights().Get();
    MultiUserManager::UserRights users;
    problem = LoadUsers(options.users, users);
    if (problem.empty() && users.find(options.user) == users.end()) {
        problem = options.users + L" does not list the user \"" + options.user + L"\"";
    }
    return MultiUserManager::Create(std::move(users), options.user).Get();
}

bool SampleHost::Start(const Options& options, std::wstring& problem) {
    m_data = options.data;
    problem = LoadDefinitions(options.definitions, m_definitions);
    if (problem.empty()) problem = LoadTexts(options);
    if (!problem.empty()) return false;
    const ComPtr<IMultiUserManager> user = LoadUser(options, problem);
    if (!problem.empty()) return false;

    m_sessionData = FileSessionData::Create(options.data, m_report);
    m_sessionData->Definitions() = m_definitions;
    OfferManual(m_sessionData->Definitions(), options);
    ReadBrowserSettingsFrom(m_sessionData.Get());
    m_hasBrowserSettings = XQVBrowserSettings::GetBrowserSettingsObject() != nullptr;
    const ComPtr<HostObject> host = HostObject::Create(m_sessionData.Get(), user, &DialogService::Create);
    return m_component.Connect(host.Get(), problem);
}

SampleHost::~SampleHost() {
    if (m_hasBrowserSettings) XQVBrowserSettings::ReleaseBrowserSettingsObject();
    ReadBrowserSettingsFrom(nullptr);
}

bool SampleHost::ChangeSettings(std::vector<std::wstring>& changes) {
    changes.clear();
    const StoredValues before = ReadStoredValues(m_data);
    const bool isTaken = m_component.ChangeSettings();
    m_sessionData->Fold();
    if (!isTaken) return false;
    changes = DescribeChanges(before, ReadStoredValues(m_data), m_definitions, kOptionKey);
    return true;
}

}  // namespace qv
