#include "tests/support/watched_host.h"

namespace qvtest {
namespace {

std::wstring Named(const wchar_t* operation, BSTR key, BSTR name = nullptr) {
    return std::wstring(operation) + L" " + qv::TextOf(key) + (name != nullptr ? L"/" + qv::TextOf(name) : L"");
}

}  // namespace

HRESULT WatchedHost::WatchedSession::EnumSubKeys(BSTR key, LONG flag, ULONG* count, BSTR** names,
                                                 SESSIONDATATYPE scope) {
    m_host.Tell(Named(L"EnumSubKeys", key));
    return SessionStub::EnumSubKeys(key, flag, count, names, scope);
}

HRESULT WatchedHost::WatchedSession::SaveData(SESSIONDATATYPE scope, BSTR key, BSTR name) {
    m_host.Tell(Named(L"SaveData", key, name));
    return SessionStub::SaveData(scope, key, name);
}

HRESULT WatchedHost::WatchedSession::ReadData(BSTR key, BSTR name, USHORT type, VARIANT* value, SESSIONDATATYPE scope) {
    m_host.Tell(Named(L"ReadData", key, name));
    return SessionStub::ReadData(key, name, type, value, scope);
}

HRESULT WatchedHost::WatchedSession::WriteData(BSTR key, BSTR name, VARIANT value, SESSIONDATATYPE scope) {
    m_host.Tell(Named(L"WriteData", key, name));
    return SessionStub::WriteData(key, name, value, scope);
}

HRESULT WatchedHost::WatchedSession::EnumValues(BSTR key, ULONG* count, BSTR** pairs, SESSIONDATATYPE scope) {
    m_host.Tell(Named(L"EnumValues", key));
    return SessionStub::EnumValues(key, count, pairs, scope);
}

HRESULT WatchedHost::WatchedSession::LoadData(SESSIONDATATYPE scope) {
    m_host.Tell(L"LoadData");
    return SessionStub::LoadData(scope);
}

HRESULT WatchedHost::WatchedUsers::CheckRight(BSTR right) {
    m_host.Tell(Named(L"CheckRight", right));
    return S_OK;
}

HRESULT WatchedHost::WatchedDialogs::Open(const wchar_t*, BSTR, BSTR*, LONG) {
    m_host.Tell(L"dialog");
    return S_OK;
}

HRESULT WatchedHost::WatchedServices::CreateObject(REFGUID id, DWORD number, IUnknown** object) {
    m_host.Tell(L"CreateObject");
    return HostStub::CreateObject(id, number, object);
}

WatchedHost::WatchedHost(TestHost& host)
    : m_session(*this, host.session.Get()),
      m_boxes([this](const qv::MessageBoxCall& call) {
          boxes.push_back(call);
          Tell(L"box " + call.caption);
          return IDOK;
      }),
      m_pickers(qv::PickerSink{[this](const auto& request) { return Pick(request); },
                               [this](const auto& request) { return Pick(request); },
                               [this](const qv::ColorPickerRequest&) {
                                   Tell(L"picker");
                                   return std::optional<COLORREF>(RGB(1, 2, 3));
                               }}) {}

std::optional<std::wstring> WatchedHost::Pick(const qv::PathPickerRequest& request) const {
    Tell(L"picker");
    return request.initial;
}

void WatchedHost::Tell(const std::wstring& call) const {
    // A copy: what is called may put another one in its place.
    if (const auto listener = onCall) listener(call);
}

}  // namespace qvtest
