// Identifiers, class objects, task memory and modules.
#include <gtest/gtest.h>

#include <string>

#include "platform/module_address.h"
#include "platform/platform.h"

namespace {

const GUID kSome = {0x12345678, 0x9ABC, 0xDEF0, {0x01, 0x23, 0x45, 0x67, 0x89, 0xAB, 0xCD, 0xEF}};

class Com : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_GE(CoInitialize(nullptr), 0); }
    void TearDown() override { CoUninitialize(); }
};

// Makes nothing; counts who holds it.
class Factory final : public IClassFactory {
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** object) override {
        if (riid != IID_IUnknown && riid != IID_IClassFactory) {
            *object = nullptr;
            return E_NOINTERFACE;
        }
        *object = static_cast<IClassFactory*>(this);
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override { return --references; }
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID, void** object) override {
        *object = nullptr;
        return outer != nullptr ? CLASS_E_NOAGGREGATION : E_NOINTERFACE;
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

    ULONG references = 1;
};

TEST_F(Com, IdentifiersAreWrittenWithBracesAndReadBack) {
    wchar_t text[39] = {};
    EXPECT_EQ(39, StringFromGUID2(kSome, text, 39));
    EXPECT_STREQ(L"{12345678-9ABC-DEF0-0123-456789ABCDEF}", text);
    EXPECT_EQ(0, StringFromGUID2(kSome, text, 38));
    GUID read{};
    EXPECT_EQ(S_OK, CLSIDFromString(L"{12345678-9abc-def0-0123-456789abcdef}", &read));
    EXPECT_TRUE(read == kSome);
    EXPECT_EQ(CO_E_CLASSSTRING, CLSIDFromString(L"{12345678-9ABC-DEF0-0123-456789ABCDEG}", &read));
    EXPECT_EQ(CO_E_CLASSSTRING, CLSIDFromString(L"{12345678}", &read));
    EXPECT_EQ(CO_E_CLASSSTRING, CLSIDFromString(L"No.Such.Class", &read));
    EXPECT_EQ(CO_E_IIDSTRING, IIDFromString(L"{12345678-9ABC-DEF0-0123-456789ABCDEG}", &read));
    EXPECT_EQ(E_INVALIDARG, IIDFromString(L"{12345678}", &read));
}

TEST_F(Com, UnknownClassesAreNotRegistered) {
    void* object = &object;
    EXPECT_EQ(REGDB_E_CLASSNOTREG, CoCreateInstance(kSome, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown, &object));
    EXPECT_EQ(nullptr, object);
}

TEST_F(Com, ARegisteredFactoryAnswersUntilItIsRevoked) {
    Factory factory;
    DWORD cookie = 0;
    ASSERT_EQ(S_OK, CoRegisterClassObject(kSome, &factory, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie));
    void* object = nullptr;
    EXPECT_EQ(S_OK, CoGetClassObject(kSome, CLSCTX_INPROC_SERVER, nullptr, IID_IClassFactory, &object));
    EXPECT_EQ(static_cast<IClassFactory*>(&factory), object);
    factory.Release();
    EXPECT_EQ(E_NOINTERFACE, CoCreateInstance(kSome, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown, &object));
    EXPECT_EQ(CLASS_E_NOAGGREGATION, CoCreateInstance(kSome, &factory, CLSCTX_INPROC_SERVER, IID_IUnknown, &object));
    EXPECT_EQ(S_OK, CoRevokeClassObject(cookie));
    EXPECT_EQ(1u, factory.references);
    EXPECT_EQ(REGDB_E_CLASSNOTREG, CoGetClassObject(kSome, CLSCTX_INPROC_SERVER, nullptr, IID_IClassFactory, &object));
}

TEST_F(Com, NestsItsInitialization) {
    EXPECT_EQ(S_FALSE, CoInitialize(nullptr));
    EXPECT_EQ(RPC_E_CHANGED_MODE, CoInitializeEx(nullptr, COINIT_MULTITHREADED));
    CoUninitialize();
}

TEST(TaskMemory, GrowsWithItsContentsAndTakesNull) {
    auto* memory = static_cast<char*>(CoTaskMemAlloc(4));
    ASSERT_NE(nullptr, memory);
    memory[0] = 'x';
    memory = static_cast<char*>(CoTaskMemRealloc(memory, 4096));
    EXPECT_EQ('x', memory[0]);
    CoTaskMemFree(memory);
    CoTaskMemFree(nullptr);
    void* empty = CoTaskMemAlloc(0);
    EXPECT_NE(nullptr, empty);
    CoTaskMemFree(empty);
}

TEST(ResultCodes, WrapSystemErrorsOnce) {
    EXPECT_EQ(S_OK, HRESULT_FROM_WIN32(ERROR_SUCCESS));
    EXPECT_EQ(E_ACCESSDENIED, HRESULT_FROM_WIN32(ERROR_ACCESS_DENIED));
    EXPECT_EQ(E_ACCESSDENIED, HRESULT_FROM_WIN32(static_cast<unsigned long>(E_ACCESSDENIED)));
}

TEST(Modules, AreFoundByNameAddressAndFile) {
    const HMODULE program = GetModuleHandleW(nullptr);
    ASSERT_NE(nullptr, program);
    static const int s_here = 0;
    EXPECT_EQ(program, qv::ModuleFromAddress(&s_here));
    wchar_t path[MAX_PATH];
    const DWORD length = GetModuleFileNameW(nullptr, path, MAX_PATH);
    EXPECT_EQ(std::wstring(path).size(), length);
    EXPECT_NE(std::wstring::npos, std::wstring(path).find(L"platform_tests"));
    wchar_t cut[6];
    EXPECT_EQ(6u, GetModuleFileNameW(nullptr, cut, 6));
    EXPECT_EQ(static_cast<DWORD>(ERROR_INSUFFICIENT_BUFFER), GetLastError());
    EXPECT_EQ(nullptr, GetModuleHandleW(L"nosuchmodule.dll"));
    EXPECT_EQ(static_cast<DWORD>(ERROR_MOD_NOT_FOUND), GetLastError());
    EXPECT_EQ(nullptr, LoadLibraryW(L"nosuchmodule.dll"));
    EXPECT_EQ(static_cast<DWORD>(ERROR_MOD_NOT_FOUND), GetLastError());
    EXPECT_EQ(nullptr, GetProcAddress(program, "NoSuchProcedure"));
    EXPECT_EQ(static_cast<DWORD>(ERROR_PROC_NOT_FOUND), GetLastError());
}

}  // namespace
