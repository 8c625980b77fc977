// Registration on a registry that refuses a call: the status says so, and the next registration or removal puts
// everything right. Only the class's own keys ever go.
#include <gtest/gtest.h>

#include "platform/headless/doors/faults.h"
#include "platform/module_address.h"
#include "platform/platform.h"

namespace {

using qv::headless::DumpRegistry;
using qv::headless::FailRegistryCall;
using qv::headless::RegistryCalls;

class RefusingRegistry : public ::testing::Test {
protected:
    RefusingRegistry() : m_module(LoadLibraryW(L"qvsettingsdialog.dll")) { Begin(); }
    ~RefusingRegistry() override {
        FailRegistryCall(0, 0);
        FreeLibrary(m_module);
    }

    // A registry with another vendor's class in it.
    void Begin() {
        qv::headless::ResetRegistry();
        HKEY key = nullptr;
        const wchar_t* const other = L"CLSID\\{00000000-1111-2222-3333-444444444444}\\InprocServer32";
        ASSERT_EQ(RegCreateKeyExW(HKEY_CLASSES_ROOT, other, 0, nullptr, 0, KEY_WRITE, nullptr, &key, nullptr),
                  ERROR_SUCCESS);
        RegCloseKey(key);
        m_before = DumpRegistry();
    }
    // Of the registry, that the act makes.
    template <class Act>
    static unsigned CallsOf(const Act& act) {
        const unsigned before = RegistryCalls();
        act();
        return RegistryCalls() - before;
    }
    HRESULT Register() { return Call("DllRegisterServer"); }
    HRESULT Unregister() { return Call("DllUnregisterServer"); }

    std::wstring m_before;

private:
    HRESULT Call(const char* name) {
        const HRESULT status = qv::ProcedureOf<HRESULT(STDAPICALLTYPE*)()>(m_module, name)();
        EXPECT_EQ(qv::headless::OpenRegistryKeys(), 0U) << name;
        return status;
    }
    HMODULE m_module;
};

TEST_F(RefusingRegistry, NextRegistrationOrRemovalPutsItRight) {
    const unsigned calls = CallsOf([this] { ASSERT_EQ(Register(), S_OK); });
    const std::wstring registered = DumpRegistry();
    ASSERT_GT(calls, 10U);
    for (unsigned n = 1; n <= calls; ++n) {
        SCOPED_TRACE(n);
        for (const bool again : {true, false}) {
            Begin();
            FailRegistryCall(n, ERROR_ACCESS_DENIED);
            EXPECT_EQ(Register(), HRESULT_FROM_WIN32(ERROR_ACCESS_DENIED));
            if (again) {
                EXPECT_EQ(Register(), S_OK);
                EXPECT_EQ(DumpRegistry(), registered);
            }
            EXPECT_EQ(Unregister(), S_OK);
            EXPECT_EQ(DumpRegistry(), m_before);
        }
    }
}

// A class that leads to no file would be worse than none.
TEST_F(RefusingRegistry, WithoutThePathOfItsModuleNothingIsRegistered) {
    qv::headless::FailModuleFileName(1, ERROR_ACCESS_DENIED);
    EXPECT_EQ(Register(), HRESULT_FROM_WIN32(ERROR_ACCESS_DENIED));
    EXPECT_EQ(DumpRegistry(), m_before);
    qv::headless::FailModuleFileName(1, ERROR_SUCCESS);
    EXPECT_EQ(Register(), E_FAIL) << "also when nobody says why";
    EXPECT_EQ(DumpRegistry(), m_before);
    ASSERT_EQ(Register(), S_OK);
    qv::headless::FailModuleFileName(1, ERROR_ACCESS_DENIED);
    EXPECT_EQ(Unregister(), S_OK) << "removal needs no path";
    qv::headless::FailModuleFileName(0, 0);
    EXPECT_EQ(DumpRegistry(), m_before);
}

TEST_F(RefusingRegistry, NextRemovalPutsItRight) {
    ASSERT_EQ(Register(), S_OK);
    const unsigned calls = CallsOf([this] { ASSERT_EQ(Unregister(), S_OK); });
    ASSERT_GT(calls, 5U);
    for (unsigned n = 1; n <= calls; ++n) {
        SCOPED_TRACE(n);
        Begin();
        ASSERT_EQ(Register(), S_OK);
        FailRegistryCall(n, ERROR_ACCESS_DENIED);
        EXPECT_EQ(Unregister(), HRESULT_FROM_WIN32(ERROR_ACCESS_DENIED));
        for (const char* when : {"again", "nothing left to take back"}) {
            EXPECT_EQ(Unregister(), S_OK) << when;
            EXPECT_EQ(DumpRegistry(), m_before) << when;
        }
    }
}

}  // namespace
