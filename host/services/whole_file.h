// Whole files, read and replaced. A replacement is either there completely or not at all, also when the power fails in
// between.
#pragma once

#include <string>
#include <string_view>

namespace qv {

enum class ReadResult { Done, Missing, Failed };
// Failed: the file is there, but cannot be read now (no access, locked).
[[nodiscard]] ReadResult ReadWholeFile(const std::wstring& path, std::string& bytes);
// Writes a new file beside the old one, flushes it to the disk and puts it in the old one's place. False leaves the old
// one as it was. The folder is created where it is missing (but not its parent).
[[nodiscard]] bool ReplaceWholeFile(const std::wstring& path, std::string_view bytes);
// Renames the file to its name with ".damaged" (".damaged.2" and so on where earlier ones are kept). The new path, or
// empty when it could not be renamed.
[[nodiscard]] std::wstring SetFileAside(const std::wstring& path);

// Makes the folder that the file is to lie in, where it is missing (but not its parent). Whether it is there is told by
// the file.
void MakeFolderOf(const std::wstring& path);
// The last part of a path.
[[nodiscard]] std::wstring FileNameOf(const std::wstring& path);

}  // namespace qv
