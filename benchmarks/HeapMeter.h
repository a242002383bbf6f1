#pragma once

#include <cstddef>

namespace tesk::benchmarks {

/// Counts the heap as long as it lives: all that this process takes from and gives back to the C library.
///
/// One at a time. Blocks count with their usable size, touched or not.
class HeapMeter {
public:
    HeapMeter();
    ~HeapMeter();
    HeapMeter(const HeapMeter&) = delete;
    HeapMeter& operator=(const HeapMeter&) = delete;

    /// Bytes in use beyond those at the beginning.
    std::size_t getGrowth() const;
    /// The most that were in use at any time, beyond those at the beginning.
    std::size_t getPeak() const;
};

} // namespace tesk::benchmarks
