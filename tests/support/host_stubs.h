// The host's interfaces with all filled in that a test has no interest in: identity, counted references, the slots that
// are the host's own. Made for objects that belong to the test and live on its stack: no Release deletes them.
#pragma once

#include "base/com.h"
#include "host/interfaces/dialog_service.h"
#include "host/interfaces/multi_user.h"
#include "host/interfaces/session_data.h"
#include "host/interfaces/tpf.h"

namespace qvtest {

template <class Interface>
class StackObject : public Interface {
public:
    explicit StackObject(const IID& iid) : m_iid(iid) {}
    virtual ~StackObject() = default;
    StackObject(const StackObject&) = delete;
    StackObject& operator=(const StackObject&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
        const bool isKnown = IsEqualIID(iid, m_iid) || IsEqualIID(iid, IID_IUnknown);
        *object = isKnown ? static_cast<Interface*>(this) : nullptr;
        if (!isKnown) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override { return --references; }
    ULONG references = 0;  // that others hold now

private:
    const IID& m_iid;
};

// Passes every call on, after a word about it.
class SessionStub : public StackObject<ISessionDataManager> {
public:
    // behind: null for a session that overrides whatever is called.
    explicit SessionStub(ISessionDataManager* behind = nullptr)
        : StackObject(IID_ISessionDataManager), m_behind(behind) {}
    // The operation's name, and key and value name where it has them, else null.
    virtual void OnCall(const wchar_t* /*operation*/, BSTR /*key*/, BSTR /*name*/) {}
    HRESULT STDMETHODCALLTYPE EnumSubKeys(BSTR key, LONG flag, ULONG* count, BSTR** names,
                                          SESSIONDATATYPE scope) override {
        OnCall(L"EnumSubKeys", key, nullptr);
        return m_behind->EnumSubKeys(key, flag, count, names, scope);
    }
    HRESULT STDMETHODCALLTYPE SaveData(SESSIONDATATYPE scope, BSTR key, BSTR name) override {
        OnCall(L"SaveData", key, name);
        return m_behind->SaveData(scope, key, name);
    }
    HRESULT STDMETHODCALLTYPE ReadData(BSTR key, BSTR name, USHORT type, VARIANT* value,
                                       SESSIONDATATYPE scope) override {
        OnCall(L"ReadData", key, name);
        return m_behind->ReadData(key, name, type, value, scope);
    }
    HRESULT STDMETHODCALLTYPE WriteData(BSTR key, BSTR name, VARIANT value, SESSIONDATATYPE scope) override {
        OnCall(L"WriteData", key, name);
        return m_behind->WriteData(key, name, value, scope);
    }
    HRESULT STDMETHODCALLTYPE EnumValues(BSTR key, ULONG* count, BSTR** pairs, SESSIONDATATYPE scope) override {
        OnCall(L"EnumValues", key, nullptr);
        return m_behind->EnumValues(key, count, pairs, scope);
    }
    HRESULT STDMETHODCALLTYPE LoadData(SESSIONDATATYPE scope) override {
        OnCall(L"LoadData", nullptr, nullptr);
        return m_behind->LoadData(scope);
    }
    HRESULT STDMETHODCALLTYPE Reserved1() final { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reserved2() final { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reserved4() final { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reserved6() final { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reserved8() final { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reserved11() final { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reserved12() final { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reserved13() final { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reserved14() final { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reserved15() final { return E_NOTIMPL; }

private:
    ISessionDataManager* m_behind;
};

// Grants everything.
class UsersStub : public StackObject<IMultiUserManager> {
public:
    UsersStub() : StackObject(IID_IMultiUserManager) {}
    HRESULT STDMETHODCALLTYPE CheckRight(BSTR) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE Reserved1() final { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reserved2() final { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reserved3() final { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reserved4() final { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reserved5() final { return E_NOTIMPL; }
};

// All its dialogs are one function.
class DialogsStub : public StackObject<HostDialogService> {
public:
    DialogsStub() : StackObject(IID_HostDialogService) {}
    HRESULT STDMETHODCALLTYPE EditText(BSTR text, BSTR* value) final { return Open(L"edit", text, value, 0); }
    HRESULT STDMETHODCALLTYPE ChooseText(BSTR text, BSTR* value, LONG number) final {
        return Open(L"choose", text, value, number);
    }
    HRESULT STDMETHODCALLTYPE ViewText(BSTR text, BSTR* value) final { return Open(L"view", text, value, 0); }
    HRESULT STDMETHODCALLTYPE PlaceBeside(BSTR text, LONG frame) final { return Open(L"place", text, nullptr, frame); }
    HRESULT STDMETHODCALLTYPE Reserved1() final { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reserved2() final { return E_NOTIMPL; }

protected:
    // value: null for the dialog that has none. number: the choice, or the frame.
    virtual HRESULT Open(const wchar_t* dialog, BSTR argument, BSTR* value, LONG number) = 0;
};

// Hands out what it was given, of the right kind or not; nothing for null.
class HostStub : public StackObject<ITPFHost> {
public:
    explicit HostStub(IUnknown* session = nullptr, IUnknown* users = nullptr, IUnknown* dialogs = nullptr)
        : StackObject(IID_ITPFHost), m_session(session), m_users(users), m_dialogs(dialogs) {}
    HRESULT STDMETHODCALLTYPE CreateObject(REFGUID id, DWORD number, IUnknown** object) override {
        if (number != 1) return E_INVALIDARG;
        *object = IsEqualGUID(id, SID_SessionData)           ? m_session
                  : IsEqualGUID(id, SID_MultiUser)           ? m_users
                  : IsEqualGUID(id, CLSID_HostDialogService) ? m_dialogs
                                                             : nullptr;
        if (*object == nullptr) return E_NOINTERFACE;
        (*object)->AddRef();
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Reserved1() final { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reserved2() final { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reserved3() final { return E_NOTIMPL; }

private:
    IUnknown* m_session;
    IUnknown* m_users;
    IUnknown* m_dialogs;
};

}  // namespace qvtest
