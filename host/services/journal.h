// What was saved since a file was last replaced: a second file beside it to which each saved value is appended. Saving
// costs one short write, whatever the file holds already. What was appended outlives the program at any moment, as the
// system has it then; it is not flushed, so a power cut may take the last of it.
//
// A line a record, the last of several for one value counts, so that reading a journal twice changes nothing:
//
//     CHECKSUM ["KEY","NAME","TEXT"]
//
// CHECKSUM is the 64-bit FNV-1a of what stands between the blank and the line break, in 16 hexadecimal digits; the
// array is JSON in UTF-8. Bytes after the last line break are a record that was cut off while it was written, and never
// were saved. A line that is not as its checksum says is damaged; the others, which do not depend on it, are still
// good.
//
// Only the object that started a journal appends to it: programs that share a folder have one each, FILE.journal,
// FILE.journal.2 and so on. One that nobody has open was left by a program that ended early, and can be claimed.
#pragma once

#include "host/services/open_file.h"
#include "host/services/scope_data.h"

namespace qv {

class Journal {
public:
    struct Contents {
        bool isRead = false;
        bool isDamaged = false;  // at least one record is
        std::size_t records = 0;
    };

    // Paths of the journals that lie beside the file, in the order of their numbers.
    [[nodiscard]] static std::vector<std::wstring> Beside(const std::wstring& file);
    // Somebody else's, to look at only: applies its records.
    static Contents Peek(const std::wstring& path, ScopeData& data);

    Journal() = default;
    // A new one, under the first free name. Not open when that fails.
    [[nodiscard]] static Journal Start(const std::wstring& file);
    // One that was left behind, kept from all others as long as it is open. Not open while somebody else has it.
    [[nodiscard]] static Journal Claim(const std::wstring& path);

    [[nodiscard]] bool IsOpen() const { return m_file.IsOpen(); }
    [[nodiscard]] const std::wstring& Path() const { return m_path; }
    // True when the record is there completely; otherwise the journal is as it was. Only after Start.
    [[nodiscard]] bool Append(std::wstring_view key, std::wstring_view name, std::wstring_view text);
    // Sets every value that it has a record of.
    Contents Apply(ScopeData& data);
    // Both close it. Of a file that cannot be deleted, because somebody looks at it, an empty one is left.
    void Remove();
    // The new path as SetFileAside has it.
    [[nodiscard]] std::wstring SetAside();

private:
    Journal(std::wstring path, OpenFile file) : m_path(std::move(path)), m_file(std::move(file)) {}

    std::wstring m_path;
    OpenFile m_file;
    std::uint64_t m_size = 0;  // of the records that Append wrote
    bool m_isAtEnd = true;     // the file ends and stands at m_size
};

}  // namespace qv
