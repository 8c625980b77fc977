#include "host/services/file_session_data.h"

#include <utility>

#include "base/text.h"
#include "host/services/json_text.h"
#include "host/services/whole_file.h"

namespace qv {

namespace {

constexpr std::pair<SESSIONDATATYPE, const wchar_t*> kFiles[] = {
    {SDT_userData, L"user.json"},
    {SDT_machineData, L"machine.json"},
    {SDT_userDataDB, L"userdb.json"},
    {SDT_globalData, L"global.json"},
};

// Takes what has the right shape. The first thing that has not is named; empty when there is none.
std::wstring TakeScope(const JsonNode& root, ScopeData& data) {
    if (root.kind != JsonNode::Kind::Object) return Format(L"expected an object, found %s", root.KindName());
    std::wstring problem;
    const auto refuse = [&problem](const std::wstring& place, std::wstring_view wanted, const JsonNode& found) {
        if (problem.empty()) problem = Format(L"%s: expected %s, found %s", place, wanted, found.KindName());
    };
    for (const JsonNode& key : root.children) {
        if (key.kind != JsonNode::Kind::Object) {
            refuse(key.name, L"an object", key);
            continue;
        }
        data.AddKey(key.name);
        for (const JsonNode& value : key.children) {
            if (value.kind == JsonNode::Kind::Text) {
                data.Set(key.name, value.name, value.text);
            } else {
                refuse(key.name + L"/" + value.name, L"a text", value);
            }
        }
    }
    return problem;
}

std::string FormatScope(const ScopeData& data) {
    JsonNode root;
    root.kind = JsonNode::Kind::Object;
    for (const ScopeData::Key& key : data.Keys()) {
        JsonNode& object = root.children.emplace_back();
        object.kind = JsonNode::Kind::Object;
        object.name = key.path;
        for (const ScopeData::Value& value : key.values) {
            object.children.push_back({JsonNode::Kind::Text, value.name, value.text, {}});
        }
    }
    return FormatJson(root);
}

// Writes that were never saved: what is in current, but not (or not so) in saved.
void CopyUnsaved(const ScopeData& current, const ScopeData& saved, ScopeData& target) {
    for (const ScopeData::Key& key : current.Keys()) {
        for (const ScopeData::Value& value : key.values) {
            const std::wstring* const old = saved.Find(key.path, value.name);
            if (old == nullptr || *old != value.text) target.Set(key.path, value.name, value.text);
        }
    }
}

// Open while this program, and no other, may replace the document. Nobody waits: what is not folded now is folded
// later.
OpenFile TakeTurn(const std::wstring& path) {
    return {path + L".folding", GENERIC_WRITE, 0, OPEN_ALWAYS, FILE_FLAG_DELETE_ON_CLOSE};
}

}  // namespace

ComPtr<FileSessionData> FileSessionData::Create(std::wstring folder, ProblemReport report) {
    return ComPtr<FileSessionData>(new FileSessionData(std::move(folder), std::move(report)));
}

std::wstring FileSessionData::PathOf(SESSIONDATATYPE scope) const {
    for (const auto& [each, name] : kFiles) {
        if (each == scope) return m_folder + L"/" + name;
    }
    return {};
}

bool FileSessionData::ReadDocument(const std::wstring& path, ScopeData& data) {
    std::string bytes;
    switch (ReadWholeFile(path, bytes)) {
        case ReadResult::Missing:
            return true;
        case ReadResult::Failed:
            Report(path + L": the file cannot be read; its settings are not available and will not be saved");
            return false;
        case ReadResult::Done:
            break;
    }
    JsonNode root;
    std::wstring problem;
    if (ParseJson(bytes, root, problem)) problem = TakeScope(root, data);
    if (problem.empty()) return true;

    const std::wstring aside = SetFileAside(path);
    if (aside.empty()) {
        // Saving would put the rest in place of a file that someone may still mend.
        Report(path + L": " + problem + L"; the file could not be set aside and will not be saved to");
        return false;
    }
    Report(path + L": " + problem + L"; the file was kept as " + FileNameOf(aside));
    if (!data.IsEmpty() && !ReplaceWholeFile(path, FormatScope(data))) {
        Report(path + L": what could be read of the file could not be written back");
    }
    return true;
}

bool FileSessionData::FoldInto(const std::wstring& path, ScopeData& data, Journal& journal) {
    const Journal::Contents contents = journal.Apply(data);
    if (!contents.isRead || (contents.records != 0 && !ReplaceWholeFile(path, FormatScope(data)))) {
        Report(path + L": values saved last could not be put into the file; they are kept in " +
               FileNameOf(journal.Path()));
        return false;
    }
    if (!contents.isDamaged) {
        journal.Remove();
        return true;
    }
    const std::wstring name = FileNameOf(journal.Path());
    const std::wstring aside = journal.SetAside();
    Report(path + L": some of the values saved last are lost, as " + name + L" is damaged; it " +
           (aside.empty() ? L"could not be set aside" : L"was kept as " + FileNameOf(aside)));
    return true;
}

bool FileSessionData::Fold() {
    bool isDone = true;
    for (auto& [scope, file] : m_files) {
        if (!file.journal.IsOpen()) continue;
        const std::wstring path = PathOf(scope);
        const OpenFile turn = TakeTurn(path);
        ScopeData data;
        isDone = turn.IsOpen() && ReadDocument(path, data) && FoldInto(path, data, file.journal) && isDone;
    }
    return isDone;
}

FileSessionData::~FileSessionData() {
    try {
        Fold();
    } catch (...) {  // The journal is still there for the next load.
    }
}

HRESULT FileSessionData::Load(SESSIONDATATYPE scope) {
    const std::wstring path = PathOf(scope);
    if (path.empty()) return S_OK;
    ScopeFile& file = m_files[scope];
    file.isLoaded = true;
    ScopeData fresh;
    const std::vector<std::wstring> journals = Journal::Beside(path);
    const OpenFile turn = journals.empty() ? OpenFile() : TakeTurn(path);
    file.isReadable = ReadDocument(path, fresh);
    if (!file.isReadable && fresh.IsEmpty()) return S_OK;
    if (file.isReadable && turn.IsOpen()) {
        if (file.journal.IsOpen()) FoldInto(path, fresh, file.journal);
        for (const std::wstring& each : journals) {
            if (Journal abandoned = Journal::Claim(each); abandoned.IsOpen()) FoldInto(path, fresh, abandoned);
        }
    }
    // What other programs will fold, or nobody can now, is there to be seen.
    for (const std::wstring& each : journals)
        Journal::Peek(each, fresh);
    ScopeData current = fresh;
    CopyUnsaved(file.current, file.saved, current);
    file.saved = std::move(fresh);
    file.current = std::move(current);
    return S_OK;
}

ScopeData& FileSessionData::Scope(SESSIONDATATYPE scope) {
    ScopeFile& file = m_files[scope];
    if (!file.isLoaded) Load(scope);
    return file.current;
}

HRESULT FileSessionData::Save(SESSIONDATATYPE scope, std::wstring_view key, std::wstring_view name) {
    const std::wstring path = PathOf(scope);
    if (path.empty()) return S_OK;
    ScopeFile& file = m_files[scope];
    if (!file.isReadable) return E_ACCESSDENIED;
    const std::wstring& text = *file.current.Find(key, name);
    const std::wstring* const old = file.saved.Find(key, name);
    if (old != nullptr && *old == text) return S_OK;

    if (!file.journal.IsOpen()) file.journal = Journal::Start(path);
    if (!file.journal.IsOpen() || !file.journal.Append(key, name, text)) return HRESULT_FROM_WIN32(ERROR_WRITE_FAULT);
    file.saved.Set(key, name, text);
    return S_OK;
}

}  // namespace qv
