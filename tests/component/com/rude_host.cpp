#include "tests/component/com/rude_host.h"

#include <cstdint>

namespace {

template <class T>
T* Poison() {
    return reinterpret_cast<T*>(std::uintptr_t{0xDDDDDDDDDDDDDDDD});
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
    const bool fails = how == Rudeness::FailsWithPoison || how == Rudeness::FalseWithPoison;
    *object = fails ? Poison<T>() : nullptr;
    return fails ? PoisonStatus(how) : S_OK;
}

}  // namespace

template <class Interface>
HRESULT RudeObject<Interface>::QueryInterface(REFIID iid, void** object) {
    if (m_turn.Comes()) return AnswerObject(m_turn.how, object);
    *object = nullptr;
    if (!IsEqualIID(iid, m_iid) && !IsEqualIID(iid, IID_IUnknown)) return E_NOINTERFACE;
    *object = static_cast<Interface*>(this);
    AddRef();
    return S_OK;
}

template class RudeObject<ISessionDataManager>;
template class RudeObject<IMultiUserManager>;
template class RudeObject<HostDialogService>;
template class RudeObject<ITPFHost>;
template class RudeObject<IQVSettingsDialogDataIO>;

HRESULT RudeSession::EnumSubKeys(BSTR key, LONG flag, ULONG* count, BSTR** names, SESSIONDATATYPE scope) {
    if (m_turn.Comes()) return AnswerStrings(m_turn.how, count, names);
    return m_real.EnumSubKeys(key, flag, count, names, scope);
}

HRESULT RudeSession::ReadData(BSTR key, BSTR name, USHORT type, VARIANT* value, SESSIONDATATYPE scope) {
    if (m_turn.Comes()) return AnswerValue(m_turn.how, value);
    return m_real.ReadData(key, name, type, value, scope);
}

HRESULT RudeSession::EnumValues(BSTR key, ULONG* count, BSTR** pairs, SESSIONDATATYPE scope) {
    if (m_turn.Comes()) return AnswerStrings(m_turn.how, count, pairs);
    return m_real.EnumValues(key, count, pairs, scope);
}

// The old text is freed before another takes its place, as the interface asks; what takes its place is another matter.
HRESULT RudeDialogs::Answer(BSTR* value) {
    SysFreeString(*value);
    if (!m_turn.Comes()) {
        *value = SysAllocString(L"edited");
        return S_OK;
    }
    const bool poisons = m_turn.how == Rudeness::FailsWithPoison || m_turn.how == Rudeness::FalseWithPoison;
    *value = poisons ? Poison<OLECHAR>() : nullptr;
    return m_turn.how == Rudeness::NothingDelivered ? S_OK : E_FAIL;
}

RudeHost::RudeHost(RudeTurn& turn, RudeSession& session, RudeUsers& users, RudeDialogs& dialogs)
    : RudeObject(turn, IID_ITPFHost), m_session(session), m_users(users), m_dialogs(dialogs) {}

HRESULT RudeHost::CreateObject(REFGUID id, DWORD, IUnknown** object) {
    if (m_turn.Comes()) return AnswerObject(m_turn.how, object);
    *object = IsEqualGUID(id, SID_SessionData) ? static_cast<IUnknown*>(&m_session)
              : IsEqualGUID(id, SID_MultiUser) ? static_cast<IUnknown*>(&m_users)
                                               : static_cast<IUnknown*>(&m_dialogs);
    (*object)->AddRef();
    return S_OK;
}

HRESULT RudeStore::GetData(BSTR key, BSTR name, USHORT type, VARIANT* value, SESSIONDATATYPE scope) {
    if (m_turn.Comes()) return AnswerValue(m_turn.how, value);
    return m_real.ReadData(key, name, type, value, scope);
}
