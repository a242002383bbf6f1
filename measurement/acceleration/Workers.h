#pragma once

#include <cstddef>
#include <functional>

/// Loops that several processors work on.
///
/// Whatever a loop finds is kept chunk by chunk and put together in the order of the chunks, so that no result depends
/// on how many there are. Bodies read plain arrays that stand while the loop runs and write what no other chunk
/// touches; they call nothing of the scene graph and write nothing to the standard output.
///
/// \code
/// std::vector<Candidate> nearest(chunkCount(points.size(), pointsWorthAThread));
/// runInChunks(points.size(), pointsWorthAThread, [&](std::size_t chunk, std::size_t begin, std::size_t end) {
///     for (std::size_t i = begin; i < end; ++i) nearest[chunk].look(points[i]);
/// });
/// \endcode
namespace tesk::measurement::acceleration {

/// The chunk's number and its items, from `begin` to before `end`.
using ChunkBody = std::function<void(std::size_t chunk, std::size_t begin, std::size_t end)>;

/// How many chunks so many items make: as many as threads may work, though none of fewer items than worth while, and
/// one at least. To start a thread takes some 0.03 ms, so a chunk should take ten times that.
std::size_t chunkCount(std::size_t itemCount, std::size_t itemsWorthAThread);

/// Calls the body for each of chunkCount() chunks of about the same size, at once: for the first on this thread, for
/// each of the others on one of its own, or on this one as well where none can be started. Returns when all are done,
/// or throws what a body threw, of several the first chunk's.
void runInChunks(std::size_t itemCount, std::size_t itemsWorthAThread, const ChunkBody& body);

/// Calls both functions, at once if there are so many items for each that it is worth a thread.
template <class First, class Second>
void runBoth(std::size_t itemsOfEach, std::size_t itemsWorthAThread, First first, Second second) {
    if (chunkCount(2 * itemsOfEach, itemsWorthAThread) == 1) {
        first();
        second();
    } else {
        runInChunks(2, 1, [&](std::size_t, std::size_t begin, std::size_t end) {
            for (std::size_t i = begin; i < end; ++i) i == 0 ? first() : second();
        });
    }
}

/// As long as it exists, loops have so many chunks, of at least one item. For tests, which would have only one: small
/// inputs are not worth a thread.
class ForcedChunks {
public:
    explicit ForcedChunks(std::size_t count);
    ~ForcedChunks();
    ForcedChunks(const ForcedChunks&) = delete;
    ForcedChunks& operator=(const ForcedChunks&) = delete;

private:
    std::size_t before;
};

} // namespace tesk::measurement::acceleration
