#pragma once

#include <measurement/acceleration/points/PointSearch.h>

#include <algorithm>
#include <cstring>

namespace tesk::measurement::acceleration {

constexpr std::size_t groupSize = 8;

constexpr std::size_t groupsFor(std::size_t count) { return (count + groupSize - 1) / groupSize; }

/// Up to eight primitives that are looked at together, those after each other in an array or in an order of it.
template <class Primitive> class PrimitiveGroup {
public:
    /// The group of that number; without an order, of the array. Empty behind the last one.
    PrimitiveGroup(const PrimitiveArray<Primitive>& array, const std::uint32_t* arrayOrder, std::size_t group)
        : primitives(array), order(arrayOrder), first(std::min(group * groupSize, array.count)),
          count(std::min(groupSize, array.count - first)) {}

    std::size_t size() const { return count; }
    /// The primitive's number in the array.
    std::size_t operator[](std::size_t i) const { return order != nullptr ? order[first + i] : first + i; }

    __attribute__((always_inline)) QuadBox getBox() const {
        if (isBeforeLastPosition())
            return boxOf([this](std::uint32_t number) { return toQuad(primitives.positions[number]); });
        return boxOf([this](std::uint32_t number) {
            const osg::Pnt3f& position = primitives.positions[number];
            return Quad{position[0], position[1], position[2]};
        });
    }

    /// Lanes too many repeat the last primitive, which is as near as itself. Not for an empty group.
    PrimitiveLanes<Primitive> getLanes() const {
        PrimitiveLanes<Primitive> lanes;
        for (std::size_t lane = 0; lane < groupSize; ++lane) {
            const std::uint32_t* const numbers = cornersOf(std::min(lane, count - 1));
            for (std::size_t which = 0; which < cornerCount<Primitive>; ++which)
                lanes.corners[which].set(static_cast<int>(lane), primitives.positions[numbers[which]]);
        }
        return lanes;
    }

    // These have memory brought near that the processor cannot foresee to be read. A compiler that does not put them in
    // line takes them for functions without effect.
    __attribute__((always_inline)) void fetchCorners() const {
        for (std::size_t i = 0; i < count; ++i) __builtin_prefetch(cornersOf(i));
    }
    __attribute__((always_inline)) void fetchPositions() const {
        for (std::size_t i = 0; i < count; ++i)
            for (std::size_t which = 0; which < cornerCount<Primitive>; ++which)
                __builtin_prefetch(primitives.positions + cornersOf(i)[which]);
    }

private:
    const std::uint32_t* cornersOf(std::size_t i) const {
        return primitives.corners + cornerCount<Primitive> * (*this)[i];
    }

    /// Whether it is known that no corner is at the last position, behind which there is nothing to be read.
    bool isBeforeLastPosition() const {
        typedef std::uint32_t Numbers __attribute__((vector_size(16)));
        if (order != nullptr || count < groupSize) return false;
        const Numbers last = Numbers{} + static_cast<std::uint32_t>(primitives.positionCount - 1);
        Numbers found{};
        for (std::size_t i = 0; i < groupSize * cornerCount<Primitive>; i += 4) {
            Numbers some;
            std::memcpy(&some, cornersOf(0) + i, sizeof some);
            found |= Numbers(some == last);
        }
        return (found[0] | found[1] | found[2] | found[3]) == 0;
    }

    template <class Load> __attribute__((always_inline)) QuadBox boxOf(Load load) const {
        // Two boxes, so that not every operation waits for the one before.
        QuadBox box, other;
        std::size_t i = 0;
        for (; i + 2 <= count; i += 2) {
            box.grow(boxOfPrimitive(i, load));
            other.grow(boxOfPrimitive(i + 1, load));
        }
        if (i < count) box.grow(boxOfPrimitive(i, load));
        box.grow(other);
        return box;
    }

    template <class Load> QuadBox boxOfPrimitive(std::size_t i, Load load) const {
        const std::uint32_t* const numbers = cornersOf(i);
        const Quad start = load(numbers[0]);
        QuadBox box{start, start};
        for (std::size_t which = 1; which < cornerCount<Primitive>; ++which) {
            const Quad position = load(numbers[which]);
            box.grow({position, position});
        }
        return box;
    }

    const PrimitiveArray<Primitive>& primitives;
    const std::uint32_t* order;
    std::size_t first, count;
};

} // namespace tesk::measurement::acceleration
