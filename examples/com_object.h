// The reference count of the client's own COM objects. They live on the stack of main and are never deleted; the count
// tells whether everybody who took a reference gave it back.
#pragma once

#include <windows.h>
// The SDK's headers depend on windows.h, so it stands first.
#include <ole2.h>

template <class Interface>
class ComObject : public Interface {
public:
    explicit ComObject(REFIID iid) : m_iid(iid) {}
    virtual ~ComObject() = default;
    ComObject(const ComObject&) = delete;
    ComObject& operator=(const ComObject&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
        if (object == nullptr) return E_POINTER;
        *object = IsEqualIID(iid, m_iid) || IsEqualIID(iid, IID_IUnknown) ? static_cast<Interface*>(this) : nullptr;
        if (*object == nullptr) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++m_references; }
    ULONG STDMETHODCALLTYPE Release() override { return --m_references; }
    [[nodiscard]] ULONG References() const { return m_references; }

private:
    const IID m_iid;
    ULONG m_references = 0;
};
