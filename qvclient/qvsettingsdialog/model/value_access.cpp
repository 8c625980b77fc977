// Reading and writing one value: through the caller's own store when the dialog was opened with one, else through the
// session data. Either way there must be session data.
#include "framework/text.h"
#include "host/libraries/message_box.h"
#include "qvclient/qvsettingsdialog/model/construction_set.h"
#include "qvclient/qvsettingsdialog/model/range.h"
#include "qvclient/qvsettingsdialog/model/settings_path.h"

namespace {

std::wstring_view TextIn(const qv::Variant& value) {
    return value.bstrVal != nullptr ? std::wstring_view(value.bstrVal, SysStringLen(value.bstrVal))
                                    : std::wstring_view();
}

}  // namespace

bool XConstructionSet::ReadText(std::wstring_view definitionName, SESSIONDATATYPE scope, qv::Variant& value) {
    const auto path = qv::SplitValuePath(definitionName);
    if (!path || !m_sessionData) return false;
    const qv::Bstr key(path->key);
    const qv::Bstr name(path->name);
    const HRESULT result = m_dataIO != nullptr ? m_dataIO->GetData(key.Get(), name.Get(), VT_BSTR, &value, scope)
                                               : m_sessionData->ReadData(key.Get(), name.Get(), VT_BSTR, &value, scope);
    return result == S_OK && value.vt == VT_BSTR;
}

bool XConstructionSet::ReadString(std::wstring_view definitionName, SESSIONDATATYPE scope, std::wstring& value) {
    value.clear();
    qv::Variant stored;
    if (!ReadText(definitionName, scope, stored)) return false;
    value = qv::TrimView(TextIn(stored));
    return true;
}

bool XConstructionSet::ReadInteger(std::wstring_view definitionName, SESSIONDATATYPE scope, std::int32_t& value) {
    qv::Variant stored;
    if (!ReadText(definitionName, scope, stored) || TextIn(stored).empty()) return false;
    // deliberate: a text that the conversion refuses is a successful read of 0, not a reason to show the default.
    qv::Variant number;
    value = VariantChangeType(&number, &stored, 0, VT_I4) == S_OK ? static_cast<std::int32_t>(number.lVal) : 0;
    return true;
}

bool XConstructionSet::ReadDouble(std::wstring_view definitionName, SESSIONDATATYPE scope, double& value) {
    qv::Variant stored;
    if (!ReadText(definitionName, scope, stored)) return false;
    value = qv::TextToDouble(TextIn(stored));
    return true;
}

bool XConstructionSet::ReadBoolean(std::wstring_view definitionName, SESSIONDATATYPE scope, bool& value) {
    qv::Variant stored;
    if (!ReadText(definitionName, scope, stored)) return false;
    value = qv::TrimView(TextIn(stored)) == L"1";
    return true;
}

bool XConstructionSet::ReadStringList(std::wstring_view definitionName, SESSIONDATATYPE scope,
                                      std::vector<std::wstring>& value) {
    qv::Variant stored;
    if (!ReadText(definitionName, scope, stored)) return false;
    value.clear();
    SplitStringList(qv::TrimView(TextIn(stored)), value);
    return true;
}

void XConstructionSet::SplitStringList(std::wstring_view text, std::vector<std::wstring>& list) {
    for (;;) {
        const auto separator = text.find(L'|');
        list.emplace_back(qv::TrimView(text.substr(0, separator)));
        if (separator == std::wstring_view::npos) return;
        text.remove_prefix(separator + 1);
    }
}

void XConstructionSet::WriteAndSave(std::wstring_view key, std::wstring_view valueName, std::wstring_view text,
                                    SESSIONDATATYPE scope, CWnd& page) {
    const qv::Bstr keyText(key);
    const qv::Bstr name(valueName);
    const qv::Variant value(text);
    const HRESULT written = m_dataIO != nullptr ? m_dataIO->WriteData(keyText.Get(), name.Get(), value, scope)
                                                : m_sessionData->WriteData(keyText.Get(), name.Get(), value, scope);
    // deliberate: a refused write is silent; only a write that does not last is worth a word.
    if (written != S_OK) return;
    const HRESULT saved = m_dataIO != nullptr ? m_dataIO->SaveData(scope, keyText.Get(), name.Get())
                                              : m_sessionData->SaveData(scope, keyText.Get(), name.Get());
    if (saved == S_OK) return;

    const CWnd* sheet = page.GetParent();
    const CWnd* owner = sheet != nullptr ? sheet->GetParent() : nullptr;
    if (owner == nullptr) return;
    CoErrorBox(owner->m_hWnd, L"Store Settings",
               scope == m_controlPath
                   ? L"Can't store data.\nPossibly user hasn't write access to registry key HKEY_LOCAL_MACHINE"
                   : L"Can't store data.",
               0);
}
