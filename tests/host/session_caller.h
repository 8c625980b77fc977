// Session data as its callers use it, with owning types around the raw interface.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/com.h"
#include "host/interfaces/session_data.h"

class SessionCaller {
public:
    explicit SessionCaller(ISessionDataManager& manager) : m_manager(manager) {}

    // Nothing when the call fails.
    std::optional<std::wstring> Read(SESSIONDATATYPE scope, std::wstring_view key, std::wstring_view name) {
        const auto value = qv::Receive<qv::Variant>([&](VARIANT* out) {
            return m_manager.ReadData(qv::Bstr(key).Get(), qv::Bstr(name).Get(), VT_BSTR, out, scope);
        });
        const auto text = value.value.Text();
        return text ? std::optional<std::wstring>(*text) : std::nullopt;
    }
    HRESULT Write(SESSIONDATATYPE scope, std::wstring_view key, std::wstring_view name, std::wstring_view text) {
        const qv::Variant value(text);
        return m_manager.WriteData(qv::Bstr(key).Get(), qv::Bstr(name).Get(), value.Get(), scope);
    }
    HRESULT Save(SESSIONDATATYPE scope, std::wstring_view key, std::wstring_view name) {
        return m_manager.SaveData(scope, qv::Bstr(key).Get(), qv::Bstr(name).Get());
    }
    // Written and saved.
    bool Store(SESSIONDATATYPE scope, std::wstring_view key, std::wstring_view name, std::wstring_view text) {
        return Write(scope, key, name, text) == S_OK && Save(scope, key, name) == S_OK;
    }
    std::optional<std::vector<std::wstring>> SubKeys(std::wstring_view key, LONG flag,
                                                     SESSIONDATATYPE scope = SDT_machineData) {
        return Texts(1, [&](ULONG* count, BSTR** names) {
            return m_manager.EnumSubKeys(qv::Bstr(key).Get(), flag, count, names, scope);
        });
    }
    // name, text, name, text ...
    std::optional<std::vector<std::wstring>> Values(std::wstring_view key, SESSIONDATATYPE scope = SDT_machineData) {
        return Texts(2, [&](ULONG* count, BSTR** pairs) {
            return m_manager.EnumValues(qv::Bstr(key).Get(), count, pairs, scope);
        });
    }

private:
    template <class Call>
    static std::optional<std::vector<std::wstring>> Texts(ULONG each, const Call& call) {
        const auto block = qv::ReceiveStrings(each, call);
        if (block.status != S_OK) return std::nullopt;
        std::vector<std::wstring> texts;
        for (std::size_t i = 0; i < std::size_t{block.value.Count()} * each; ++i)
            texts.push_back(qv::TextOf(block.value.At(i)));
        return texts;
    }
    ISessionDataManager& m_manager;
};
