#include "base/com_module.h"

#include "base/com_guard.h"

#include <new>

namespace qv {
namespace {

class ClassFactory final : public IClassFactory, private ComObjectRoot {
public:
    ClassFactory(ComModule& module, const ObjectMapEntry& entry) : m_lock(module), m_module(module), m_entry(entry) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
        if (object == nullptr) return E_POINTER;
        *object = nullptr;
        if (!IsEqualIID(iid, IID_IUnknown) && !IsEqualIID(iid, IID_IClassFactory)) return E_NOINTERFACE;
        *object = static_cast<IClassFactory*>(this);
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return InternalAddRef(); }
    ULONG STDMETHODCALLTYPE Release() override { return InternalRelease(); }

    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** object) override {
        if (object == nullptr) return E_POINTER;
        *object = nullptr;
        if (outer != nullptr) return CLASS_E_NOAGGREGATION;
        return qv::Guarded([&] { return m_entry.create(iid, object); });
    }

    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override {
        if (lock != FALSE) {
            m_module.Lock();
        } else {
            m_module.Unlock();
        }
        return S_OK;
    }

private:
    ModuleLock m_lock;
    ComModule& m_module;
    const ObjectMapEntry& m_entry;
};

}  // namespace

HRESULT GetClassObject(ComModule& module, std::span<const ObjectMapEntry> map, REFCLSID classId, REFIID iid,
                       void** factory) noexcept {
    if (factory == nullptr) return E_POINTER;
    *factory = nullptr;
    for (const ObjectMapEntry& entry : map) {
        if (!IsEqualCLSID(*entry.classId, classId)) continue;
        auto* object = new (std::nothrow) ClassFactory(module, entry);
        if (object == nullptr) return E_OUTOFMEMORY;
        object->AddRef();
        const HRESULT result = object->QueryInterface(iid, factory);
        object->Release();
        return result;
    }
    return CLASS_E_CLASSNOTAVAILABLE;
}

HRESULT QueryInterfaceTable(void* object, std::span<const InterfaceEntry> table, REFIID iid, void** result) noexcept {
    if (result == nullptr) return E_POINTER;
    *result = nullptr;
    const bool wantsUnknown = IsEqualIID(iid, IID_IUnknown);
    for (const InterfaceEntry& entry : table) {
        if (!wantsUnknown && !IsEqualIID(*entry.id, iid)) continue;
        auto* found = reinterpret_cast<IUnknown*>(static_cast<char*>(object) + entry.offset);
        found->AddRef();
        *result = found;
        return S_OK;
    }
    return E_NOINTERFACE;
}

}  // namespace qv
