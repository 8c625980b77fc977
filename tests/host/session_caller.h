// Session data as its callers use it, with owning types around the raw interface.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "framework/com.h"
#include "host/interfaces/session_data.h"

class SessionCaller {
public:
    explicit SessionCaller(ISessionDataManager& manager) : m_manager(manager) {}

    // Nothing when the call fails.
    std::optional<std::wstring> Read(SESSIONDATATYPE scope, std::wstring_view key, std::wstring_view name) {
        qv::Variant value;
        const HRESULT result = m_manager.ReadData(qv::Bstr(key).Get(), qv::Bstr(name).Get(), VT_BSTR, &value, scope);
        if (result != S_OK || value.vt != VT_BSTR) return std::nullopt;
        return qv::TextOf(value.bstrVal);
    }
    HRESULT Write(SESSIONDATATYPE scope, std::wstring_view key, std::wstring_view name, std::wstring_view text) {
        const qv::Variant value(text);
        return m_manager.WriteData(qv::Bstr(key).Get(), qv::Bstr(name).Get(), value, scope);
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
        qv::StringBlock block;
        if (m_manager.EnumSubKeys(qv::Bstr(key).Get(), flag, block.PutCount(), block.Put(), scope) != S_OK) return {};
        return Texts(block, 1);
    }
    // name, text, name, text ...
    std::optional<std::vector<std::wstring>> Values(std::wstring_view key, SESSIONDATATYPE scope = SDT_machineData) {
        qv::StringBlock block;
        block.SetStringsPerEntry(2);
        if (m_manager.EnumValues(qv::Bstr(key).Get(), block.PutCount(), block.Put(), scope) != S_OK) return {};
        return Texts(block, 2);
    }

private:
    static std::vector<std::wstring> Texts(const qv::StringBlock& block, std::size_t each) {
        std::vector<std::wstring> texts;
        for (std::size_t i = 0; i < block.Count() * each; ++i)
            texts.push_back(qv::TextOf(block.At(i)));
        return texts;
    }
    ISessionDataManager& m_manager;
};
