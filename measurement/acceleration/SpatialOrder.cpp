#include <measurement/acceleration/SpatialOrder.h>

#include <measurement/acceleration/QuadBox.h>

#include <algorithm>
#include <array>
#include <utility>

namespace tesk::measurement::acceleration {

namespace {

constexpr float cellsPerAxis = 1024.0f;
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

struct Entry {
    std::uint32_t key;
    std::uint32_t number;
};

/// Stable, by ten bits of the key.
void distribute(const std::vector<Entry>& from, std::vector<Entry>& to, int digit) {
    const auto valueOf = [digit](const Entry& entry) { return entry.key >> (digit * digitBits) & (digitValues - 1); };
    std::array<std::size_t, digitValues> next{};
    for (const Entry& entry : from) ++next[valueOf(entry)];
    std::size_t begin = 0;
    for (std::size_t& n : next) begin += std::exchange(n, begin);
    for (const Entry& entry : from) to[next[valueOf(entry)]++] = entry;
}

} // namespace

std::vector<std::uint32_t> orderAlongCurve(const osg::Pnt3f* positions, const std::uint32_t* corners,
                                           std::size_t cornerCount, std::size_t count) {
    const auto centreOf = [&](std::size_t primitive) {
        Quad total{};
        for (std::size_t which = 0; which < cornerCount; ++which)
            total += toQuad(positions[corners[primitive * cornerCount + which]]);
        return total;
    };
    QuadBox box;
    for (std::size_t i = 0; i < count; ++i) {
        const Quad centre = centreOf(i);
        box.grow({centre, centre});
    }
    const Quad extent = box.max - box.min;
    const Quad scale = cellsPerAxis / Quad{extent[0], extent[1], extent[2], 1.0f};
    std::vector<Entry> entries(count), buffer(count);
    for (std::size_t i = 0; i < count; ++i) {
        const Quad cell = (centreOf(i) - box.min) * scale;
        entries[i] = {spreadBits(cellOf(cell[0])) | spreadBits(cellOf(cell[1])) << 1 | spreadBits(cellOf(cell[2])) << 2,
                      static_cast<std::uint32_t>(i)};
    }
    for (int digit = 0; digit < digitCount; ++digit) {
        distribute(entries, buffer, digit);
        entries.swap(buffer);
    }
    std::vector<std::uint32_t> order;
    order.reserve(count);
    for (const Entry& entry : entries) order.push_back(entry.number);
    return order;
}

} // namespace tesk::measurement::acceleration
