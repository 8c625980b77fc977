#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "platform/headless/base/encoding.h"
#include "platform/headless/base/file_times.h"
#include "platform/headless/base/files.h"
#include "platform/headless/base/paths.h"

namespace {

using qv::headless::CompareIgnoringCase;
using qv::headless::FromUtf8;
using qv::headless::NativePath;

struct Search {
    std::vector<WIN32_FIND_DATAW> found;
    std::size_t next = 0;
};

struct Searches {
    std::mutex mutex;
    std::map<HANDLE, std::unique_ptr<Search>> open;
};

Searches& Table() {
    static Searches s_searches;
    return s_searches;
}

// * stands for any units, ? for one or, at the end, for none. Without regard to case.
bool Matches(std::wstring_view name, std::wstring_view pattern) {
    if (pattern.empty()) return name.empty();
    if (pattern.front() == L'*') {
        for (std::size_t skipped = 0; skipped <= name.size(); ++skipped) {
            if (Matches(name.substr(skipped), pattern.substr(1))) return true;
        }
        return false;
    }
    if (name.empty()) return pattern.front() == L'?' && Matches(name, pattern.substr(1));
    const bool same =
        pattern.front() == L'?' || qv::headless::UpperOf(pattern.front()) == qv::headless::UpperOf(name.front());
    return same && Matches(name.substr(1), pattern.substr(1));
}

bool MatchesPattern(const std::wstring& name, std::wstring pattern) {
    // The dot of "*.*" is no dot: names without one are found too. "*." finds only those.
    if (pattern.ends_with(L"*.*")) pattern.erase(pattern.size() - 2);
    if (pattern.ends_with(L"*.")) {
        return name.find(L'.') == std::wstring::npos && Matches(name, pattern.substr(0, pattern.size() - 1));
    }
    return Matches(name, pattern);
}

WIN32_FIND_DATAW Describe(const std::wstring& name, const struct stat& status) {
    WIN32_FIND_DATAW data{};
    data.dwFileAttributes = qv::headless::AttributesOf(status);
    data.ftCreationTime = qv::headless::FileTimeOf(status.st_ctim);
    data.ftLastAccessTime = qv::headless::FileTimeOf(status.st_atim);
    data.ftLastWriteTime = qv::headless::FileTimeOf(status.st_mtim);
    const auto size = S_ISDIR(status.st_mode) ? 0 : static_cast<ULONGLONG>(status.st_size);
    data.nFileSizeHigh = static_cast<DWORD>(size >> 32);
    data.nFileSizeLow = static_cast<DWORD>(size & 0xFFFFFFFF);
    std::copy_n(name.c_str(), std::min<std::size_t>(name.size(), MAX_PATH - 1), data.cFileName);
    return data;
}

HANDLE Fail(LONG code) {
    SetLastError(static_cast<DWORD>(code));
    return INVALID_HANDLE_VALUE;
}

bool List(const std::string& folder, const std::wstring& pattern, std::vector<WIN32_FIND_DATAW>& found) {
    DIR* directory = ::opendir(folder.c_str());
    if (directory == nullptr) return false;
    const bool isRoot = folder.find_first_not_of('/') == std::string::npos;
    while (const dirent* entry = ::readdir(directory)) {
        const std::string bytes = entry->d_name;
        const std::wstring name = FromUtf8(bytes);
        // A root has no entries for itself and its parent.
        if (isRoot && (bytes == "." || bytes == "..")) continue;
        struct stat status {};
        std::string path = folder;
        path.append("/").append(bytes);
        if (::stat(path.c_str(), &status) != 0) continue;
        if (MatchesPattern(name, pattern)) found.push_back(Describe(name, status));
    }
    ::closedir(directory);
    // In the order in which the platform's own file system answers: by name, the two dotted entries first.
    std::sort(found.begin(), found.end(), [](const WIN32_FIND_DATAW& a, const WIN32_FIND_DATAW& b) {
        const auto rank = [](std::wstring_view name) { return name == L"." ? 0 : name == L".." ? 1 : 2; };
        const int first = rank(a.cFileName);
        const int second = rank(b.cFileName);
        return first != second ? first < second : CompareIgnoringCase(a.cFileName, b.cFileName) < 0;
    });
    return true;
}

}  // namespace

HANDLE FindFirstFileW(LPCWSTR pattern, WIN32_FIND_DATAW* data) {
    if (pattern == nullptr || *pattern == 0) return Fail(ERROR_PATH_NOT_FOUND);
    if (data == nullptr) return Fail(ERROR_INVALID_PARAMETER);
    const auto native = NativePath(pattern, true);
    if (!native) return INVALID_HANDLE_VALUE;
    const auto split = native->find_last_of('/') + 1;
    const std::string folder = split == 0 ? std::string(".") : native->substr(0, split);
    const std::wstring last = FromUtf8(native->substr(split));
    struct stat status {};
    if (::stat(folder.c_str(), &status) != 0 && errno != ENOTDIR) return Fail(ERROR_PATH_NOT_FOUND);
    auto search = std::make_unique<Search>();
    if (last.find_first_of(L"*?") == std::wstring::npos) {
        if (last.empty()) return Fail(ERROR_FILE_NOT_FOUND);
        // A plain name is the file system's own to find.
        if (::stat(native->c_str(), &status) != 0) {
            return Fail(errno == ENOTDIR ? ERROR_DIRECTORY : ERROR_FILE_NOT_FOUND);
        }
        search->found.push_back(Describe(last, status));
    } else if (!List(folder, last, search->found)) {
        return Fail(errno == ENOTDIR ? ERROR_DIRECTORY : qv::headless::ErrorFromErrno(errno, folder));
    }
    if (search->found.empty()) return Fail(ERROR_FILE_NOT_FOUND);
    *data = search->found[search->next++];
    const HANDLE handle = search.get();
    const std::lock_guard lock(Table().mutex);
    Table().open.emplace(handle, std::move(search));
    return handle;
}

BOOL FindNextFileW(HANDLE handle, WIN32_FIND_DATAW* data) {
    const std::lock_guard lock(Table().mutex);
    const auto found = Table().open.find(handle);
    if (found == Table().open.end() || data == nullptr) {
        SetLastError(ERROR_INVALID_HANDLE);
        return FALSE;
    }
    auto& search = *found->second;
    if (search.next == search.found.size()) {
        SetLastError(ERROR_NO_MORE_FILES);
        return FALSE;
    }
    *data = search.found[search.next++];
    return TRUE;
}

BOOL FindClose(HANDLE handle) {
    const std::lock_guard lock(Table().mutex);
    if (Table().open.erase(handle) != 0) return TRUE;
    SetLastError(ERROR_INVALID_HANDLE);
    return FALSE;
}
