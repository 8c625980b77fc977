// Reading and writing one value: through the caller's own store when the dialog was opened with one, else through the
// session data. Either way there must be session data.
#include "framework/text.h"
#include "host/libraries/message_box.h"
#include "qvclient/qvsettingsdialog/model/construction_set.h"
#include "qvclient/qvsettingsdialog/model/range.h"
#include "qvclient/qvsettingsdialog/model/settings_path.h"

qv::Variant XConstructionSet::ReadText(std::wstring_view definitionName, SESSIONDATATYPE scope) {
    const auto path = qv::SplitValuePath(definitionName);
    if (!path || !m_sessionData) return {};
    const qv::Bstr key(path->key);
    const qv::Bstr name(path->name);
    return qv::Receive<qv::Variant>([&](VARIANT* value) {
               return m_dataIO != nullptr ? m_dataIO->GetData(key.Get(), name.Get(), VT_BSTR, value, scope)
                                          : m_sessionData->ReadData(key.Get(), name.Get(), VT_BSTR, value, scope);
           })
        .value;
}

bool XConstructionSet::ReadString(std::wstring_view definitionName, SESSIONDATATYPE scope, std::wstring& value) {
    value.clear();
    const qv::Variant stored = ReadText(definitionName, scope);
    const auto text = stored.Text();
    if (!text) return false;
    value = qv::TrimView(*text);
    return true;
}

bool XConstructionSet::ReadInteger(std::wstring_view definitionName, SESSIONDATATYPE scope, std::int32_t& value) {
    qv::Variant stored = ReadText(definitionName, scope);
    if (stored.Text().value_or(std::wstring_view()).empty()) return false;
    // deliberate: a text that the conversion refuses is a successful read of 0, not a reason to show the default.
    value = stored.ChangeType(VT_I4) == S_OK ? static_cast<std::int32_t>(stored.Get().lVal) : 0;
    return true;
}

bool XConstructionSet::ReadDouble(std::wstring_view definitionName, SESSIONDATATYPE scope, double& value) {
    const qv::Variant stored = ReadText(definitionName, scope);
    const auto text = stored.Text();
    if (!text) return false;
    value = qv::TextToDouble(*text);
    return true;
}

bool XConstructionSet::ReadBoolean(std::wstring_view definitionName, SESSIONDATATYPE scope, bool& value) {
    const qv::Variant stored = ReadText(definitionName, scope);
    const auto text = stored.Text();
    if (!text) return false;
    value = qv::TrimView(*text) == L"1";
    return true;
}

bool XConstructionSet::ReadStringList(std::wstring_view definitionName, SESSIONDATATYPE scope,
                                      std::vector<std::wstring>& value) {
    const qv::Variant stored = ReadText(definitionName, scope);
    const auto text = stored.Text();
    if (!text) return false;
    value.clear();
    SplitStringList(qv::TrimView(*text), value);
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
    const HRESULT written = m_dataIO != nullptr
                                ? m_dataIO->WriteData(keyText.Get(), name.Get(), value.Get(), scope)
                                : m_sessionData->WriteData(keyText.Get(), name.Get(), value.Get(), scope);
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
