#include <benchmarks/Comparison.h>

#include <benchmarks/HeapMeter.h>
#include <benchmarks/SilentOutput.h>

#include <algorithm>
#include <chrono>
#include <cmath>

namespace tesk::benchmarks {

namespace {

bool failed = false;

double timeInMilliseconds(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    const std::size_t middle = values.size() / 2;
    return values.size() % 2 == 1 ? values[middle] : (values[middle - 1] + values[middle]) / 2.0;
}

void showTimes(benchmark::State& state, const std::vector<Contestant>& contestants, const std::vector<double>& times) {
    for (std::size_t i = 0; i < contestants.size(); ++i) state.counters[contestants[i].name + "_ms"] = times[i];
    if (times.size() > 1) state.counters["ratio"] = *std::min_element(times.begin() + 1, times.end()) / times.front();
}

void fail(benchmark::State& state, const std::string& reason) {
    failed = true;
    state.SkipWithError(reason.c_str());
}

} // namespace

void compare(benchmark::State& state, const std::vector<Contestant>& contestants) {
    const SilentOutput silence;
    std::vector<std::vector<double>> times(contestants.size());
    for (auto _ : state) {
        for (std::size_t i = 0; i < contestants.size(); ++i) {
            const bool isOurs = i == 0;
            state.PauseTiming();
            contestants[i].prepare();
            if (isOurs) state.ResumeTiming();
            times[i].push_back(timeInMilliseconds(contestants[i].work));
            if (isOurs) state.PauseTiming();
            contestants[i].cleanUp();
            state.ResumeTiming();
        }
    }
    std::vector<double> medians;
    for (const std::vector<double>& each : times) medians.push_back(median(each));
    showTimes(state, contestants, medians);
}

void showHeap(benchmark::State& state, const std::vector<Contestant>& contestants, std::size_t triangleCount,
              HeapUse use) {
    const SilentOutput silence;
    for (const Contestant& contestant : contestants) {
        contestant.prepare();
        {
            const HeapMeter meter;
            contestant.work();
            const auto bytes = static_cast<double>(use == HeapUse::peak ? meter.getPeak() : meter.getGrowth());
            const std::string column = contestant.name + (use == HeapUse::peak ? "_peak_B/tri" : "_B/tri");
            state.counters[column] = bytes / static_cast<double>(triangleCount);
        }
        contestant.cleanUp();
    }
}

benchmark::IterationCount repetitionsFor(std::size_t triangleCount) { return triangleCount < 100'000 ? 5 : 3; }

void expectAgreement(benchmark::State& state, double ours, const std::string& peerName, double peers,
                     double allowance) {
    const double rounding = 1e-6;
    const bool isTooSmall = ours * ours < peers * peers - rounding;
    const bool isTooLarge = ours * ours > peers * peers + rounding && ours > peers + allowance;
    if (isTooSmall || isTooLarge)
        fail(state, "our distance " + std::to_string(ours) + " against " + std::to_string(peers) + " of " + peerName);
}

void expectSameLength(benchmark::State& state, double ours, const std::string& peerName, double peers) {
    const double rounding = 1e-4;
    if (std::fabs(ours - peers) > rounding * peers)
        fail(state, "our outline of " + std::to_string(ours) + " against " + std::to_string(peers) + " of " + peerName);
}

void expectCount(benchmark::State& state, std::size_t actual, std::size_t expected) {
    if (actual != expected) fail(state, std::to_string(actual) + " instead of " + std::to_string(expected));
}

bool hasFailure() { return failed; }

void skip(benchmark::State& state, const std::string& reason) {
    for (auto _ : state) continue;
    state.SetLabel("skipped: " + reason);
}

} // namespace tesk::benchmarks
