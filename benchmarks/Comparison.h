#pragma once

#include <benchmark/benchmark.h>

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace tesk::benchmarks {

/// One of several libraries that do the same work.
struct Contestant {
    std::string name;
    std::function<void()> work;
    /// Not timed; runs after each work.
    std::function<void()> cleanUp = [] {};
    /// Not timed; runs before each work.
    std::function<void()> prepare = [] {};
};

/// Lets all contestants work in turn, once for each of the row's iterations, and shows the medians.
///
/// The first contestant is ours: the row's own times are its times. Counters are `NAME_ms`, the median of each, and
/// `ratio`, that of the fastest other one by ours: above 1 we are ahead. Standard output is silent meanwhile.
void compare(benchmark::State& state, const std::vector<Contestant>& contestants);

/// What a work leaves in use, or what it had in use at most.
enum class HeapUse { afterwards, peak };
/// Lets each contestant work once more, for counters `NAME_B/tri`, or `NAME_peak_B/tri`: bytes of heap by triangle.
void showHeap(benchmark::State& state, const std::vector<Contestant>& contestants, std::size_t triangleCount,
              HeapUse use);

/// How often compare() should repeat work on so many triangles, counted again for every plane or sample.
benchmark::IterationCount repetitionsFor(std::size_t triangleCount);

/// Fails the row unless our distance fits the peer's.
///
/// Ours may be larger by up to `allowance`, and either may be off by the rounding of squared distances in single
/// precision between objects of size 1.
void expectAgreement(benchmark::State& state, double ours, const std::string& peerName, double peers, double allowance);
/// Fails the row unless both lengths of an outline are the same but for the rounding of its points.
void expectSameLength(benchmark::State& state, double ours, const std::string& peerName, double peers);
/// Fails the row unless as much came out as was asked for.
void expectCount(benchmark::State& state, std::size_t actual, std::size_t expected);
/// Whether any row of this process failed.
bool hasFailure();

/// Makes a row of nothing but the reason.
void skip(benchmark::State& state, const std::string& reason);

/// Adds a row of work on so many triangles, as repetitionsFor() counts them; one that only says so where it would take
/// too long.
template <class Function, class... Arguments>
void addRow(const std::string& name, std::size_t triangleCount, bool isTooLong, Function measure,
            const Arguments&... arguments) {
    if (isTooLong) {
        benchmark::RegisterBenchmark(name.c_str(), skip, "the plain search takes minutes")->Iterations(1);
    } else {
        benchmark::RegisterBenchmark(name.c_str(), measure, arguments...)
            ->Unit(benchmark::kMillisecond)
            ->Iterations(repetitionsFor(triangleCount));
    }
}

} // namespace tesk::benchmarks
