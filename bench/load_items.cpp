// What loading N items costs, beside its floor: the same calls to the host and one copy of every string it hands out.
// Both are timed in turn within each iteration, so that "of_floor" (loading / floor) does not depend on the machine's
// mood. The host here does as little as a host can: it allocates what it hands out and looks nothing up.
#include <benchmark/benchmark.h>

#include <ctime>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include "base/text.h"
#include "host/libraries/units.h"
#include "qvclient/qvsettingsdialog/model/construction_set.h"
#include "tests/support/host_stubs.h"

namespace {

using Definition = std::vector<std::wstring>;  // name, text, name, text ... in ascending order of the names

Definition Attributes(std::int32_t type, const Definition& own) {
    const std::wstring label = L"Number of entries in the list";
    Definition all = {L"default",       L"4",
                      L"functiongroup", L"0",
                      L"globaldata",    L"0",
                      L"label",         label,
                      L"ordernumber",   L"17",
                      L"pagenumber",    L"3",
                      L"type",          qv::Format(L"%d", type)};
    all.insert(all.end(), own.begin(), own.end());
    return all;
}

// A row of every kind; entries and bounds where the kind has them.
std::vector<Definition> EveryKind() {
    const Definition bounds = {L"upperbound", L"9"};
    const Definition entries = {L"value1", L"1|First entry", L"value2", L"4|Second entry", L"value3", L"9|Third entry"};
    return {Attributes(0, {}),
            Attributes(1, bounds),
            Attributes(2, bounds),
            Attributes(3, {}),
            Attributes(4, entries),
            Attributes(5, entries),
            Attributes(7, {}),
            Attributes(8, {}),
            Attributes(9, {}),
            Attributes(10, {}),
            Attributes(14, {L"unitcategory", L"length"})};
}

// The kinds whose controls the layout makes.
std::vector<Definition> PlainKinds() {
    auto kinds = EveryKind();
    kinds.erase(kinds.begin() + 5, kinds.end());
    return kinds;
}

class LeanSession final : public qvtest::SessionStub {
public:
    LeanSession(std::size_t items, std::vector<Definition> kinds) : m_kinds(std::move(kinds)) {
        for (std::size_t i = 0; i < items; ++i)
            m_names.push_back(qv::Format(L"option-configuration/common/item%d", i));
    }

    HRESULT STDMETHODCALLTYPE EnumSubKeys(BSTR, LONG, ULONG* count, BSTR** names, SESSIONDATATYPE) override {
        *names = Block(m_names);
        *count = static_cast<ULONG>(m_names.size());
        m_next = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE EnumValues(BSTR, ULONG* count, BSTR** pairs, SESSIONDATATYPE) override {
        const Definition& definition = m_kinds[m_next++ % m_kinds.size()];
        *pairs = Block(definition);
        *count = static_cast<ULONG>(definition.size() / 2);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE ReadData(BSTR, BSTR, USHORT, VARIANT* value, SESSIONDATATYPE) override {
        value->vt = VT_BSTR;
        value->bstrVal = SysAllocStringLen(L"4", 1);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE LoadData(SESSIONDATATYPE) override { return S_OK; }

private:
    static BSTR* Block(const std::vector<std::wstring>& texts) {
        auto* block = static_cast<BSTR*>(CoTaskMemAlloc(texts.size() * sizeof(BSTR)));
        for (std::size_t i = 0; i < texts.size(); ++i) {
            block[i] = SysAllocStringLen(texts[i].data(), static_cast<UINT>(texts[i].size()));
        }
        return block;
    }

    std::vector<std::wstring> m_names;
    std::vector<Definition> m_kinds;
    std::size_t m_next = 0;
};

// The calls of one loading, with nothing made of what they answer.
void CopyOnly(ISessionDataManager& session, IMultiUserManager& users) {
    const qv::Bstr root(L"option-configuration");
    const auto names = qv::ReceiveStrings(1, [&](ULONG* count, BSTR** out) {
                           return session.EnumSubKeys(root.Get(), 1, count, out, SDT_machineData);
                       }).value;
    std::vector<std::pair<std::wstring, std::wstring>> attributes;
    for (std::size_t i = 0; i < names.Count(); ++i) {
        const std::wstring name = qv::TextOf(names.At(i));
        const qv::Bstr definition(name);
        const auto pairs = qv::ReceiveStrings(2, [&](ULONG* count, BSTR** out) {
                               return session.EnumValues(definition.Get(), count, out, SDT_machineData);
                           }).value;
        attributes.clear();
        for (std::size_t pair = 0; pair < pairs.Count(); ++pair) {
            attributes.emplace_back(qv::TextOf(pairs.At(2 * pair)), qv::TextOf(pairs.At(2 * pair + 1)));
        }
        const qv::Bstr right(L"Change settings/User data");
        benchmark::DoNotOptimize(users.CheckRight(right.Get()));
        const qv::Bstr key(L"common");
        const qv::Bstr valueName(std::wstring_view(name).substr(name.rfind(L'/') + 1));
        const auto value = qv::Receive<qv::Variant>(
            [&](VARIANT* out) { return session.ReadData(key.Get(), valueName.Get(), VT_BSTR, out, SDT_userData); });
        benchmark::DoNotOptimize(qv::TextOf(value.value.Get().bstrVal));
        benchmark::DoNotOptimize(attributes);
    }
}

// Processor time: other programs on the machine do not count.
double CpuSeconds() {
    return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

void LoadItems(benchmark::State& state, const std::vector<Definition>& kinds) {
    auto database = std::make_unique<XUAAdmin>();
    database->AddCategory(XUACategory(L"length", {L"mm", L"cm", L"m"}));
    qv::SetUnitDatabase(std::move(database));

    LeanSession session(static_cast<std::size_t>(state.range(0)), kinds);
    qvtest::UsersStub users;
    double floor = 0;
    double loading = 0;
    for ([[maybe_unused]] auto iteration : state) {
        const auto start = CpuSeconds();
        CopyOnly(session, users);
        const auto copied = CpuSeconds();
        XConstructionSet model(L"option-configuration", SDT_machineData, nullptr, &session, &users);
        std::map<std::int32_t, PageRecord*> items;
        const auto begun = CpuSeconds();
        if (!model.LoadItems(items)) state.SkipWithError("nothing was loaded");
        const auto loaded = CpuSeconds();
        floor += copied - start;
        loading += loaded - begun;
        state.SetIterationTime(loaded - begun);
    }
    const double items = static_cast<double>(state.range(0)) * static_cast<double>(state.iterations());
    state.counters["ns_per_item"] = loading / items * 1e9;
    state.counters["floor_ns"] = floor / items * 1e9;
    state.counters["of_floor"] = loading / floor;
    state.SetComplexityN(state.range(0));
}

BENCHMARK_CAPTURE(LoadItems, plain, PlainKinds())
    ->RangeMultiplier(10)
    ->Range(10, 100'000)
    ->UseManualTime()
    ->Complexity(benchmark::oN);
BENCHMARK_CAPTURE(LoadItems, every_kind, EveryKind())
    ->RangeMultiplier(10)
    ->Range(10, 100'000)
    ->UseManualTime()
    ->Complexity(benchmark::oN);

}  // namespace
