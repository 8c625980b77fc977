// Session data kept in files of one folder, a JSON document a scope: { KEY: { NAME: TEXT } }. A file is replaced as a
// whole with every save, so that a crash leaves the old or the new one. A damaged file is kept aside and reported; its
// scope goes on with what could be read of it. Scopes without a file (volatile and user-specific data) live in memory.
#pragma once

#include <functional>

#include "base/com.h"
#include "host/services/session_data_base.h"

namespace qv {

class FileSessionData final : public SessionDataBase {
public:
    // Told of every file that could not be used as it was, in one sentence. Empty: nobody is told.
    using ProblemReport = std::function<void(const std::wstring&)>;

    // folder: created with the first save. Nothing is read before it is asked for.
    [[nodiscard]] static ComPtr<FileSessionData> Create(std::wstring folder, ProblemReport report);

protected:
    ScopeData& Scope(SESSIONDATATYPE scope) override;
    // Values that were written and not saved stay as they were written. Never fails: a scope that cannot be read is
    // reported, and cannot be saved until it can be read.
    HRESULT Load(SESSIONDATATYPE scope) override;
    HRESULT Save(SESSIONDATATYPE scope, std::wstring_view key, std::wstring_view name) override;

private:
    FileSessionData(std::wstring folder, ProblemReport report)
        : m_folder(std::move(folder)), m_report(std::move(report)) {}

    struct ScopeFile {
        ScopeData current;  // what readers see
        ScopeData saved;    // what the file holds
        bool isLoaded = false;
        bool isReadable = true;
    };
    // The scope's file, or an empty path for a scope without one.
    [[nodiscard]] std::wstring PathOf(SESSIONDATATYPE scope) const;
    // What the file holds; false when that cannot be told.
    bool ReadFile(const std::wstring& path, ScopeData& data);
    void Report(const std::wstring& problem) const {
        if (m_report) m_report(problem);
    }

    std::wstring m_folder;
    ProblemReport m_report;
    std::map<SESSIONDATATYPE, ScopeFile> m_files;
};

}  // namespace qv
