// Session data kept in files of one folder, a JSON document a scope: { KEY: { NAME: TEXT } }. A saved value is appended
// to a journal beside the document, which costs the same whatever is there already; folding takes what the journal
// holds into the document. A document is only ever replaced as a whole and flushed, so that a crash leaves the old or
// the new one. A damaged file is kept aside and reported; its scope goes on with what could be read of it. Scopes
// without a file (volatile and user-specific data) live in memory.
//
// Several programs, or objects, may share a folder. Each has a journal of its own, and one folds at a time, into the
// document as it is then: no value is lost that only one of them saved, and of one that several saved the text stays
// that is folded last. What others saved is seen with the next load, folded or not.
#pragma once

#include <functional>

#include "base/com.h"
#include "host/services/journal.h"
#include "host/services/session_data_base.h"

namespace qv {

class FileSessionData final : public SessionDataBase {
public:
    // Told of every file that could not be used as it was, in one sentence. Empty: nobody is told.
    using ProblemReport = std::function<void(const std::wstring&)>;

    // folder: created with the first save. Nothing is read before it is asked for.
    [[nodiscard]] static ComPtr<FileSessionData> Create(std::wstring folder, ProblemReport report);
    // Takes what was saved into the documents and ends their journals: when a dialog has ended, say. False when values
    // stay in a journal, because a document cannot be replaced or another program folds; nothing is lost, and the next
    // folding or loading tries again.
    bool Fold();

protected:
    ScopeData& Scope(SESSIONDATATYPE scope) override;
    // Folds this object's journal and those that programs left behind which ended without. Values that were written and
    // not saved stay as they were written. Never fails: a scope that cannot be read is
    // reported, and cannot be saved until it can be read.
    HRESULT Load(SESSIONDATATYPE scope) override;
    HRESULT Save(SESSIONDATATYPE scope, std::wstring_view key, std::wstring_view name) override;

private:
    FileSessionData(std::wstring folder, ProblemReport report)
        : m_folder(std::move(folder)), m_report(std::move(report)) {}
    // Folds what is left.
    ~FileSessionData() override;

    struct ScopeFile {
        ScopeData current;  // what readers see
        ScopeData saved;    // what document and journal hold
        Journal journal;    // open from the first save to the next folding
        bool isLoaded = false;
        bool isReadable = true;
    };
    // The scope's file, or an empty path for a scope without one.
    [[nodiscard]] std::wstring PathOf(SESSIONDATATYPE scope) const;
    // What the document holds; false when that cannot be told.
    bool ReadDocument(const std::wstring& path, ScopeData& data);
    // Takes the journal into data, which is what the document holds, and into the document. The journal is ended when
    // that was done.
    bool FoldInto(const std::wstring& path, ScopeData& data, Journal& journal);
    void Report(const std::wstring& problem) const {
        if (m_report) m_report(problem);
    }

    std::wstring m_folder;
    ProblemReport m_report;
    std::map<SESSIONDATATYPE, ScopeFile> m_files;
};

}  // namespace qv
