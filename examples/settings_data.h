// The client's data: a definition tree that never changes, and values in memory. Keys and names compare without case,
// as hosts' session data do.
#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "com_object.h"
#include "host_interfaces.h"
#include "qvsettingsdialog.h"

// Definitions: key -> name -> text, in the order in which the dialog shall read them.
using Attributes = std::vector<std::pair<std::wstring, std::wstring>>;
using Definitions = std::vector<std::pair<std::wstring, Attributes>>;

// Reads the tree to the dialog. The values are the SettingsStore's business.
class DefinitionData final : public ComObject<ISessionDataManager> {
public:
    explicit DefinitionData(Definitions definitions);

    HRESULT STDMETHODCALLTYPE EnumSubKeys(BSTR key, LONG flag, ULONG* count, BSTR** names,
                                          SESSIONDATATYPE scope) override;
    HRESULT STDMETHODCALLTYPE EnumValues(BSTR key, ULONG* count, BSTR** namesAndTexts, SESSIONDATATYPE scope) override;
    HRESULT STDMETHODCALLTYPE LoadData(SESSIONDATATYPE) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE ReadData(BSTR, BSTR, USHORT, VARIANT*, SESSIONDATATYPE) override { return E_FAIL; }
    HRESULT STDMETHODCALLTYPE WriteData(BSTR, BSTR, VARIANT, SESSIONDATATYPE) override { return E_FAIL; }
    HRESULT STDMETHODCALLTYPE SaveData(SESSIONDATATYPE, BSTR, BSTR) override { return E_FAIL; }

    // The dialog calls none of these.
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
    Definitions m_definitions;
};

// The value store that the client hands in: the dialog reads and writes every value here.
class SettingsStore final : public ComObject<IQVSettingsDialogDataIO> {
public:
    SettingsStore();

    HRESULT STDMETHODCALLTYPE GetData(BSTR bstrKeyName, BSTR bstrValueName, unsigned short varType,
                                      VARIANT* pVariantValue, SESSIONDATATYPE dataType) override;
    HRESULT STDMETHODCALLTYPE WriteData(BSTR bstrKeyName, BSTR bstrValueName, VARIANT VariantValue,
                                        SESSIONDATATYPE dataType) override;
    HRESULT STDMETHODCALLTYPE SaveData(SESSIONDATATYPE dataType, BSTR bstrKeyName, BSTR bstrValueName) override;

    std::map<std::wstring, std::wstring> values;  // by key/name
    std::vector<std::wstring> saved;              // the same, in the order of saving
};
