// A host that loads the DLL for one dialog and lets go of it again, many times over: nothing may be left behind.
#include <gtest/gtest.h>

#include <array>

#include "base/com.h"
#include "host/services/host_object.h"
#include "platform/module_address.h"
#include "qvclient/qvsettingsdialog/resources/settings_interfaces.h"
#include "tests/support/settings_driver.h"
#include "tests/support/test_host.h"

namespace {

// Counts the blocks that COM's allocator has given out. It stays registered as long as blocks live that it has seen.
class AllocationSpy final : public IMallocSpy {
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
        *object = iid == IID_IMallocSpy || iid == IID_IUnknown ? this : nullptr;
        return *object != nullptr ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    SIZE_T STDMETHODCALLTYPE PreAlloc(SIZE_T size) override { return size; }
    void* STDMETHODCALLTYPE PostAlloc(void* block) override {
        if (block != nullptr) ++live;
        return block;
    }
    void* STDMETHODCALLTYPE PreFree(void* block, BOOL spied) override {
        if (block != nullptr && spied) --live;
        return block;
    }
    void STDMETHODCALLTYPE PostFree(BOOL) override {}
    SIZE_T STDMETHODCALLTYPE PreRealloc(void* block, SIZE_T size, void** newBlock, BOOL) override {
        *newBlock = block;
        return size;
    }
    void* STDMETHODCALLTYPE PostRealloc(void* block, BOOL) override { return block; }
    void* STDMETHODCALLTYPE PreGetSize(void* block, BOOL) override { return block; }
    SIZE_T STDMETHODCALLTYPE PostGetSize(SIZE_T size, BOOL) override { return size; }
    void* STDMETHODCALLTYPE PreDidAlloc(void* block, BOOL) override { return block; }
    int STDMETHODCALLTYPE PostDidAlloc(void*, BOOL, int answer) override { return answer; }
    void STDMETHODCALLTYPE PreHeapMinimize() override {}
    void STDMETHODCALLTYPE PostHeapMinimize() override {}

    long live = 0;
};

using GetClassObjectFunction = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);
using CanUnloadFunction = HRESULT(STDAPICALLTYPE*)();

// Without it strings are kept for reuse, and every count of live blocks depends on what ran before. The platform reads
// the variable before main.
bool StringsAreNotKept() {
    std::array<wchar_t, 8> text{};
    return GetEnvironmentVariableW(L"OANOCACHE", text.data(), static_cast<DWORD>(text.size())) != 0;
}

class Unloading : public ::testing::Test {
protected:
    Unloading() { host.DefinePlainPage(); }

    // Loads the DLL, shows the dialog, presses OK and lets go. False when something of it did not let go.
    void LoadShowUnload() {
        const HMODULE module = LoadLibraryW(L"qvsettingsdialog.dll");
        ASSERT_NE(module, nullptr);
        const auto canUnload = qv::ProcedureOf<CanUnloadFunction>(module, "DllCanUnloadNow");
        {
            const auto getClassObject = qv::ProcedureOf<GetClassObjectFunction>(module, "DllGetClassObject");
            auto factory = qv::Receive<qv::ComPtr<IClassFactory>>([&](auto out) {
                               return getClassObject(CLSID_QVSettingsDialogManager, IID_IClassFactory, out);
                           }).value;
            ASSERT_TRUE(factory);
            EXPECT_EQ(canUnload(), S_FALSE) << "only a factory";
            auto object = qv::Receive<qv::ComPtr<ITPFObject>>([&](auto out) {
                              return factory->CreateInstance(nullptr, IID_ITPFObject, out);
                          }).value;
            ASSERT_TRUE(object);
            factory.Reset();
            EXPECT_EQ(canUnload(), S_FALSE) << "only an object";
            const auto hostObject = qv::HostObject::Create(host.session.Get(), host.users.Get());
            object->SetHost(hostObject.Get(), nullptr);
            ASSERT_EQ(object->ConnectServices(0, nullptr), S_OK);
            auto manager = qv::QueryFor<IQVSettingsDialogManager>(*object.Get(), IID_IQVSettingsDialogManager);
            HRESULT duringDialog = S_OK;
            LONG result = 0;
            driver.Run(
                [&] {
                    manager->CreateModalDialogEx(nullptr, nullptr, &result);
                    return static_cast<int>(result);
                },
                {[&] { duringDialog = canUnload(); }, [&] { driver.Press(IDOK); }});
            EXPECT_EQ(result, IDOK);
            EXPECT_EQ(duringDialog, S_FALSE);
        }
        EXPECT_EQ(canUnload(), S_OK);
        FreeLibrary(module);
        ASSERT_EQ(GetModuleHandleW(L"qvsettingsdialog.dll"), nullptr) << "something else keeps it loaded";
        host.session->ClearCalls();
    }

    qvtest::TestHost host;
    qvtest::SettingsDriver driver;
};

TEST_F(Unloading, LeavesNoAllocationBehindIn200Rounds) {
    ASSERT_TRUE(StringsAreNotKept()) << "run with OANOCACHE=1";
    static AllocationSpy spy;
    ASSERT_EQ(CoRegisterMallocSpy(&spy), S_OK);
    const long atFirst = spy.live;
    const BSTR probe = SysAllocString(L"seen");
    ASSERT_EQ(spy.live, atFirst + 1) << "the spy sees nothing";
    SysFreeString(probe);
    // The first rounds fill what the process keeps for good: values that were never stored, window classes, fonts.
    for (int round = 0; round < 2 && !HasFatalFailure(); ++round)
        LoadShowUnload();
    const long before = spy.live;
    for (int round = 0; round < 200 && !HasFatalFailure(); ++round)
        LoadShowUnload();
    EXPECT_EQ(spy.live, before);
    CoRevokeMallocSpy();
}

}  // namespace
