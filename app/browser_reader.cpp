#include "app/browser_reader.h"

#include "base/text.h"
#include "host/libraries/browser_settings.h"

namespace qv {

namespace {

ComPtr<ISessionDataManager> g_sessionData;

std::wstring Stored(const wchar_t* name) {
    const Bstr key(L"common");
    const Bstr valueName(name);
    const auto value = Receive<Variant>(
        [&](VARIANT* out) { return g_sessionData->ReadData(key.Get(), valueName.Get(), VT_BSTR, out, SDT_allData); });
    return std::wstring(value.value.Text().value_or(std::wstring_view()));
}

void Read(XQVBrowserSettings& settings) {
    settings.m_source = ComPtr<IUnknown>(g_sessionData.Get());
    settings.m_numbers[0] = LeadingInteger(Stored(L"numberofrecentitems"));
    settings.m_flags[0] = Stored(L"tips") == L"1" ? 1 : 0;
    settings.m_flags[1] = Stored(L"confirmexit") == L"1" ? 1 : 0;
    settings.m_texts[0] = Stored(L"username");
    settings.m_texts[1] = Stored(L"startview");
}

}  // namespace

void ReadBrowserSettingsFrom(ISessionDataManager* sessionData) {
    XQVBrowserSettings::SetReader(nullptr);
    g_sessionData = sessionData;
    if (sessionData != nullptr) XQVBrowserSettings::SetReader(&Read);
}

}  // namespace qv
