#include "tests/support/watched_host.h"

namespace qvtest {
namespace {

std::wstring Named(const std::wstring& operation, BSTR key, BSTR name = nullptr) {
    return operation + (key != nullptr ? L" " + qv::TextOf(key) : L"") +
           (name != nullptr ? L"/" + qv::TextOf(name) : L"");
}

}  // namespace

void WatchedHost::WatchedSession::OnCall(const wchar_t* operation, BSTR key, BSTR name) {
    m_host.Tell(Named(operation, key, name));
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
