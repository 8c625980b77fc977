// What the resource compiler has put into the program is what the code builds: both read one list. Windows only; where
// no file carries resources, the code's bytes are all there is.
#include "qvclient/qvsettingsdialog/resources/settings_resources.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "base/text.h"

namespace {

std::vector<BYTE> Carried(const wchar_t* type, WORD id) {
    const HRSRC found = FindResourceW(nullptr, MAKEINTRESOURCEW(id), type);
    if (found == nullptr) return {};
    const auto* bytes = static_cast<const BYTE*>(LockResource(LoadResource(nullptr, found)));
    return {bytes, bytes + SizeofResource(nullptr, found)};
}

TEST(Resources, AreTheBytesThatTheCodeBuilds) {
    for (const ModuleResource& resource : BuildSettingsResources()) {
        SCOPED_TRACE(qv::ToUtf8(qv::Format(L"type %d id %d", resource.type, resource.id)));
        const wchar_t* type = resource.type != 0 ? MAKEINTRESOURCEW(resource.type) : resource.typeName.c_str();
        const std::vector<BYTE> carried = Carried(type, resource.id);
        const auto [first, second] =
            std::mismatch(carried.begin(), carried.end(), resource.bytes.begin(), resource.bytes.end());
        EXPECT_TRUE(carried == resource.bytes) << "first difference at byte " << first - carried.begin() << " of "
                                               << carried.size() << " and " << resource.bytes.size();
        EXPECT_NE(FindResourceExW(nullptr, type, MAKEINTRESOURCEW(resource.id), resource.language), nullptr);
    }
}

}  // namespace
