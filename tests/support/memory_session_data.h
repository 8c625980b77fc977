// Session data that lives in memory only. Records every call and can be told to fail one, so that a test can see what
// its caller does then.
#pragma once

#include <functional>

#include "base/com.h"
#include "host/services/session_data_base.h"

namespace qv {

enum class SessionOperation { EnumSubKeys, SaveData, ReadData, WriteData, EnumValues, LoadData };

// One call as it reached the manager. Fields that the operation does not have are empty.
struct SessionCall {
    SessionOperation operation;
    SESSIONDATATYPE scope;
    std::wstring key;
    std::wstring name;
    std::wstring text;
    LONG flag = 0;
};

class MemorySessionData final : public SessionDataBase {
public:
    [[nodiscard]] static ComPtr<MemorySessionData> Create();

    // An item's or the pages key's definition: path below the root, then attribute and text.
    void Define(std::wstring_view key, std::wstring_view name, std::wstring_view text) {
        Definitions().Set(key, name, text);
    }
    // A value as if it had been written and saved; not recorded.
    void Put(SESSIONDATATYPE scope, std::wstring_view key, std::wstring_view name, std::wstring_view text);
    // Null when there is none.
    [[nodiscard]] const std::wstring* Get(SESSIONDATATYPE scope, std::wstring_view key, std::wstring_view name);
    // The text that the last SaveData made permanent, which may be older than what Get answers. Null when none did.
    [[nodiscard]] const std::wstring* GetSaved(SESSIONDATATYPE scope, std::wstring_view key, std::wstring_view name);

    // The n-th call of the operation from now on (1: the next one) answers with status and does nothing.
    void FailNth(SessionOperation operation, int n, HRESULT status = E_FAIL);
    // The next call of this enumeration answers S_OK and its count, but no block.
    void AnswerNullBlockOnce(SessionOperation enumeration);
    // Asked at every call; anything but S_OK is answered instead of carrying it out. Empty: none.
    void SetFault(std::function<HRESULT(const SessionCall&)> fault) { m_fault = std::move(fault); }

    // Every call so far, failed ones included.
    [[nodiscard]] const std::vector<SessionCall>& Calls() const noexcept { return m_calls; }
    [[nodiscard]] std::vector<SessionCall> CallsOf(SessionOperation operation) const;
    void ClearCalls() { m_calls.clear(); }

    HRESULT STDMETHODCALLTYPE EnumSubKeys(BSTR key, LONG flag, ULONG* count, BSTR** names,
                                          SESSIONDATATYPE scope) override;
    HRESULT STDMETHODCALLTYPE SaveData(SESSIONDATATYPE scope, BSTR key, BSTR valueName) override;
    HRESULT STDMETHODCALLTYPE ReadData(BSTR key, BSTR valueName, USHORT wantedType, VARIANT* value,
                                       SESSIONDATATYPE scope) override;
    HRESULT STDMETHODCALLTYPE WriteData(BSTR key, BSTR valueName, VARIANT value, SESSIONDATATYPE scope) override;
    HRESULT STDMETHODCALLTYPE EnumValues(BSTR key, ULONG* count, BSTR** namesAndTexts, SESSIONDATATYPE scope) override;
    HRESULT STDMETHODCALLTYPE LoadData(SESSIONDATATYPE scope) override;

protected:
    HRESULT Save(SESSIONDATATYPE scope, std::wstring_view key, std::wstring_view name) override;

private:
    MemorySessionData() = default;
    // Records the call. The status it is to fail with, or S_OK.
    HRESULT Record(const SessionCall& call);
    // Takes a block back that was to be lost.
    void LoseBlock(SessionOperation enumeration, ULONG stringsPerEntry, const ULONG* count, BSTR** block);

    struct PlannedFault {
        SessionOperation operation;
        int callsLeft;
        HRESULT status;
    };
    std::vector<SessionCall> m_calls;
    std::vector<PlannedFault> m_planned;
    std::vector<SessionOperation> m_nullBlocks;
    std::function<HRESULT(const SessionCall&)> m_fault;
    std::map<SESSIONDATATYPE, ScopeData> m_saved;
};

}  // namespace qv
