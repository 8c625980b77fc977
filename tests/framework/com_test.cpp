#include "framework/com.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "framework/com_module.h"
#include "framework/module_state.h"

namespace {

qv::ComModule g_module;
int g_alive = 0;

struct IThing : IUnknown {
    virtual int STDMETHODCALLTYPE Answer() = 0;
};
const IID kThingId{0x7d0f0c01, 0x5a11, 0x4c1e, {1, 2, 3, 4, 5, 6, 7, 8}};
const CLSID kThingClass{0x7d0f0c02, 0x5a11, 0x4c1e, {1, 2, 3, 4, 5, 6, 7, 8}};
const CLSID kThrowingClass{0x7d0f0c03, 0x5a11, 0x4c1e, {1, 2, 3, 4, 5, 6, 7, 8}};

class Thing final : public IThing, private qv::ComObjectRoot {
public:
    Thing() { ++g_alive; }
    ~Thing() override { --g_alive; }
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
        const qv::InterfaceEntry table[] = {{&kThingId, qv::InterfaceOffset<Thing, IThing>()}};
        return qv::QueryInterfaceTable(this, table, iid, object);
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return InternalAddRef(); }
    ULONG STDMETHODCALLTYPE Release() override { return InternalRelease(); }
    int STDMETHODCALLTYPE Answer() override { return 42; }

private:
    qv::ModuleLock m_lock{g_module};
};

HRESULT CreateThing(REFIID iid, void** object) {
    const qv::ComPtr<Thing> thing(new Thing);
    return thing->QueryInterface(iid, object);
}

HRESULT CreateNothing(REFIID, void**) {
    throw std::runtime_error("no thing today");
}

const qv::ObjectMapEntry kMap[] = {{&kThingClass, &CreateThing}, {&kThrowingClass, &CreateNothing}};

qv::ComPtr<IClassFactory> Factory(REFCLSID classId) {
    qv::ComPtr<IClassFactory> factory;
    EXPECT_EQ(qv::GetClassObject(g_module, kMap, classId, IID_IClassFactory, reinterpret_cast<void**>(factory.Put())),
              S_OK);
    return factory;
}

TEST(ClassFactory, MakesObjectsThatKeepTheModuleLoaded) {
    {
        auto factory = Factory(kThingClass);
        EXPECT_EQ(g_module.LockCount(), 1);
        qv::ComPtr<IThing> thing;
        ASSERT_EQ(factory->CreateInstance(nullptr, kThingId, reinterpret_cast<void**>(thing.Put())), S_OK);
        factory.Reset();
        EXPECT_EQ(thing->Answer(), 42);
        EXPECT_EQ(g_module.LockCount(), 1);
    }
    EXPECT_EQ(g_alive, 0);
    EXPECT_EQ(g_module.LockCount(), 0);
}

TEST(ClassFactory, ServerLocksOutliveTheFactory) {
    Factory(kThingClass)->LockServer(TRUE);
    EXPECT_EQ(g_module.LockCount(), 1);
    Factory(kThingClass)->LockServer(FALSE);
    EXPECT_EQ(g_module.LockCount(), 0);
}

TEST(ClassFactory, RefusalsLeaveANullResultAndNoLock) {
    auto* const stale = reinterpret_cast<void*>(0x1234);
    void* out = stale;
    EXPECT_EQ(qv::GetClassObject(g_module, kMap, kThingId, IID_IClassFactory, &out), CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(out, nullptr);
    out = stale;
    EXPECT_EQ(qv::GetClassObject(g_module, kMap, kThingClass, kThingId, &out), E_NOINTERFACE);
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(qv::GetClassObject(g_module, kMap, kThingClass, IID_IUnknown, nullptr), E_POINTER);

    out = stale;
    EXPECT_EQ(Factory(kThingClass)->CreateInstance(nullptr, IID_IDispatch, &out), E_NOINTERFACE);
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(Factory(kThingClass)->CreateInstance(nullptr, kThingId, nullptr), E_POINTER);
    EXPECT_EQ(Factory(kThrowingClass)->CreateInstance(nullptr, kThingId, &out), E_FAIL);
    qv::ComPtr<Thing> outer(new Thing);
    EXPECT_EQ(Factory(kThingClass)->CreateInstance(outer.Get(), IID_IUnknown, &out), CLASS_E_NOAGGREGATION);
    outer.Reset();
    EXPECT_EQ(g_alive, 0);
    EXPECT_EQ(g_module.LockCount(), 0);
}

TEST(ComPtr, CountsReferences) {
    auto* raw = new Thing;
    {
        qv::ComPtr<Thing> first(raw);
        qv::ComPtr<Thing> second = first;
        first = std::move(second);
        EXPECT_FALSE(second);  // NOLINT(bugprone-use-after-move): the point of the test
        Thing* handedOver = first.Detach();
        EXPECT_EQ(g_alive, 1);
        first = qv::ComPtr<Thing>::Adopt(handedOver);
        first = nullptr;
        EXPECT_EQ(g_alive, 0);
    }
}

TEST(ModuleState, InnermostSwitchDecidesWhereResourcesComeFrom) {
    auto* const host = reinterpret_cast<HINSTANCE>(0x10000);
    auto* const component = reinterpret_cast<HINSTANCE>(0x20000);
    ModuleState hostState{host, nullptr};
    ModuleState componentState{component, nullptr};
    EXPECT_EQ(GetResourceHandle(), GetModuleHandleW(nullptr));
    {
        const ModuleStateSwitch outer(hostState);
        {
            const ModuleStateSwitch inner(componentState);
            EXPECT_EQ(GetResourceHandle(), component);
        }
        EXPECT_EQ(GetResourceHandle(), host);
    }
    EXPECT_EQ(GetResourceHandle(), GetModuleHandleW(nullptr));
}

}  // namespace
