// COM server machinery: a reference-counted object root, the class factory over an object map, and the module's lock
// count. Single-threaded objects (apartment model); the lock count alone is thread-safe.
#pragma once

#include <atomic>
#include <span>

#include "platform/platform.h"

namespace qv {

// How many reasons there are to keep the module loaded: live objects and LockServer calls. One a module.
class ComModule {
public:
    void Lock() noexcept { ++m_locks; }
    void Unlock() noexcept { --m_locks; }
    [[nodiscard]] long LockCount() const noexcept { return m_locks; }

private:
    std::atomic<long> m_locks{0};
};

// One lock for as long as the object lives: a member of every class whose instances keep the module loaded.
class ModuleLock {
public:
    explicit ModuleLock(ComModule& module) noexcept : m_module(module) { m_module.Lock(); }
    ~ModuleLock() { m_module.Unlock(); }
    ModuleLock(const ModuleLock&) = delete;
    ModuleLock& operator=(const ModuleLock&) = delete;

private:
    ComModule& m_module;
};

// One creatable class: its identifier and a function that makes an object, queries it for the interface and hands it
// out with one reference.
struct ObjectMapEntry {
    const CLSID* classId;
    HRESULT (*create)(REFIID iid, void** object);
};

// The class factory for a class of the map, queried for iid. CLASS_E_CLASSNOTAVAILABLE when it is not in the map,
// E_POINTER for a null out pointer; *factory is null on every failure. Every live factory holds one module lock;
// instances hold theirs through a ModuleLock of their own. The map must outlive the factories.
[[nodiscard]] HRESULT GetClassObject(ComModule& module, std::span<const ObjectMapEntry> map, REFCLSID classId,
                                     REFIID iid, void** factory) noexcept;

// One row of a query-interface table: the identifier and the offset of the interface in the object.
struct InterfaceEntry {
    const IID* id;
    std::ptrdiff_t offset;
};

// Offset of a base interface within an object, for InterfaceEntry.
template <class Object, class Interface>
[[nodiscard]] std::ptrdiff_t InterfaceOffset() {
    auto* object = reinterpret_cast<Object*>(0x1000);
    return reinterpret_cast<char*>(static_cast<Interface*>(object)) - reinterpret_cast<char*>(object);
}

// Answers from the table; the first entry also answers IUnknown. E_POINTER for a null out pointer, E_NOINTERFACE with a
// null result for an unknown interface.
[[nodiscard]] HRESULT QueryInterfaceTable(void* object, std::span<const InterfaceEntry> table, REFIID iid,
                                          void** result) noexcept;

// Reference count of a single-threaded object, deleted when the last reference goes.
class ComObjectRoot {
public:
    ComObjectRoot(const ComObjectRoot&) = delete;
    ComObjectRoot& operator=(const ComObjectRoot&) = delete;

protected:
    ComObjectRoot() = default;
    virtual ~ComObjectRoot() = default;
    ULONG InternalAddRef() noexcept { return ++m_references; }
    ULONG InternalRelease() noexcept {
        const ULONG left = --m_references;
        if (left == 0) delete this;
        return left;
    }

private:
    ULONG m_references = 0;
};

}  // namespace qv
