// The sample host put together: definitions, stored values, users, units and translations from files, the host object
// that hands them out, and the settings component connected to it.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "app/component.h"
#include "app/options.h"
#include "host/interfaces/multi_user.h"
#include "host/services/file_session_data.h"
#include "host/services/scope_data.h"

namespace qv {

class SampleHost {
public:
    // report: told of every data file that could not be used as it was.
    explicit SampleHost(std::function<void(const std::wstring&)> report) : m_report(std::move(report)) {}
    ~SampleHost();
    SampleHost(const SampleHost&) = delete;
    SampleHost& operator=(const SampleHost&) = delete;

    // False with one line that says what is wrong.
    [[nodiscard]] bool Start(const Options& options, std::wstring& problem);
    // Shows the dialog. changes: the values that became others in the files of the data folder, one line each: scope,
    // key/name = text. False, with no changes, when the component does not take the command.
    [[nodiscard]] bool ChangeSettings(std::vector<std::wstring>& changes);

private:
    [[nodiscard]] std::wstring LoadTexts(const Options& options);
    [[nodiscard]] ComPtr<IMultiUserManager> LoadUser(const Options& options, std::wstring& problem);

    std::function<void(const std::wstring&)> m_report;
    std::wstring m_data;
    ComPtr<FileSessionData> m_sessionData;
    bool m_hasBrowserSettings = false;
    ScopeData m_definitions;
    SettingsComponent m_component;
};

}  // namespace qv
