#include "host/services/session_data_base.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "base/com.h"
#include "base/com_guard.h"
#include "base/text.h"

namespace qv {

namespace {

constexpr std::array kPermanentScopes{SDT_userData, SDT_userDataDB, SDT_machineData, SDT_globalData};
const HRESULT kNotFound = HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND);

// Hands texts out as the caller frees them. No texts make a null block.
HRESULT HandOut(const std::vector<std::wstring>& texts, ULONG count, ULONG* countOut, BSTR** block) {
    *countOut = 0;
    *block = nullptr;
    if (texts.empty()) return S_OK;
    auto* const strings = static_cast<BSTR*>(::CoTaskMemAlloc(texts.size() * sizeof(BSTR)));
    if (strings == nullptr) return E_OUTOFMEMORY;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        strings[i] = ::SysAllocStringLen(texts[i].data(), static_cast<UINT>(texts[i].size()));
        if (strings[i] != nullptr) continue;
        while (i > 0)
            ::SysFreeString(strings[--i]);
        ::CoTaskMemFree(strings);
        return E_OUTOFMEMORY;
    }
    *countOut = count;
    *block = strings;
    return S_OK;
}

// A write or a save names one scope; all of them is no place to keep a value.
bool CanHold(SESSIONDATATYPE scope) {
    return scope != SDT_allData;
}

}  // namespace

HRESULT SessionDataBase::QueryInterface(REFIID iid, void** object) {
    static const std::array<InterfaceEntry, 1> table{
        {{&IID_ISessionDataManager, InterfaceOffset<SessionDataBase, ISessionDataManager>()}}};
    return QueryInterfaceTable(this, table, iid, object);
}

std::vector<const ScopeData*> SessionDataBase::Sources(SESSIONDATATYPE scope) {
    std::vector<const ScopeData*> sources;
    if (scope == SDT_allData) {
        for (const SESSIONDATATYPE each : kPermanentScopes)
            sources.push_back(&Scope(each));
    } else {
        sources.push_back(&Scope(scope));
    }
    sources.push_back(&m_definitions);
    return sources;
}

HRESULT SessionDataBase::EnumSubKeys(BSTR key, LONG flag, ULONG* count, BSTR** names, SESSIONDATATYPE scope) {
    if (count == nullptr || names == nullptr) return E_POINTER;
    return Guarded([&] {
        const std::wstring path = TextOf(key);
        const auto depth = flag == 0 ? ScopeData::Depth::Children : ScopeData::Depth::Everything;
        std::vector<std::wstring> found;
        std::vector<const ScopeData*> asked;
        for (const ScopeData* source : Sources(scope)) {
            std::vector<std::wstring> below = source->KeysBelow(path, depth);
            if (below.empty()) continue;
            // A source names nothing twice; only another can have named it.
            const auto isFound = [&](const std::wstring& name) {
                return std::any_of(asked.begin(), asked.end(),
                                   [&](const ScopeData* earlier) { return earlier->Lists(name, depth); });
            };
            std::erase_if(below, isFound);
            std::move(below.begin(), below.end(), std::back_inserter(found));
            asked.push_back(source);
        }
        return HandOut(found, static_cast<ULONG>(found.size()), count, names);
    });
}

HRESULT SessionDataBase::EnumValues(BSTR key, ULONG* count, BSTR** namesAndTexts, SESSIONDATATYPE scope) {
    if (count == nullptr || namesAndTexts == nullptr) return E_POINTER;
    return Guarded([&] {
        const std::wstring path = TextOf(key);
        std::vector<const ScopeData::Key*> asked;
        std::vector<std::wstring> pairs;
        for (const ScopeData* source : Sources(scope)) {
            const ScopeData::Key* const found = source->FindKey(path);
            if (found == nullptr) continue;
            for (const auto& value : found->values) {
                const auto hasIt = [&](const ScopeData::Key* earlier) { return earlier->Find(value.name) != nullptr; };
                if (std::any_of(asked.begin(), asked.end(), hasIt)) continue;
                pairs.push_back(value.name);
                pairs.push_back(value.text);
            }
            asked.push_back(found);
        }
        if (asked.empty()) return kNotFound;
        return HandOut(pairs, static_cast<ULONG>(pairs.size() / 2), count, namesAndTexts);
    });
}

HRESULT SessionDataBase::ReadData(BSTR key, BSTR valueName, USHORT wantedType, VARIANT* value, SESSIONDATATYPE scope) {
    if (value == nullptr) return E_POINTER;
    return Guarded([&] {
        ::VariantInit(value);
        const std::wstring path = TextOf(key);
        const std::wstring name = TextOf(valueName);
        for (const ScopeData* source : Sources(scope)) {
            const std::wstring* const text = source->Find(path, name);
            if (text == nullptr) continue;
            Variant found(*text);
            const HRESULT changed = found.ChangeType(static_cast<VARTYPE>(wantedType));
            if (changed == S_OK) *value = found.Detach();
            return changed;
        }
        return kNotFound;
    });
}

HRESULT SessionDataBase::WriteData(BSTR key, BSTR valueName, VARIANT value, SESSIONDATATYPE scope) {
    return Guarded([&] {
        // A copy: what a caller hands in stays the caller's.
        const auto text = Receive<Variant>([&](VARIANT* out) { return ::VariantChangeType(out, &value, 0, VT_BSTR); });
        if (text.status != S_OK) return text.status;
        const std::wstring name = TextOf(valueName);
        if (!CanHold(scope) || name.empty()) return E_INVALIDARG;
        Scope(scope).Set(TextOf(key), name, text.value.Text().value_or(std::wstring_view()));
        return S_OK;
    });
}

HRESULT SessionDataBase::SaveData(SESSIONDATATYPE scope, BSTR key, BSTR valueName) {
    return Guarded([&] {
        if (!CanHold(scope)) return E_INVALIDARG;
        const std::wstring path = TextOf(key);
        const std::wstring name = TextOf(valueName);
        if (Scope(scope).Find(path, name) == nullptr) return kNotFound;
        return Save(scope, path, name);
    });
}

HRESULT SessionDataBase::LoadData(SESSIONDATATYPE scope) {
    return Guarded([&] {
        if (scope != SDT_allData) return Load(scope);
        for (const SESSIONDATATYPE each : kPermanentScopes) {
            if (const HRESULT loaded = Load(each); loaded != S_OK) return loaded;
        }
        return S_OK;
    });
}

ScopeData& SessionDataBase::Scope(SESSIONDATATYPE scope) {
    return m_scopes[scope];
}

HRESULT SessionDataBase::Load(SESSIONDATATYPE) {
    return S_OK;
}

HRESULT SessionDataBase::Save(SESSIONDATATYPE, std::wstring_view, std::wstring_view) {
    return S_OK;
}

}  // namespace qv
