// ValueStore: where the items' values are kept, whichever interface of the host that is: the session data, or the store
// that the dialog's caller brought along. Key and name say where, scope in which of the data scopes.
#pragma once

#include "base/com.h"
#include "host/interfaces/session_data.h"

namespace qv {

class ValueStore {
public:
    virtual ~ValueStore() = default;
    // The stored value; without a text when there is none, or none that is a text.
    [[nodiscard]] virtual Variant Read(BSTR key, BSTR name, SESSIONDATATYPE scope) = 0;
    // S_OK or why not. A written value lasts only once it is saved.
    [[nodiscard]] virtual HRESULT Write(BSTR key, BSTR name, const VARIANT& value, SESSIONDATATYPE scope) = 0;
    [[nodiscard]] virtual HRESULT Save(BSTR key, BSTR name, SESSIONDATATYPE scope) = 0;
};

// Both interfaces of the host have the same operations; only reading is called differently. The interface is borrowed.
template <class Interface, auto kRead>
class HostValueStore final : public ValueStore {
public:
    explicit HostValueStore(Interface& host) : m_host(host) {}
    Variant Read(BSTR key, BSTR name, SESSIONDATATYPE scope) override {
        return Receive<Variant>([&](VARIANT* value) { return (m_host.*kRead)(key, name, VT_BSTR, value, scope); })
            .value;
    }
    HRESULT Write(BSTR key, BSTR name, const VARIANT& value, SESSIONDATATYPE scope) override {
        return m_host.WriteData(key, name, value, scope);
    }
    HRESULT Save(BSTR key, BSTR name, SESSIONDATATYPE scope) override { return m_host.SaveData(scope, key, name); }

private:
    Interface& m_host;
};

}  // namespace qv
