#include <measurement/acceleration/Workers.h>

#include <gtest/gtest.h>

#include <csignal>
#include <new>
#include <stdexcept>
#include <thread>
#include <vector>

namespace tesk::measurement::acceleration {

TEST(Workers, GoOverEveryItemOnceInTheOrderOfTheChunks) {
    for (const std::size_t itemCount : {0, 1, 2, 7, 100}) {
        for (const std::size_t forced : {1, 2, 3, 7, 16}) {
            const ForcedChunks chunks(forced);
            const std::size_t count = chunkCount(itemCount, 1000);
            EXPECT_EQ(count, std::max<std::size_t>(1, std::min(itemCount, forced)));
            std::vector<std::vector<std::size_t>> items(count);
            runInChunks(itemCount, 1000, [&](std::size_t chunk, std::size_t begin, std::size_t end) {
                for (std::size_t i = begin; i < end; ++i) items[chunk].push_back(i);
            });
            std::size_t next = 0;
            for (const auto& some : items)
                for (const std::size_t i : some) EXPECT_EQ(i, next++);
            EXPECT_EQ(next, itemCount);
        }
    }
}

TEST(Workers, HaveNoChunkThatIsNotWorthAThread) {
    EXPECT_EQ(chunkCount(1999, 1000), 1u);
    EXPECT_LE(chunkCount(10'000, 1000), 10u);
}

#if TESK_THREADS != 1
TEST(Workers, GetNoSignalsAndHandOnWhatIsThrown) {
    const ForcedChunks chunks(4);
    std::vector<std::thread::id> threads(4);
    std::vector<int> isBlocked(4);
    const auto body = [&](std::size_t chunk, std::size_t, std::size_t) {
        sigset_t signals;
        pthread_sigmask(SIG_SETMASK, nullptr, &signals);
        isBlocked[chunk] = sigismember(&signals, SIGINT);
        threads[chunk] = std::this_thread::get_id();
        if (chunk == 2) throw std::bad_alloc();
        if (chunk == 3) throw std::length_error("the second failure");
    };
    EXPECT_THROW(runInChunks(4, 1, body), std::bad_alloc);
    EXPECT_EQ(isBlocked, (std::vector<int>{0, 1, 1, 1}));
    EXPECT_EQ(threads[0], std::this_thread::get_id());
    for (std::size_t chunk = 1; chunk < 4; ++chunk) EXPECT_NE(threads[chunk], threads[0]);
}
#endif

} // namespace tesk::measurement::acceleration
