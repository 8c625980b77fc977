// Session data in files of a folder, as one start of the program after another finds them.
#pragma once

#include <gtest/gtest.h>

#include "host/services/file_session_data.h"
#include "host/services/whole_file.h"
#include "tests/host/session_caller.h"
#include "tests/support/temporary_folder.h"

namespace qvtest {

class SessionFiles : public testing::Test {
protected:
    using Texts = std::vector<std::wstring>;

    // A manager as a fresh start of the program would have it.
    qv::ComPtr<qv::FileSessionData> Start() { return StartIn(m_folder); }
    qv::ComPtr<qv::FileSessionData> StartIn(const TemporaryFolder& folder) {
        return qv::FileSessionData::Create(folder.Path(),
                                           [this](const std::wstring& problem) { m_problems.push_back(problem); });
    }
    std::optional<std::wstring> ReadAfresh(SESSIONDATATYPE scope, std::wstring_view key, std::wstring_view name) {
        const auto data = Start();
        return SessionCaller(*data.Get()).Read(scope, key, name);
    }
    // What somebody reads while a manager has the file open.
    static std::string Peek(const TemporaryFolder& folder, const std::wstring& name) {
        std::string bytes;
        EXPECT_EQ(qv::ReadWholeFile(folder.At(name), bytes), qv::ReadResult::Done);
        return bytes;
    }
    // The folder as it would be, had every program ended this moment without another call.
    void KillInto(const TemporaryFolder& copy) const {
        for (const std::wstring& name : m_folder.Files())
            copy.Write(name, Peek(m_folder, name));
    }

    TemporaryFolder m_folder;
    Texts m_problems;
};

}  // namespace qvtest
