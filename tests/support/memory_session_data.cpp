#include "tests/support/memory_session_data.h"

#include <algorithm>
#include <iterator>

namespace qv {

ComPtr<MemorySessionData> MemorySessionData::Create() {
    return ComPtr<MemorySessionData>(new MemorySessionData);
}

void MemorySessionData::Put(SESSIONDATATYPE scope, std::wstring_view key, std::wstring_view name,
                            std::wstring_view text) {
    Scope(scope).Set(key, name, text);
    m_saved[scope].Set(key, name, text);
}

const std::wstring* MemorySessionData::Get(SESSIONDATATYPE scope, std::wstring_view key, std::wstring_view name) {
    return Scope(scope).Find(key, name);
}

const std::wstring* MemorySessionData::GetSaved(SESSIONDATATYPE scope, std::wstring_view key, std::wstring_view name) {
    return m_saved[scope].Find(key, name);
}

HRESULT MemorySessionData::Save(SESSIONDATATYPE scope, std::wstring_view key, std::wstring_view name) {
    m_saved[scope].Set(key, name, *Scope(scope).Find(key, name));
    return S_OK;
}

void MemorySessionData::FailNth(SessionOperation operation, int n, HRESULT status) {
    m_planned.push_back({operation, n, status});
}

void MemorySessionData::AnswerNullBlockOnce(SessionOperation enumeration) {
    m_nullBlocks.push_back(enumeration);
}

std::vector<SessionCall> MemorySessionData::CallsOf(SessionOperation operation) const {
    std::vector<SessionCall> found;
    std::copy_if(m_calls.begin(), m_calls.end(), std::back_inserter(found),
                 [&](const SessionCall& call) { return call.operation == operation; });
    return found;
}

HRESULT MemorySessionData::Record(const SessionCall& call) {
    m_calls.push_back(call);
    HRESULT answer = S_OK;
    for (PlannedFault& fault : m_planned) {
        if (fault.operation == call.operation && --fault.callsLeft == 0) answer = fault.status;
    }
    std::erase_if(m_planned, [](const PlannedFault& fault) { return fault.callsLeft <= 0; });
    // A copy: it may put another one in its place.
    if (const auto fault = m_fault; answer == S_OK && fault) answer = fault(call);
    return answer;
}

void MemorySessionData::LoseBlock(SessionOperation enumeration, ULONG stringsPerEntry, const ULONG* count,
                                  BSTR** block) {
    const auto planned = std::find(m_nullBlocks.begin(), m_nullBlocks.end(), enumeration);
    if (planned == m_nullBlocks.end()) return;
    m_nullBlocks.erase(planned);
    const StringBlock lost = StringBlock::Adopt(std::exchange(*block, nullptr), *count, stringsPerEntry);
}

HRESULT MemorySessionData::EnumSubKeys(BSTR key, LONG flag, ULONG* count, BSTR** names, SESSIONDATATYPE scope) {
    HRESULT answer = Record({SessionOperation::EnumSubKeys, scope, TextOf(key), {}, {}, flag});
    if (answer == S_OK) answer = SessionDataBase::EnumSubKeys(key, flag, count, names, scope);
    if (answer == S_OK) LoseBlock(SessionOperation::EnumSubKeys, 1, count, names);
    return answer;
}

HRESULT MemorySessionData::EnumValues(BSTR key, ULONG* count, BSTR** namesAndTexts, SESSIONDATATYPE scope) {
    HRESULT answer = Record({SessionOperation::EnumValues, scope, TextOf(key), {}, {}});
    if (answer == S_OK) answer = SessionDataBase::EnumValues(key, count, namesAndTexts, scope);
    if (answer == S_OK) LoseBlock(SessionOperation::EnumValues, 2, count, namesAndTexts);
    return answer;
}

HRESULT MemorySessionData::ReadData(BSTR key, BSTR valueName, USHORT wantedType, VARIANT* value,
                                    SESSIONDATATYPE scope) {
    const HRESULT answer = Record({SessionOperation::ReadData, scope, TextOf(key), TextOf(valueName), {}});
    return answer == S_OK ? SessionDataBase::ReadData(key, valueName, wantedType, value, scope) : answer;
}

HRESULT MemorySessionData::WriteData(BSTR key, BSTR valueName, VARIANT value, SESSIONDATATYPE scope) {
    const std::wstring text = value.vt == VT_BSTR ? TextOf(value.bstrVal) : L"(no text)";
    const HRESULT answer = Record({SessionOperation::WriteData, scope, TextOf(key), TextOf(valueName), text});
    return answer == S_OK ? SessionDataBase::WriteData(key, valueName, value, scope) : answer;
}

HRESULT MemorySessionData::SaveData(SESSIONDATATYPE scope, BSTR key, BSTR valueName) {
    const HRESULT answer = Record({SessionOperation::SaveData, scope, TextOf(key), TextOf(valueName), {}});
    return answer == S_OK ? SessionDataBase::SaveData(scope, key, valueName) : answer;
}

HRESULT MemorySessionData::LoadData(SESSIONDATATYPE scope) {
    const HRESULT answer = Record({SessionOperation::LoadData, scope, {}, {}, {}});
    return answer == S_OK ? SessionDataBase::LoadData(scope) : answer;
}

}  // namespace qv
