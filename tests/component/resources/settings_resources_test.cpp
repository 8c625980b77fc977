// What the module carries is what the code builds: the resource compiler and the C++ side read one list.
#include "qvclient/qvsettingsdialog/resources/settings_resources.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include "framework/com.h"
#include "framework/text.h"
#include "platform/module_address.h"
#include "qvclient/qvsettingsdialog/resources/resource_ids.h"
#include "qvclient/qvsettingsdialog/resources/settings_interfaces.h"

namespace {

const int kInsideProgram = 0;

class Resources : public ::testing::Test {
protected:
    Resources() : module(qv::ModuleFromAddress(&kInsideProgram)) { RegisterSettingsResources(module); }
    ~Resources() override { UnregisterSettingsResources(module); }

    [[nodiscard]] std::vector<BYTE> Carried(const wchar_t* type, WORD id) const {
        const HRSRC found = FindResourceW(module, MAKEINTRESOURCEW(id), type);
        if (found == nullptr) return {};
        const auto* bytes = static_cast<const BYTE*>(LockResource(LoadResource(module, found)));
        return {bytes, bytes + SizeofResource(module, found)};
    }

    HMODULE module;
};

TEST_F(Resources, AreTheBytesThatTheCodeBuilds) {
    int dialogs = 0;
    for (const ModuleResource& resource : BuildSettingsResources()) {
        SCOPED_TRACE(qv::ToUtf8(qv::Format(L"type %d id %d", resource.type, resource.id)));
        const wchar_t* type = resource.type != 0 ? MAKEINTRESOURCEW(resource.type) : resource.typeName.c_str();
        const std::vector<BYTE> carried = Carried(type, resource.id);
        const auto [first, second] =
            std::mismatch(carried.begin(), carried.end(), resource.bytes.begin(), resource.bytes.end());
        EXPECT_TRUE(carried == resource.bytes) << "first difference at byte " << first - carried.begin() << " of "
                                               << carried.size() << " and " << resource.bytes.size();
        EXPECT_NE(FindResourceExW(module, type, MAKEINTRESOURCEW(resource.id), resource.language), nullptr);
        if (resource.type == 5) ++dialogs;
    }
    EXPECT_EQ(dialogs, 7);
}

TEST_F(Resources, HoldProjectNameAndIcon) {
    std::array<wchar_t, 64> text{};
    EXPECT_GT(LoadStringW(module, IDS_PROJNAME, text.data(), static_cast<int>(text.size())), 0);
    EXPECT_STREQ(text.data(), L"QVSettingsDialog");
    EXPECT_NE(LoadIconW(module, MAKEINTRESOURCEW(IDR_SETTINGS_ICON)), nullptr);
}

// The script and the code name one class.
TEST_F(Resources, RegistryScriptNamesTheClass) {
    std::array<wchar_t, 64> text{};
    ASSERT_GT(StringFromGUID2(CLSID_QVSettingsDialogManager, text.data(), static_cast<int>(text.size())), 0);
    const std::string script = LoadTextResource(module, L"REGISTRY", IDR_REGISTRY);
    EXPECT_NE(script.find("ForceRemove " + qv::ToUtf8(text.data()) + " ="), std::string::npos);
    EXPECT_TRUE(LoadTextResource(module, L"REGISTRY", IDR_REGISTRY + 1).empty());
}

}  // namespace
