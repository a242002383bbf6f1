#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <vector>

namespace tesk::measurement::acceleration {

struct NodePair {
    std::uint32_t node1;
    std::uint32_t node2;
};

/// The open pairs of a best-first search in the order of detail::CandidateQueue: smallest lower bound first, among
/// equals the one inserted first. Lower bounds are neither negative nor NaN.
class NodePairQueue {
public:
    bool isEmpty() const { return firstTouching == touching.size() && heap.empty(); }
    float getFirstBound() const { return firstTouching < touching.size() ? 0.0f : toBound(heap.front().key); }

    /// best: the search's best value so far. Entries that are not below it make room before the memory grows.
    void insert(float lowerBound, const NodePair& pair, float best) {
        if (lowerBound == 0.0f) {
            insertTouching(pair);
            return;
        }
        if (heap.size() == heap.capacity() || insertions == 0xffffffffu) makeRoom(best);
        heap.push_back({toKey(lowerBound, insertions++), pair});
        std::push_heap(heap.begin(), heap.end(), ComesAfter());
    }

    NodePair takeFirst() {
        if (firstTouching < touching.size()) return touching[firstTouching++];
        std::pop_heap(heap.begin(), heap.end(), ComesAfter());
        const NodePair first = heap.back().pair;
        heap.pop_back();
        return first;
    }

private:
    struct Entry {
        /// The bits of the bound, which are in the order of the bounds, then the number of the insertion.
        std::uint64_t key;
        NodePair pair;
    };

    struct ComesAfter {
        bool operator()(const Entry& a, const Entry& b) const { return a.key > b.key; }
    };

    static std::uint64_t toKey(float bound, std::uint32_t number) {
        std::uint32_t bits;
        std::memcpy(&bits, &bound, sizeof bits);
        return std::uint64_t(bits) << 32 | number;
    }

    static float toBound(std::uint64_t key) {
        const auto bits = std::uint32_t(key >> 32);
        float bound;
        std::memcpy(&bound, &bits, sizeof bound);
        return bound;
    }

    void insertTouching(const NodePair& pair) {
        if (touching.size() == touching.capacity()) {
            touching.erase(touching.begin(), touching.begin() + std::ptrdiff_t(firstTouching));
            firstTouching = 0;
            touching.reserve(std::max<std::size_t>(64, 2 * touching.size()));
        }
        touching.push_back(pair);
    }

    void makeRoom(float best) {
        const auto isRuledOut = [best](const Entry& entry) { return !(toBound(entry.key) < best); };
        heap.erase(std::remove_if(heap.begin(), heap.end(), isRuledOut), heap.end());
        // Sorted entries are a heap, and may be numbered anew.
        std::sort(heap.begin(), heap.end(), [](const Entry& a, const Entry& b) { return a.key < b.key; });
        insertions = 0;
        for (Entry& entry : heap) entry.key = (entry.key & ~std::uint64_t(0xffffffff)) | insertions++;
        // Room for as many again, so that the next removal is paid for by insertions.
        heap.reserve(std::max<std::size_t>(64, 2 * heap.size()));
    }

    std::vector<Entry> heap;
    std::uint32_t insertions = 0;
    /// Pairs with the bound 0, which need no heap: those from firstTouching on, in the order of insertion.
    std::vector<NodePair> touching;
    std::size_t firstTouching = 0;
};

} // namespace tesk::measurement::acceleration
