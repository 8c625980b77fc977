// The real DLL, loaded by name and reached through its exports alone, with a host around it.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/com.h"
#include "host/interfaces/tpf.h"
#include "host/libraries/browser_settings.h"
#include "host/services/host_object.h"
#include "platform/module_address.h"
#include "qvclient/qvsettingsdialog/resources/settings_interfaces.h"
#include "tests/support/settings_driver.h"
#include "tests/support/test_host.h"

class ComponentDll : public ::testing::Test {
protected:
    ComponentDll();
    ~ComponentDll() override;

    template <class Function>
    [[nodiscard]] Function Export(const char* name) const {
        return qv::ProcedureOf<Function>(m_module, name);
    }
    [[nodiscard]] HRESULT GetClassObject(REFCLSID classId, REFIID iid, void** object) const;
    [[nodiscard]] HRESULT CanUnloadNow() const;
    [[nodiscard]] HRESULT Register() const;
    [[nodiscard]] HRESULT Unregister() const;

    // A new manager's interface; null when it has none such.
    template <class Interface>
    [[nodiscard]] qv::ComPtr<Interface> Create(REFIID iid) const {
        auto result =
            qv::Receive<qv::ComPtr<Interface>>([&](auto out) { return Factory()->CreateInstance(nullptr, iid, out); });
        EXPECT_EQ(result.status, S_OK);
        return std::move(result.value);
    }
    [[nodiscard]] qv::ComPtr<IClassFactory> Factory() const {
        auto factory = qv::Receive<qv::ComPtr<IClassFactory>>(
            [&](auto out) { return GetClassObject(CLSID_QVSettingsDialogManager, IID_IClassFactory, out); });
        EXPECT_EQ(factory.status, S_OK);
        return std::move(factory.value);
    }
    template <class Interface, class From>
    [[nodiscard]] static qv::ComPtr<Interface> Query(const qv::ComPtr<From>& from, REFIID iid) {
        return qv::QueryFor<Interface>(*from.Get(), iid);
    }
    // A manager that is connected to the test's host.
    [[nodiscard]] qv::ComPtr<IQVSettingsDialogManager> CreateConnected();

    qvtest::TestHost host;
    qv::ComPtr<qv::HostObject> hostObject;
    qvtest::SettingsDriver driver;
    static int s_browserReads;  // how often the host's browser settings were read again

private:
    HMODULE m_module;
};

// The references that an object has now.
template <class Interface>
[[nodiscard]] ULONG ReferencesOf(Interface* object) {
    object->AddRef();
    return object->Release();
}
