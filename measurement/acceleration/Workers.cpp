#include <measurement/acceleration/Workers.h>

#include <algorithm>

#if TESK_THREADS != 1
#include <exception>
#include <thread>
#include <vector>

#include <csignal>
#endif

namespace tesk::measurement::acceleration {

namespace {

/// None unless a test asks.
std::size_t forcedChunkCount = 0;

std::size_t threadLimit() {
#if TESK_THREADS == 0
    // 0 where it is not known.
    static const std::size_t processors = std::max(1u, std::thread::hardware_concurrency());
    return processors;
#else
    return TESK_THREADS;
#endif
}

class ChunkLoop {
public:
    ChunkLoop(std::size_t itemsOfAll, std::size_t chunks, const ChunkBody& chunkBody)
        : itemCount(itemsOfAll), count(chunks), body(chunkBody) {}

    void run(std::size_t chunk) const { body(chunk, beginOf(chunk), beginOf(chunk + 1)); }

private:
    std::size_t beginOf(std::size_t chunk) const {
        return itemCount / count * chunk + std::min(chunk, itemCount % count);
    }

    std::size_t itemCount, count;
    const ChunkBody& body;
};

#if TESK_THREADS == 1

void runAll(const ChunkLoop& loop, std::size_t count) {
    for (std::size_t chunk = 0; chunk < count; ++chunk) loop.run(chunk);
}

#else

/// A thread that no signal interrupts, so that the host's handlers run where they did; none if it cannot be had.
template <class Body> std::thread startWithoutSignals(const Body& body) {
    sigset_t all, before;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before);
    std::thread thread;
    try {
        thread = std::thread(body);
    } catch (const std::exception&) {
        // No thread, or no memory for one: the caller does its work.
    }
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
    return thread;
}

void runAll(const ChunkLoop& loop, std::size_t count) {
    std::vector<std::exception_ptr> failures(count);
    const auto runOne = [&](std::size_t chunk) {
        try {
            loop.run(chunk);
        } catch (...) {
            failures[chunk] = std::current_exception();
        }
    };
    // Nothing throws from the first thread's start to the last one's end.
    std::vector<std::thread> threads(count);
    for (std::size_t chunk = 1; chunk < count; ++chunk)
        threads[chunk] = startWithoutSignals([&runOne, chunk] { runOne(chunk); });
    for (std::size_t chunk = 0; chunk < count; ++chunk)
        if (!threads[chunk].joinable()) runOne(chunk);
    for (std::thread& thread : threads)
        if (thread.joinable()) thread.join();
    for (const std::exception_ptr& failure : failures)
        if (failure != nullptr) std::rethrow_exception(failure);
}

#endif

} // namespace

std::size_t chunkCount(std::size_t itemCount, std::size_t itemsWorthAThread) {
    const std::size_t count = forcedChunkCount > 0 ? std::min(forcedChunkCount, itemCount)
                                                   : std::min(threadLimit(), itemCount / itemsWorthAThread);
    return std::max<std::size_t>(1, count);
}

void runInChunks(std::size_t itemCount, std::size_t itemsWorthAThread, const ChunkBody& body) {
    const std::size_t count = chunkCount(itemCount, itemsWorthAThread);
    const ChunkLoop loop(itemCount, count, body);
    if (count == 1)
        loop.run(0);
    else
        runAll(loop, count);
}

ForcedChunks::ForcedChunks(std::size_t count) : before(forcedChunkCount) { forcedChunkCount = count; }

ForcedChunks::~ForcedChunks() { forcedChunkCount = before; }

} // namespace tesk::measurement::acceleration
