#pragma once

#include <algorithm>
#include <cstdint>
#include <utility>
#include <vector>

namespace tesk::measurement::detail {

/// The open pairs of a best-first search: smallest lowerBound first, among equals the one inserted
/// first.
///
/// The search compares every taken pair with its best value so far, drops it when it is not
/// smaller, and never raises that value. Lower bounds are bounds of boxes and so never NaN, hence
/// the order is total and no entry is smaller than the first. Two things follow:
/// - Once the first entry is dropped, all others would be dropped one by one: the search may end.
/// - An entry that the best value has ruled out stays ruled out: it may leave the queue at once.
template <class CandidatePair> class CandidateQueue {
public:
    bool isEmpty() const { return heap.empty(); }

    /// best: the search's best value so far. Entries that are not below it make room before the
    /// memory grows.
    void insert(const CandidatePair& pair, float best) {
        if (heap.size() == heap.capacity()) removeRuledOut(best);
        heap.push_back({pair, insertions++});
        std::push_heap(heap.begin(), heap.end(), comesAfter);
    }

    CandidatePair takeFirst() {
        std::pop_heap(heap.begin(), heap.end(), comesAfter);
        const CandidatePair first = heap.back().pair;
        heap.pop_back();
        return first;
    }

    void clear() { heap.clear(); }

private:
    struct Entry {
        CandidatePair pair;
        std::uint64_t number;
    };

    static bool comesAfter(const Entry& a, const Entry& b) {
        if (a.pair.lowerBound != b.pair.lowerBound) return a.pair.lowerBound > b.pair.lowerBound;
        return a.number > b.number;
    }

    void removeRuledOut(float best) {
        const auto isRuledOut = [best](const Entry& e) { return !(e.pair.lowerBound < best); };
        heap.erase(std::remove_if(heap.begin(), heap.end(), isRuledOut), heap.end());
        std::make_heap(heap.begin(), heap.end(), comesAfter);
        // Room for as many again, so that the next removal is paid for by insertions.
        heap.reserve(std::max<std::size_t>(64, 2 * heap.size()));
    }

    std::vector<Entry> heap;
    std::uint64_t insertions = 0;
};

} // namespace tesk::measurement::detail
