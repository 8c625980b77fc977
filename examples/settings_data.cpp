#include "settings_data.h"

namespace {

std::wstring TextOf(BSTR text) {
    return text != nullptr ? std::wstring(text, SysStringLen(text)) : std::wstring();
}

bool SameText(const std::wstring& a, const std::wstring& b) {
    return CompareStringOrdinal(a.c_str(), static_cast<int>(a.size()), b.c_str(), static_cast<int>(b.size()), TRUE) ==
           CSTR_EQUAL;
}

// Block and strings become the caller's, which frees them.
HRESULT HandOut(const std::vector<std::wstring>& texts, ULONG count, ULONG* countOut, BSTR** block) {
    *countOut = 0;
    *block = nullptr;
    if (texts.empty()) return S_OK;
    auto* const strings = static_cast<BSTR*>(CoTaskMemAlloc(texts.size() * sizeof(BSTR)));
    if (strings == nullptr) return E_OUTOFMEMORY;
    for (std::size_t i = 0; i < texts.size(); ++i)
        strings[i] = SysAllocStringLen(texts[i].data(), static_cast<UINT>(texts[i].size()));
    *countOut = count;
    *block = strings;
    return S_OK;
}

std::wstring ItemOf(BSTR key, BSTR name) {
    return TextOf(key) + L"/" + TextOf(name);
}

}  // namespace

DefinitionData::DefinitionData(Definitions definitions)
    : ComObject(__uuidof(ISessionDataManager)), m_definitions(std::move(definitions)) {}

HRESULT DefinitionData::EnumSubKeys(BSTR key, LONG flag, ULONG* count, BSTR** names, SESSIONDATATYPE) {
    if (count == nullptr || names == nullptr) return E_POINTER;
    const std::wstring prefix = TextOf(key) + L"/";
    std::vector<std::wstring> found;
    for (const auto& [name, attributes] : m_definitions) {
        if (name.size() <= prefix.size() || !SameText(name.substr(0, prefix.size()), prefix)) continue;
        // Flag 0 asks for direct children, flag 1 for definitions at any depth.
        const std::size_t slash = name.find(L'/', prefix.size());
        const std::wstring answer = flag == 0 ? name.substr(0, slash) : name;
        if (found.empty() || found.back() != answer) found.push_back(answer);
    }
    return HandOut(found, static_cast<ULONG>(found.size()), count, names);
}

HRESULT DefinitionData::EnumValues(BSTR key, ULONG* count, BSTR** namesAndTexts, SESSIONDATATYPE) {
    if (count == nullptr || namesAndTexts == nullptr) return E_POINTER;
    for (const auto& [name, attributes] : m_definitions) {
        if (!SameText(name, TextOf(key))) continue;
        std::vector<std::wstring> texts;
        for (const auto& [attribute, text] : attributes) {
            texts.push_back(attribute);
            texts.push_back(text);
        }
        return HandOut(texts, static_cast<ULONG>(attributes.size()), count, namesAndTexts);
    }
    return E_FAIL;
}

SettingsStore::SettingsStore() : ComObject(__uuidof(IQVSettingsDialogDataIO)) {}

HRESULT SettingsStore::GetData(BSTR bstrKeyName, BSTR bstrValueName, unsigned short varType, VARIANT* pVariantValue,
                               SESSIONDATATYPE) {
    if (pVariantValue == nullptr) return E_POINTER;
    VariantInit(pVariantValue);
    const auto found = values.find(ItemOf(bstrKeyName, bstrValueName));
    if (found == values.end() || varType != VT_BSTR) return E_FAIL;
    pVariantValue->vt = VT_BSTR;
    pVariantValue->bstrVal = SysAllocString(found->second.c_str());
    return S_OK;
}

HRESULT SettingsStore::WriteData(BSTR bstrKeyName, BSTR bstrValueName, VARIANT VariantValue, SESSIONDATATYPE) {
    if (VariantValue.vt != VT_BSTR) return E_INVALIDARG;
    values[ItemOf(bstrKeyName, bstrValueName)] = TextOf(VariantValue.bstrVal);
    return S_OK;
}

HRESULT SettingsStore::SaveData(SESSIONDATATYPE, BSTR bstrKeyName, BSTR bstrValueName) {
    saved.push_back(ItemOf(bstrKeyName, bstrValueName));
    return S_OK;
}
