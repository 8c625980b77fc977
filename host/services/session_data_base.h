// The part that every session data manager of the reference host shares: the COM face over data in memory. Derived
// classes say where a scope's data comes from and how a value is made permanent.
#pragma once

#include <map>

#include "base/com_module.h"
#include "host/interfaces/session_data.h"
#include "host/services/scope_data.h"

namespace qv {

class SessionDataBase : public ComObjectRoot, public ISessionDataManager {
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return InternalAddRef(); }
    ULONG STDMETHODCALLTYPE Release() override { return InternalRelease(); }

    HRESULT STDMETHODCALLTYPE EnumSubKeys(BSTR key, LONG flag, ULONG* count, BSTR** names,
                                          SESSIONDATATYPE scope) override;
    HRESULT STDMETHODCALLTYPE SaveData(SESSIONDATATYPE scope, BSTR key, BSTR valueName) override;
    HRESULT STDMETHODCALLTYPE ReadData(BSTR key, BSTR valueName, USHORT wantedType, VARIANT* value,
                                       SESSIONDATATYPE scope) override;
    HRESULT STDMETHODCALLTYPE WriteData(BSTR key, BSTR valueName, VARIANT value, SESSIONDATATYPE scope) override;
    HRESULT STDMETHODCALLTYPE EnumValues(BSTR key, ULONG* count, BSTR** namesAndTexts, SESSIONDATATYPE scope) override;
    HRESULT STDMETHODCALLTYPE LoadData(SESSIONDATATYPE scope) override;

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

    // The definition tree: seen in every scope, after the scope's own data, and never written.
    [[nodiscard]] ScopeData& Definitions() noexcept { return m_definitions; }

protected:
    // The scope's data, made available first if need be. Never SDT_allData.
    virtual ScopeData& Scope(SESSIONDATATYPE scope);
    // Reads the scope's data again. Never SDT_allData.
    virtual HRESULT Load(SESSIONDATATYPE scope);
    // Makes a value, which is there, permanent.
    virtual HRESULT Save(SESSIONDATATYPE scope, std::wstring_view key, std::wstring_view name);

private:
    // What answers for a scope, in order of precedence.
    [[nodiscard]] std::vector<const ScopeData*> Sources(SESSIONDATATYPE scope);

    ScopeData m_definitions;
    std::map<SESSIONDATATYPE, ScopeData> m_scopes;
};

}  // namespace qv
