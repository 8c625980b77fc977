#include "tests/component/com/rude_host.h"

#include <cstdint>

namespace {

template <class T>
T* Poison() {
    return reinterpret_cast<T*>(std::uintptr_t{0xDDDDDDDDDDDDDDDD});
}

bool Poisons(Rudeness how) {
    return how == Rudeness::FailsWithPoison || how == Rudeness::FalseWithPoison;
}

HRESULT PoisonStatus(Rudeness how) {
    return how == Rudeness::FailsWithPoison ? E_FAIL : S_FALSE;
}

HRESULT AnswerStrings(Rudeness how, ULONG* count, BSTR** strings) {
    switch (how) {
        case Rudeness::NothingDelivered:
            *count = 3;
            *strings = nullptr;
            return S_OK;
        case Rudeness::SomethingElse:
            *count = 0;
            *strings = static_cast<BSTR*>(CoTaskMemAlloc(sizeof(BSTR)));
            return S_OK;
        default:
            *count = 0xDDDDDDDD;
            *strings = Poison<BSTR>();
            return PoisonStatus(how);
    }
}

HRESULT AnswerValue(Rudeness how, VARIANT* value) {
    switch (how) {
        case Rudeness::NothingDelivered:
            value->vt = VT_BSTR;
            value->bstrVal = nullptr;
            return S_OK;
        case Rudeness::SomethingElse:
            value->vt = VT_I4;
            value->lVal = 1;
            return S_OK;
        default:
            value->vt = VT_BSTR;
            value->bstrVal = Poison<OLECHAR>();
            return PoisonStatus(how);
    }
}

template <class T>
HRESULT AnswerObject(Rudeness how, T** object) {
    *object = Poisons(how) ? Poison<T>() : nullptr;
    return Poisons(how) ? PoisonStatus(how) : S_OK;
}

}  // namespace

template <class Stub>
HRESULT Rude<Stub>::QueryInterface(REFIID iid, void** object) {
    return m_turn.Comes() ? AnswerObject(m_turn.how, object) : Stub::QueryInterface(iid, object);
}

template class Rude<qvtest::SessionStub>;
template class Rude<qvtest::UsersStub>;
template class Rude<qvtest::DialogsStub>;
template class Rude<qvtest::HostStub>;
template class Rude<qvtest::StackObject<IQVSettingsDialogDataIO>>;

HRESULT RudeSession::EnumSubKeys(BSTR key, LONG flag, ULONG* count, BSTR** names, SESSIONDATATYPE scope) {
    return m_turn.Comes() ? AnswerStrings(m_turn.how, count, names) : Rude::EnumSubKeys(key, flag, count, names, scope);
}

HRESULT RudeSession::ReadData(BSTR key, BSTR name, USHORT type, VARIANT* value, SESSIONDATATYPE scope) {
    return m_turn.Comes() ? AnswerValue(m_turn.how, value) : Rude::ReadData(key, name, type, value, scope);
}

HRESULT RudeSession::EnumValues(BSTR key, ULONG* count, BSTR** pairs, SESSIONDATATYPE scope) {
    return m_turn.Comes() ? AnswerStrings(m_turn.how, count, pairs) : Rude::EnumValues(key, count, pairs, scope);
}

// The old text is freed before another takes its place, as the interface asks; what takes its place is another matter.
HRESULT RudeDialogs::Open(const wchar_t*, BSTR, BSTR* value, LONG) {
    if (value == nullptr) return S_OK;
    SysFreeString(*value);
    const bool isRude = m_turn.Comes();
    *value = !isRude ? SysAllocString(L"edited") : Poisons(m_turn.how) ? Poison<OLECHAR>() : nullptr;
    return !isRude || m_turn.how == Rudeness::NothingDelivered ? S_OK : E_FAIL;
}

HRESULT RudeHost::CreateObject(REFGUID id, DWORD number, IUnknown** object) {
    return m_turn.Comes() ? AnswerObject(m_turn.how, object) : Rude::CreateObject(id, number, object);
}

HRESULT RudeStore::GetData(BSTR key, BSTR name, USHORT type, VARIANT* value, SESSIONDATATYPE scope) {
    return m_turn.Comes() ? AnswerValue(m_turn.how, value) : m_behind.ReadData(key, name, type, value, scope);
}
