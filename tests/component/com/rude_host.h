// A host that behaves until its turn comes: at one call of a whole run, whichever the test names, it leaves in the out
// parameters what no caller can use. Everything else goes to the well-behaved host that it stands in front of.
#pragma once

#include "host/interfaces/dialog_service.h"
#include "host/interfaces/multi_user.h"
#include "host/interfaces/session_data.h"
#include "host/interfaces/tpf.h"
#include "qvclient/qvsettingsdialog/resources/settings_interfaces.h"

enum class Rudeness {
    FailsWithPoison,   // a failing status, pointers that lead nowhere
    FalseWithPoison,   // S_FALSE, which is a failure of session data, and the same pointers
    NothingDelivered,  // S_OK and null pointers, a null block with a count, a null text
    SomethingElse,     // S_OK and a number for a text, an empty block with memory behind it
};

// Counts the calls that hand something out.
struct RudeTurn {
    [[nodiscard]] bool Comes() noexcept { return ++calls == rudeCall; }
    int rudeCall = 0;  // from 1; 0: none
    Rudeness how = Rudeness::FailsWithPoison;
    int calls = 0;
};

// References are counted and belong to the test; the objects live on its stack.
template <class Interface>
class RudeObject : public Interface {
public:
    RudeObject(RudeTurn& turn, const IID& iid) : m_turn(turn), m_iid(iid) {}
    virtual ~RudeObject() = default;
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override { return --references; }
    ULONG references = 0;

protected:
    RudeTurn& m_turn;

private:
    const IID& m_iid;
};

class RudeSession final : public RudeObject<ISessionDataManager> {
public:
    RudeSession(RudeTurn& turn, ISessionDataManager& real) : RudeObject(turn, IID_ISessionDataManager), m_real(real) {}
    HRESULT STDMETHODCALLTYPE EnumSubKeys(BSTR key, LONG flag, ULONG* count, BSTR** names,
                                          SESSIONDATATYPE scope) override;
    HRESULT STDMETHODCALLTYPE ReadData(BSTR key, BSTR name, USHORT type, VARIANT* value,
                                       SESSIONDATATYPE scope) override;
    HRESULT STDMETHODCALLTYPE EnumValues(BSTR key, ULONG* count, BSTR** pairs, SESSIONDATATYPE scope) override;
    HRESULT STDMETHODCALLTYPE SaveData(SESSIONDATATYPE scope, BSTR key, BSTR name) override {
        return m_real.SaveData(scope, key, name);
    }
    HRESULT STDMETHODCALLTYPE WriteData(BSTR key, BSTR name, VARIANT value, SESSIONDATATYPE scope) override {
        return m_real.WriteData(key, name, value, scope);
    }
    HRESULT STDMETHODCALLTYPE LoadData(SESSIONDATATYPE scope) override { return m_real.LoadData(scope); }
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
    ISessionDataManager& m_real;
};

// Grants everything.
class RudeUsers final : public RudeObject<IMultiUserManager> {
public:
    explicit RudeUsers(RudeTurn& turn) : RudeObject(turn, IID_IMultiUserManager) {}
    HRESULT STDMETHODCALLTYPE CheckRight(BSTR) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE Reserved1() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reserved2() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reserved3() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reserved4() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reserved5() override { return E_NOTIMPL; }
};

// Its turn to be good: every text becomes "edited".
class RudeDialogs final : public RudeObject<HostDialogService> {
public:
    explicit RudeDialogs(RudeTurn& turn) : RudeObject(turn, IID_HostDialogService) {}
    HRESULT STDMETHODCALLTYPE EditText(BSTR, BSTR* value) override { return Answer(value); }
    HRESULT STDMETHODCALLTYPE ChooseText(BSTR, BSTR* value, LONG) override { return Answer(value); }
    HRESULT STDMETHODCALLTYPE ViewText(BSTR, BSTR* value) override { return Answer(value); }
    HRESULT STDMETHODCALLTYPE PlaceBeside(BSTR, LONG) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE Reserved1() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reserved2() override { return E_NOTIMPL; }

private:
    HRESULT Answer(BSTR* value);
};

class RudeHost final : public RudeObject<ITPFHost> {
public:
    RudeHost(RudeTurn& turn, RudeSession& session, RudeUsers& users, RudeDialogs& dialogs);
    HRESULT STDMETHODCALLTYPE CreateObject(REFGUID id, DWORD number, IUnknown** object) override;
    HRESULT STDMETHODCALLTYPE Reserved1() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reserved2() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reserved3() override { return E_NOTIMPL; }

private:
    RudeSession& m_session;
    RudeUsers& m_users;
    RudeDialogs& m_dialogs;
};

// A caller's own store in front of the same session data.
class RudeStore final : public RudeObject<IQVSettingsDialogDataIO> {
public:
    RudeStore(RudeTurn& turn, ISessionDataManager& real)
        : RudeObject(turn, IID_IQVSettingsDialogDataIO), m_real(real) {}
    HRESULT STDMETHODCALLTYPE GetData(BSTR key, BSTR name, USHORT type, VARIANT* value, SESSIONDATATYPE scope) override;
    HRESULT STDMETHODCALLTYPE WriteData(BSTR key, BSTR name, VARIANT value, SESSIONDATATYPE scope) override {
        return m_real.WriteData(key, name, value, scope);
    }
    HRESULT STDMETHODCALLTYPE SaveData(SESSIONDATATYPE scope, BSTR key, BSTR name) override {
        return m_real.SaveData(scope, key, name);
    }

private:
    ISessionDataManager& m_real;
};
