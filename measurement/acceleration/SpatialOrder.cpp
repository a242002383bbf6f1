#include <measurement/acceleration/SpatialOrder.h>

#include <measurement/acceleration/vector/QuadBox.h>

#include <algorithm>
#include <array>
#include <random>
#include <utility>

namespace tesk::measurement::acceleration {

namespace {

constexpr float cellsPerAxis = 1024.0f;
/// So many places tell the extent. What lies outside counts as lying on the rim.
constexpr std::size_t sampleCount = 4096;
/// So many places ahead the next one is asked for: the processor cannot foresee it.
constexpr std::size_t entriesAhead = 32;
constexpr int digitBits = 10, digitCount = 3;
constexpr std::size_t digitValues = std::size_t(1) << digitBits;

/// Two zero bits in front of each of the ten bits.
std::uint32_t spreadBits(std::uint32_t x) {
    x = (x | x << 16) & 0x030000ffu;
    x = (x | x << 8) & 0x0300f00fu;
    x = (x | x << 4) & 0x030c30c3u;
    return (x | x << 2) & 0x09249249u;
}

/// The cell that a coordinate falls into; the lowest for NaN.
std::uint32_t cellOf(float coordinate) {
    return coordinate > 0.0f ? static_cast<std::uint32_t>(std::min(coordinate, cellsPerAxis - 1.0f)) : 0;
}

/// The box around some places, taken at random lest they follow the rows of a mesh.
template <class PlaceOf> QuadBox sampleBox(std::size_t count, PlaceOf placeOf) {
    std::minstd_rand random;
    QuadBox box;
    for (std::size_t sample = 0; sample < std::min(count, sampleCount); ++sample) {
        const Quad place = placeOf(count <= sampleCount ? sample : random() % count);
        box.grow({place, place});
    }
    return box;
}

struct Entry {
    std::uint32_t key;
    std::uint32_t number;

    /// Leaves memory as it is: to fill it first would take as long as to sort by a digit.
    Entry() {}
    Entry(std::uint32_t itsKey, std::uint32_t itsNumber) : key(itsKey), number(itsNumber) {}
};

/// Calls put(place, entry) for each entry with its place in the order of ten bits of the keys. Stable.
template <class Put> void distribute(const std::vector<Entry>& entries, int digit, Put put) {
    const auto valueOf = [digit](const Entry& entry) { return entry.key >> (digit * digitBits) & (digitValues - 1); };
    std::array<std::size_t, digitValues> next{};
    for (const Entry& entry : entries) ++next[valueOf(entry)];
    std::size_t begin = 0;
    for (std::size_t& n : next) begin += std::exchange(n, begin);
    for (const Entry& entry : entries) put(next[valueOf(entry)]++, entry);
}

} // namespace

std::vector<std::uint32_t> orderAlongCurve(const osg::Pnt3f* positions, const std::uint32_t* corners,
                                           std::size_t cornerCount, std::size_t count) {
    const auto placeOf = [&](std::size_t primitive) -> const osg::Pnt3f& {
        return positions[corners[primitive * cornerCount]];
    };
    const auto toQuadPlace = [&](std::size_t primitive) {
        const osg::Pnt3f& place = placeOf(primitive);
        return Quad{place[0], place[1], place[2], 0.0f};
    };
    const QuadBox box = sampleBox(count, toQuadPlace);
    const Quad scale = cellsPerAxis / (box.max - box.min);
    std::vector<Entry> entries(count), sorted(count);
    for (std::size_t i = 0; i < count; ++i) {
        __builtin_prefetch(&placeOf(std::min(i + entriesAhead, count - 1)));
        const Quad cell = (toQuadPlace(i) - box.min) * scale;
        const std::uint32_t key =
            spreadBits(cellOf(cell[0])) | spreadBits(cellOf(cell[1])) << 1 | spreadBits(cellOf(cell[2])) << 2;
        entries[i] = {key, static_cast<std::uint32_t>(i)};
    }
    for (int digit = 0; digit < digitCount - 1; ++digit) {
        distribute(entries, digit, [&](std::size_t place, const Entry& entry) { sorted[place] = entry; });
        entries.swap(sorted);
    }
    std::vector<std::uint32_t> order(count);
    distribute(entries, digitCount - 1, [&](std::size_t place, const Entry& entry) { order[place] = entry.number; });
    return order;
}

} // namespace tesk::measurement::acceleration
