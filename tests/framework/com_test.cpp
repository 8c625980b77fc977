#include "base/com.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <stdexcept>

#include "base/com_module.h"
#include "base/module_state.h"

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
    auto factory = qv::Receive<qv::ComPtr<IClassFactory>>(
        [&](auto out) { return qv::GetClassObject(g_module, kMap, classId, IID_IClassFactory, out); });
    EXPECT_EQ(factory.status, S_OK);
    return std::move(factory.value);
}

TEST(ClassFactory, MakesObjectsThatKeepTheModuleLoaded) {
    {
        auto factory = Factory(kThingClass);
        EXPECT_EQ(g_module.LockCount(), 1);
        const auto thing = qv::Receive<qv::ComPtr<IThing>>([&](auto out) {
                               return factory->CreateInstance(nullptr, kThingId, out);
                           }).value;
        ASSERT_TRUE(thing);
        factory.Reset();
        EXPECT_EQ(thing->Answer(), 42);
        EXPECT_EQ(g_module.LockCount(), 1);
    }
    EXPECT_EQ(g_alive, 0);
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

template <class T>
T* Poison() {
    return reinterpret_cast<T*>(std::uintptr_t{0xDDDDDDDDDDDDDDDD});
}

// Whatever a call answers but S_OK, what it left is neither used nor released.
TEST(Receive, TakesOverOnlyWhatASuccessfulCallHandsOut) {
    for (const HRESULT status : {E_FAIL, S_FALSE, E_OUTOFMEMORY}) {
        const auto thing = qv::Receive<qv::ComPtr<IThing>>([&](IThing** out) {
            *out = Poison<IThing>();
            return status;
        });
        EXPECT_EQ(thing.status, status);
        EXPECT_FALSE(thing.value);
        const auto text = qv::Receive<qv::Bstr>([&](BSTR* out) {
            *out = Poison<OLECHAR>();
            return status;
        });
        EXPECT_EQ(text.value.Get(), nullptr);
        const auto value = qv::Receive<qv::Variant>([&](VARIANT* out) {
            out->vt = VT_BSTR;
            out->bstrVal = Poison<OLECHAR>();
            return status;
        });
        EXPECT_FALSE(value.value.Text());
        const auto strings = qv::ReceiveStrings(2, [&](ULONG* count, BSTR** out) {
            *count = 7;
            *out = Poison<BSTR>();
            return status;
        });
        EXPECT_EQ(strings.value.Count(), 0U);
    }
    EXPECT_EQ(qv::QueryFor<IThing>(*Factory(kThingClass).Get(), kThingId).Get(), nullptr);
    {
        const auto thing = qv::Receive<qv::ComPtr<IThing>>([](auto out) { return CreateThing(kThingId, out); });
        EXPECT_EQ(thing.status, S_OK);
        EXPECT_EQ(g_alive, 1);
    }
    EXPECT_EQ(g_alive, 0);
    const auto text = qv::Receive<qv::Variant>([](VARIANT* out) {
        out->vt = VT_BSTR;
        out->bstrVal = SysAllocString(L"mine now");
        return S_OK;
    });
    EXPECT_EQ(text.value.Text(), L"mine now");
}

// All the strings of every entry go with the block; where any is left, the sanitized build says so.
TEST(Receive, OwnsABlockWithAllItsStrings) {
    const auto block = qv::ReceiveStrings(2, [](ULONG* count, BSTR** out) {
        *count = 2;
        *out = static_cast<BSTR*>(CoTaskMemAlloc(4 * sizeof(BSTR)));
        for (int i = 0; i < 4; ++i)
            (*out)[i] = i == 2 ? nullptr : SysAllocString(L"text");
        return S_OK;
    });
    EXPECT_EQ(block.value.Count(), 2U);
    EXPECT_EQ(qv::TextOf(block.value.At(3)), L"text");
    const auto empty = qv::ReceiveStrings(2, [](ULONG* count, BSTR** out) {
        *count = 0;
        *out = static_cast<BSTR*>(CoTaskMemAlloc(sizeof(BSTR)));
        return S_OK;
    });
    EXPECT_EQ(empty.value.Count(), 0U);
    const auto none = qv::ReceiveStrings(2, [](ULONG* count, BSTR**) {
        *count = 5;
        return S_OK;
    });
    EXPECT_EQ(none.value.Count(), 0U) << "a count without a block";
}

TEST(Exchange, OneStringIsArgumentAndResult) {
    const struct {
        const char* name;
        HRESULT status;
        bool frees;   // the argument, before another takes its place
        BSTR leaves;  // in the variable, where it frees
        const wchar_t* expected;
    } cases[] = {
        {"left alone", S_OK, false, nullptr, L"mine"},   {"replaced", S_OK, true, SysAllocString(L"yours"), L"yours"},
        {"emptied", S_FALSE, true, nullptr, L""},        {"failed, left alone", E_FAIL, false, nullptr, L""},
        {"failed, emptied", E_FAIL, true, nullptr, L""}, {"failed, poisoned", E_FAIL, true, Poison<OLECHAR>(), L""},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        const auto result = qv::Exchange(L"mine", [&](BSTR argument, BSTR* variable) {
            EXPECT_EQ(argument, *variable);
            EXPECT_EQ(qv::TextOf(argument), L"mine");
            if (each.frees) {
                SysFreeString(*variable);
                *variable = each.leaves;
            }
            return each.status;
        });
        EXPECT_EQ(result.status, each.status);
        EXPECT_EQ(qv::TextOf(result.value.Get()), each.expected);
    }
}

TEST(ModuleState, InnermostSwitchDecidesWhereResourcesComeFrom) {
    auto* const host = reinterpret_cast<HINSTANCE>(0x10000);
    auto* const component = reinterpret_cast<HINSTANCE>(0x20000);
    ModuleState hostState{host};
    ModuleState componentState{component};
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
