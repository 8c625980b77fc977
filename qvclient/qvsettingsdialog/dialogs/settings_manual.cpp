#include "qvclient/qvsettingsdialog/dialogs/settings_manual.h"

#include "base/com.h"

namespace {

constexpr std::wstring_view kFallbackLanguage = L"1033";

HRESULT Read(ISessionDataManager& sessionData, std::wstring_view key, std::wstring_view valueName, VARIANT* value) {
    const qv::Bstr keyText(key);
    const qv::Bstr nameText(valueName);
    return sessionData.ReadData(keyText.Get(), nameText.Get(), VT_BSTR, value, SDT_allData);
}

// The variant's own text ends with it. Nothing for a variant of another type.
std::optional<std::wstring> CopyText(const qv::Variant& value) {
    const auto text = value.Text();
    return text ? std::optional<std::wstring>(*text) : std::nullopt;
}

std::optional<std::wstring> ReadHelpPath(ISessionDataManager& sessionData) {
    VARIANT value;
    VariantInit(&value);
    // The capital letter is how hosts store this one key.
    const HRESULT status = Read(sessionData, L"Common", L"help_path", &value);
    if (status == S_OK) return CopyText(qv::Variant::Adopt(value));
    // Deliberate: a text counts here even when the read failed. It is copied, if it can be read at all, and never
    // freed: what a failed call leaves behind does not belong to its caller.
    return value.vt == VT_BSTR ? qv::CopyUncertainText(value.bstrVal) : std::nullopt;
}

std::optional<std::wstring> ReadLanguage(ISessionDataManager& sessionData) {
    return CopyText(qv::Receive<qv::Variant>([&](VARIANT* value) {
                        return Read(sessionData, L"common", L"languageid", value);
                    }).value);
}

}  // namespace

std::optional<std::wstring> SettingsManualPath(ISessionDataManager& sessionData) {
    const std::optional<std::wstring> helpPath = ReadHelpPath(sessionData);
    if (!helpPath) return std::nullopt;
    // Deliberate: the fallback language stands in for an empty text only. Where the host names no language at all, the
    // segment stays empty.
    std::optional<std::wstring> language = ReadLanguage(sessionData);
    if (language && language->empty()) language = kFallbackLanguage;
    return *helpPath + L"\\" + language.value_or(std::wstring()) + L"\\Settingsmanual.pdf";
}
