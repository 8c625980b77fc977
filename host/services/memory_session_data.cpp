#include "host/services/memory_session_data.h"

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

HRESULT MemorySessionData::OnCall(const SessionCall& call, Interception& interception) {
    m_calls.push_back(call);
    HRESULT answer = S_OK;
    for (PlannedFault& fault : m_planned) {
        if (fault.operation == call.operation && --fault.callsLeft == 0) answer = fault.status;
    }
    std::erase_if(m_planned, [](const PlannedFault& fault) { return fault.callsLeft <= 0; });
    // A copy: it may put another one in its place.
    if (const auto fault = m_fault; answer == S_OK && fault) answer = fault(call);
    if (answer != S_OK) return answer;

    const auto nullBlock = std::find(m_nullBlocks.begin(), m_nullBlocks.end(), call.operation);
    if (nullBlock != m_nullBlocks.end()) {
        m_nullBlocks.erase(nullBlock);
        interception = Interception::AnswerNullBlock;
    }
    return S_OK;
}

}  // namespace qv
