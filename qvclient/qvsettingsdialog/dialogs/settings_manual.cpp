#include "qvclient/qvsettingsdialog/dialogs/settings_manual.h"

#include "framework/com.h"

namespace {

constexpr std::wstring_view kFallbackLanguage = L"1033";

bool Read(ISessionDataManager& sessionData, std::wstring_view key, std::wstring_view valueName, qv::Variant& value) {
    const qv::Bstr keyText(key);
    const qv::Bstr nameText(valueName);
    return sessionData.ReadData(keyText.Get(), nameText.Get(), VT_BSTR, &value, SDT_allData) == S_OK;
}

std::wstring TextIn(const qv::Variant& value) {
    return value.vt == VT_BSTR ? qv::TextOf(value.bstrVal) : std::wstring();
}

}  // namespace

std::optional<std::wstring> SettingsManualPath(ISessionDataManager& sessionData) {
    qv::Variant helpPath;
    // The capital letter is how hosts store this one key.
    const bool hasPath = Read(sessionData, L"Common", L"help_path", helpPath);
    if (!hasPath && (helpPath.vt != VT_BSTR || helpPath.bstrVal == nullptr)) return std::nullopt;

    // Deliberate: the fallback language stands in for an empty text only. Where the host names no language at all, the
    // segment stays empty.
    std::wstring language;
    qv::Variant languageId;
    if (Read(sessionData, L"common", L"languageid", languageId)) {
        language = TextIn(languageId);
        if (language.empty()) language = kFallbackLanguage;
    }
    return TextIn(helpPath) + L"\\" + language + L"\\Settingsmanual.pdf";
}
