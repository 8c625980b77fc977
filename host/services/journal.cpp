#include "host/services/journal.h"

#include <algorithm>

#include "base/text.h"
#include "host/services/json_text.h"
#include "host/services/whole_file.h"

namespace qv {

namespace {

constexpr int kMostJournals = 1000;
constexpr std::size_t kChecksumDigits = 16;

std::wstring NumberedPath(const std::wstring& file, int number) {
    return file + L".journal" + (number == 1 ? L"" : L"." + std::to_wstring(number));
}

std::string Checksum(std::string_view bytes) {
    std::uint64_t sum = 0xCBF29CE484222325;
    for (const char byte : bytes)
        sum = (sum ^ static_cast<unsigned char>(byte)) * 0x100000001B3;
    std::string digits(kChecksumDigits, '0');
    for (std::size_t i = kChecksumDigits; sum != 0; sum >>= 4)
        digits[--i] = "0123456789abcdef"[sum & 15];
    return digits;
}

std::string FormatRecord(std::wstring_view key, std::wstring_view name, std::wstring_view text) {
    JsonNode record;
    record.kind = JsonNode::Kind::Array;
    for (const std::wstring_view part : {key, name, text})
        record.children.push_back({JsonNode::Kind::Text, {}, std::wstring(part), {}});
    const std::string json = FormatJsonLine(record);
    return Checksum(json) + ' ' + json + '\n';
}

// False when the line is damaged.
bool ApplyRecord(std::string_view line, ScopeData& data) {
    if (line.size() <= kChecksumDigits || line[kChecksumDigits] != ' ') return false;
    const std::string_view json = line.substr(kChecksumDigits + 1);
    if (line.substr(0, kChecksumDigits) != Checksum(json)) return false;
    JsonNode record;
    std::wstring problem;
    if (!ParseJson(json, record, problem) || record.kind != JsonNode::Kind::Array || record.children.size() != 3) {
        return false;
    }
    const auto& parts = record.children;
    const auto isText = [](const JsonNode& part) { return part.kind == JsonNode::Kind::Text; };
    if (!std::all_of(parts.begin(), parts.end(), isText)) return false;
    data.Set(parts[0].text, parts[1].text, parts[2].text);
    return true;
}

Journal::Contents ApplyRecords(std::string_view bytes, ScopeData& data) {
    Journal::Contents contents;
    contents.isRead = true;
    for (auto end = bytes.find('\n'); end != std::string_view::npos; end = bytes.find('\n')) {
        if (ApplyRecord(bytes.substr(0, end), data)) {
            ++contents.records;
        } else {
            contents.isDamaged = true;
        }
        bytes.remove_prefix(end + 1);
    }
    return contents;
}

}  // namespace

std::vector<std::wstring> Journal::Beside(const std::wstring& file) {
    std::vector<int> numbers;
    WIN32_FIND_DATAW found{};
    const HANDLE search = ::FindFirstFileW((file + L".journal*").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return {};
    const std::size_t stem = FileNameOf(file).size();
    do {
        // Others have names of the same beginning: a damaged one that is kept.
        const std::wstring name = found.cFileName;
        const std::wstring ending = name.substr(std::min(stem, name.size()));
        const int number = std::max(1, LeadingInteger(ending.substr(ending.rfind(L'.') + 1)));
        if (ending == NumberedPath({}, number)) numbers.push_back(number);
    } while (::FindNextFileW(search, &found) != FALSE);
    ::FindClose(search);
    std::sort(numbers.begin(), numbers.end());
    std::vector<std::wstring> paths;
    paths.reserve(numbers.size());
    for (const int number : numbers)
        paths.push_back(NumberedPath(file, number));
    return paths;
}

Journal::Contents Journal::Peek(const std::wstring& path, ScopeData& data) {
    std::string bytes;
    return ReadWholeFile(path, bytes) == ReadResult::Done ? ApplyRecords(bytes, data) : Contents();
}

Journal Journal::Start(const std::wstring& file) {
    MakeFolderOf(file);
    for (int number = 1; number <= kMostJournals; ++number) {
        std::wstring path = NumberedPath(file, number);
        // Never one that is there: what stands in it may still be wanted, and may end in the middle of a record.
        OpenFile fresh(path, GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ, CREATE_NEW);
        if (fresh.IsOpen()) return {std::move(path), std::move(fresh)};
        const DWORD error = ::GetLastError();
        if (error != ERROR_FILE_EXISTS && error != ERROR_SHARING_VIOLATION) break;
    }
    return {};
}

Journal Journal::Claim(const std::wstring& path) {
    return {path, OpenFile(path, GENERIC_READ | GENERIC_WRITE, 0, OPEN_EXISTING)};
}

bool Journal::Append(std::wstring_view key, std::wstring_view name, std::wstring_view text) {
    const std::string record = FormatRecord(key, name, text);
    // What an earlier record left that did not fit must be gone first: nobody could read a record behind it.
    if (!m_isAtEnd && !m_file.CutAt(m_size)) return false;
    m_isAtEnd = m_file.Write(record);
    if (m_isAtEnd) {
        m_size += record.size();
        return true;
    }
    m_isAtEnd = m_file.CutAt(m_size);
    return false;
}

Journal::Contents Journal::Apply(ScopeData& data) {
    m_isAtEnd = false;
    std::string bytes;
    return m_file.MoveTo(0) && m_file.Read(bytes) ? ApplyRecords(bytes, data) : Contents();
}

void Journal::Remove() {
    // Left with its records, it would be applied again one day, over values that are newer by then.
    static_cast<void>(m_file.CutAt(0));
    m_file.Close();
    ::DeleteFileW(m_path.c_str());
}

std::wstring Journal::SetAside() {
    m_file.Close();
    return SetFileAside(m_path);
}

}  // namespace qv
