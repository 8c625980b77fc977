// A folder of its own for a test that works with files, deleted with what lies in it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace qvtest {

class TemporaryFolder {
public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    [[nodiscard]] const std::wstring& Path() const { return m_path; }
    [[nodiscard]] std::wstring At(const std::wstring& name) const { return m_path + L"/" + name; }
    void Write(const std::wstring& name, std::string_view bytes) const;
    // Empty when there is no such file.
    [[nodiscard]] std::string Read(const std::wstring& name) const;
    // Names of the files in it, sorted.
    [[nodiscard]] std::vector<std::wstring> Files() const;

private:
    std::wstring m_path;
};

}  // namespace qvtest
