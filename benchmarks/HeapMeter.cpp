#include <benchmarks/HeapMeter.h>

#include <algorithm>
#include <atomic>
#include <cerrno>

#include <malloc.h>

namespace {

std::atomic<bool> isCounting{false};
std::atomic<std::ptrdiff_t> inUse{0};
std::atomic<std::ptrdiff_t> peak{0};

void* countTaken(void* block) {
    if (!isCounting.load(std::memory_order_relaxed)) return block;
    const std::ptrdiff_t now = inUse += static_cast<std::ptrdiff_t>(malloc_usable_size(block));
    std::ptrdiff_t highest = peak;
    while (now > highest && !peak.compare_exchange_weak(highest, now)) continue;
    return block;
}

void countReturned(void* block) {
    if (isCounting.load(std::memory_order_relaxed)) inUse -= static_cast<std::ptrdiff_t>(malloc_usable_size(block));
}

} // namespace

// In an executable these come before the C library's own, whose other names stay reachable.
extern "C" {

void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void* block);

void* malloc(std::size_t size) { return countTaken(__libc_malloc(size)); }
void* calloc(std::size_t count, std::size_t size) { return countTaken(__libc_calloc(count, size)); }
void* memalign(std::size_t alignment, std::size_t size) { return countTaken(__libc_memalign(alignment, size)); }
void* aligned_alloc(std::size_t alignment, std::size_t size) { return memalign(alignment, size); }

int posix_memalign(void** block, std::size_t alignment, std::size_t size) {
    *block = memalign(alignment, size);
    return *block != nullptr ? 0 : ENOMEM;
}

void* realloc(void* block, std::size_t size) {
    countReturned(block);
    return countTaken(__libc_realloc(block, size));
}

void free(void* block) {
    countReturned(block);
    __libc_free(block);
}
}

namespace tesk::benchmarks {

HeapMeter::HeapMeter() {
    inUse = 0;
    peak = 0;
    isCounting = true;
}

HeapMeter::~HeapMeter() { isCounting = false; }

std::size_t HeapMeter::getGrowth() const { return static_cast<std::size_t>(std::max<std::ptrdiff_t>(0, inUse)); }

std::size_t HeapMeter::getPeak() const { return static_cast<std::size_t>(peak.load()); }

} // namespace tesk::benchmarks
