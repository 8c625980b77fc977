#include "app/stored_values.h"

#include <gtest/gtest.h>

#include "tests/support/temporary_folder.h"

namespace {

TEST(StoredValues, ChangesAreDescribedAsAPersonSeesThem) {
    qv::ScopeData definitions;
    definitions.Set(L"o/k/standard", L"default", L"5");
    definitions.Set(L"o/k/fresh", L"default", L"5");
    const qv::StoredValues before{{L"user k/same", L"1"}, {L"user k/other", L"1"}};
    const qv::StoredValues after{
        {L"user k/same", L"1"}, {L"user k/other", L"2"}, {L"user k/standard", L"5"}, {L"machine k/fresh", L"6"}};
    EXPECT_EQ(qv::DescribeChanges(before, after, definitions, L"o"),
              (std::vector<std::wstring>{L"machine k/fresh = \"6\"", L"user k/other = \"2\" (was \"1\")"}));
}

TEST(StoredValues, FilesThatCannotBeReadCountAsEmpty) {
    const qvtest::TemporaryFolder folder;
    folder.Write(L"user.json", "{ broken");
    folder.Write(L"machine.json", R"([1, 2])");
    folder.Write(L"global.json", R"({ "k": { "n": "text", "m": 5 }, "odd": "x" })");
    EXPECT_EQ(qv::ReadStoredValues(folder.Path()), (qv::StoredValues{{L"global k/n", L"text"}}));
}

}  // namespace
