#include "tests/component/watched_host.h"

#include <array>

#include "framework/com_module.h"

namespace qvtest {
namespace {

std::wstring Named(const wchar_t* operation, BSTR key, BSTR name) {
    return std::wstring(operation) + L" " + qv::TextOf(key) + (name != nullptr ? L"/" + qv::TextOf(name) : L"");
}

}  // namespace

class WatchedHost::SessionProxy final : public qv::ComObjectRoot, public ISessionDataManager {
public:
    SessionProxy(const WatchedHost& host, qv::ComPtr<ISessionDataManager> real)
        : m_host(host), m_real(std::move(real)) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
        static const std::array<qv::InterfaceEntry, 1> table{
            {{&IID_ISessionDataManager, qv::InterfaceOffset<SessionProxy, ISessionDataManager>()}}};
        return qv::QueryInterfaceTable(this, table, iid, object);
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return InternalAddRef(); }
    ULONG STDMETHODCALLTYPE Release() override { return InternalRelease(); }
    HRESULT STDMETHODCALLTYPE EnumSubKeys(BSTR key, LONG flag, ULONG* count, BSTR** names,
                                          SESSIONDATATYPE scope) override {
        m_host.Tell(Named(L"EnumSubKeys", key, nullptr));
        return m_real->EnumSubKeys(key, flag, count, names, scope);
    }
    HRESULT STDMETHODCALLTYPE SaveData(SESSIONDATATYPE scope, BSTR key, BSTR name) override {
        m_host.Tell(Named(L"SaveData", key, name));
        return m_real->SaveData(scope, key, name);
    }
    HRESULT STDMETHODCALLTYPE ReadData(BSTR key, BSTR name, USHORT type, VARIANT* value,
                                       SESSIONDATATYPE scope) override {
        m_host.Tell(Named(L"ReadData", key, name));
        return m_real->ReadData(key, name, type, value, scope);
    }
    HRESULT STDMETHODCALLTYPE WriteData(BSTR key, BSTR name, VARIANT value, SESSIONDATATYPE scope) override {
        m_host.Tell(Named(L"WriteData", key, name));
        return m_real->WriteData(key, name, value, scope);
    }
    HRESULT STDMETHODCALLTYPE EnumValues(BSTR key, ULONG* count, BSTR** pairs, SESSIONDATATYPE scope) override {
        m_host.Tell(Named(L"EnumValues", key, nullptr));
        return m_real->EnumValues(key, count, pairs, scope);
    }
    HRESULT STDMETHODCALLTYPE LoadData(SESSIONDATATYPE scope) override {
        m_host.Tell(L"LoadData");
        return m_real->LoadData(scope);
    }
    HRESULT STDMETHODCALLTYPE Reserved1() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reserved2() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reserved4() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reserved6() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reserved8() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reserved11() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reserved12() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reserved13() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reserved14() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reserved15() override { return E_NOTIMPL; }

private:
    const WatchedHost& m_host;
    qv::ComPtr<ISessionDataManager> m_real;
};

class WatchedHost::UsersProxy final : public qv::ComObjectRoot, public IMultiUserManager {
public:
    UsersProxy(const WatchedHost& host, qv::ComPtr<IMultiUserManager> real) : m_host(host), m_real(std::move(real)) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
        static const std::array<qv::InterfaceEntry, 1> table{
            {{&IID_IMultiUserManager, qv::InterfaceOffset<UsersProxy, IMultiUserManager>()}}};
        return qv::QueryInterfaceTable(this, table, iid, object);
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return InternalAddRef(); }
    ULONG STDMETHODCALLTYPE Release() override { return InternalRelease(); }
    HRESULT STDMETHODCALLTYPE CheckRight(BSTR right) override {
        m_host.Tell(Named(L"CheckRight", right, nullptr));
        return m_real->CheckRight(right);
    }
    HRESULT STDMETHODCALLTYPE Reserved1() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reserved2() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reserved3() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reserved4() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reserved5() override { return E_NOTIMPL; }

private:
    const WatchedHost& m_host;
    qv::ComPtr<IMultiUserManager> m_real;
};

class WatchedHost::DialogsProxy final : public qv::ComObjectRoot, public HostDialogService {
public:
    explicit DialogsProxy(const WatchedHost& host) : m_host(host) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
        static const std::array<qv::InterfaceEntry, 1> table{
            {{&IID_HostDialogService, qv::InterfaceOffset<DialogsProxy, HostDialogService>()}}};
        return qv::QueryInterfaceTable(this, table, iid, object);
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return InternalAddRef(); }
    ULONG STDMETHODCALLTYPE Release() override { return InternalRelease(); }
    HRESULT STDMETHODCALLTYPE EditText(BSTR, BSTR*) override { return Open(); }
    HRESULT STDMETHODCALLTYPE ChooseText(BSTR, BSTR*, LONG) override { return Open(); }
    HRESULT STDMETHODCALLTYPE ViewText(BSTR, BSTR*) override { return Open(); }
    HRESULT STDMETHODCALLTYPE PlaceBeside(BSTR, LONG) override { return Open(); }
    HRESULT STDMETHODCALLTYPE Reserved1() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reserved2() override { return E_NOTIMPL; }

private:
    HRESULT Open() {
        m_host.Tell(L"dialog");
        return S_OK;
    }
    const WatchedHost& m_host;
};

class WatchedHost::HostProxy final : public qv::ComObjectRoot, public ITPFHost {
public:
    explicit HostProxy(const WatchedHost& host) : m_host(host) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** object) override {
        *object = nullptr;
        return E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return InternalAddRef(); }
    ULONG STDMETHODCALLTYPE Release() override { return InternalRelease(); }
    HRESULT STDMETHODCALLTYPE CreateObject(REFGUID id, DWORD, IUnknown** object) override {
        m_host.Tell(L"CreateObject");
        IUnknown* offered = nullptr;
        if (IsEqualGUID(id, SID_SessionData)) offered = m_host.m_session.Get();
        if (IsEqualGUID(id, SID_MultiUser)) offered = m_host.m_users.Get();
        if (IsEqualGUID(id, CLSID_HostDialogService)) {
            *object = new DialogsProxy(m_host);
            (*object)->AddRef();
            return S_OK;
        }
        *object = offered;
        if (offered == nullptr) return E_NOINTERFACE;
        offered->AddRef();
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Reserved1() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reserved2() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reserved3() override { return E_NOTIMPL; }

private:
    const WatchedHost& m_host;
};

WatchedHost::WatchedHost(TestHost& host)
    : m_session(new SessionProxy(*this, qv::ComPtr<ISessionDataManager>(host.session.Get()))),
      m_users(new UsersProxy(*this, qv::ComPtr<IMultiUserManager>(host.users.Get()))),
      m_host(new HostProxy(*this)),
      m_boxesBefore(qv::SetMessageBoxSink([this](const qv::MessageBoxCall& call) {
          boxes.push_back(call);
          Tell(L"box " + call.caption);
          return IDOK;
      })) {
    qv::PickerSink pickers;
    pickers.folder = pickers.file = [this](const qv::PathPickerRequest& request) {
        Tell(L"picker");
        return std::optional<std::wstring>(request.initial);
    };
    pickers.color = [this](const qv::ColorPickerRequest&) {
        Tell(L"picker");
        return std::optional<COLORREF>(RGB(1, 2, 3));
    };
    m_pickersBefore = qv::SetPickerSink(pickers);
}

WatchedHost::~WatchedHost() {
    qv::SetPickerSink(m_pickersBefore);
    qv::SetMessageBoxSink(m_boxesBefore);
}

void WatchedHost::Tell(const std::wstring& call) const {
    // A copy: what is called may put another one in its place.
    if (const auto listener = onCall) listener(call);
}

}  // namespace qvtest
