// What storing N changed values costs, as a dialog's Apply does it: WriteData, then SaveData, for each. Beside it the
// floor: one plain write of the same bytes for each, to a file that is open. Folding, which a program does once
// afterwards, is beside its own: one write and flush of the whole document. Both are timed in turn within each
// iteration, by the clock, since a flush is waiting.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <chrono>
#include <string>
#include <vector>

#include "base/text.h"
#include "host/services/file_session_data.h"
#include "host/services/whole_file.h"
#include "tests/support/temporary_folder.h"

namespace {

using Clock = std::chrono::steady_clock;

double SecondsSince(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

std::vector<std::string> Lines(const std::string& bytes) {
    std::vector<std::string> lines;
    for (std::size_t start = 0; start < bytes.size();) {
        const std::size_t end = bytes.find('\n', start) + 1;
        lines.push_back(bytes.substr(start, end - start));
        start = end;
    }
    return lines;
}

void StoreValues(benchmark::State& state) {
    const auto values = static_cast<std::size_t>(state.range(0));
    const qvtest::TemporaryFolder folder;
    const auto session = qv::FileSessionData::Create(folder.Path(), {});
    const qv::Bstr key(L"common");
    std::vector<qv::Bstr> names;
    for (std::size_t i = 0; i < values; ++i)
        names.emplace_back(qv::Format(L"NumberOfEntries%d", i));
    const std::wstring path = folder.At(L"user.json");
    const std::wstring floorPath = folder.At(L"floor");
    const std::string floorFile = qv::ToUtf8(floorPath);

    double storing = 0;
    double folding = 0;
    double appendFloor = 0;
    double flushFloor = 0;
    int round = 0;
    for ([[maybe_unused]] auto iteration : state) {
        const qv::Variant text(qv::Format(L"text of round %d", ++round));
        auto start = Clock::now();
        for (const qv::Bstr& name : names) {
            if (session->WriteData(key.Get(), name.Get(), text.Get(), SDT_userData) != S_OK ||
                session->SaveData(SDT_userData, key.Get(), name.Get()) != S_OK) {
                state.SkipWithError("a value was not stored");
            }
        }
        const double stored = SecondsSince(start);
        storing += stored;
        state.SetIterationTime(stored);

        std::string bytes;
        if (qv::ReadWholeFile(path + L".journal", bytes) != qv::ReadResult::Done) state.SkipWithError("no journal");
        const std::vector<std::string> records = Lines(bytes);
        start = Clock::now();
        const int appended = ::open(floorFile.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_APPEND, 0666);
        for (const std::string& record : records)
            benchmark::DoNotOptimize(::write(appended, record.data(), record.size()));
        ::close(appended);
        appendFloor += SecondsSince(start);

        start = Clock::now();
        if (!session->Fold()) state.SkipWithError("not folded");
        folding += SecondsSince(start);
        if (qv::ReadWholeFile(path, bytes) != qv::ReadResult::Done) state.SkipWithError("no document");
        start = Clock::now();
        const int flushed = ::open(floorFile.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
        benchmark::DoNotOptimize(::write(flushed, bytes.data(), bytes.size()));
        ::fsync(flushed);
        ::close(flushed);
        flushFloor += SecondsSince(start);
    }
    const auto rounds = static_cast<double>(state.iterations());
    state.counters["store_ms"] = storing / rounds * 1e3;
    state.counters["append_floor_ms"] = appendFloor / rounds * 1e3;
    state.counters["store_of_floor"] = storing / appendFloor;
    state.counters["fold_ms"] = folding / rounds * 1e3;
    state.counters["flush_floor_ms"] = flushFloor / rounds * 1e3;
    state.counters["all_of_floor"] = (storing + folding) / (appendFloor + flushFloor);
    state.SetComplexityN(state.range(0));
}

BENCHMARK(StoreValues)->RangeMultiplier(10)->Range(100, 10'000)->UseManualTime()->Complexity(benchmark::oN);

}  // namespace
