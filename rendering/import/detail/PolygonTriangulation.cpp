#include <rendering/import/detail/PolygonTriangulation.h>

#include <algorithm>
#include <cmath>

namespace tesk::rendering::detail {

namespace {

/// Double precision: only decides where to cut, no coordinate comes from it.
struct PlanePoint {
    double x, y;
};

double signedArea(const PlanePoint& a, const PlanePoint& b, const PlanePoint& c) {
    return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

bool isSame(const PlanePoint& a, const PlanePoint& b) { return a.x == b.x && a.y == b.y; }

std::array<double, 3> newellNormal(const std::vector<Point>& polygon) {
    std::array<double, 3> normal{};
    for (std::size_t i = 0; i < polygon.size(); ++i) {
        const Point& a = polygon[i];
        const Point& b = polygon[(i + 1) % polygon.size()];
        for (int axis = 0; axis < 3; ++axis) {
            const int next = (axis + 1) % 3, last = (axis + 2) % 3;
            normal[axis] += (double(a[next]) - double(b[next])) * (double(a[last]) + double(b[last]));
        }
    }
    return normal;
}

/// Along the normal's largest component, so that the polygon runs counterclockwise.
std::vector<PlanePoint> project(const std::vector<Point>& polygon) {
    const std::array<double, 3> normal = newellNormal(polygon);
    int axis = 0;
    for (int other = 1; other < 3; ++other)
        if (std::abs(normal[other]) > std::abs(normal[axis])) axis = other;
    int right = (axis + 1) % 3, up = (axis + 2) % 3;
    if (normal[axis] < 0) std::swap(right, up);
    std::vector<PlanePoint> projected;
    projected.reserve(polygon.size());
    for (const Point& point : polygon) projected.push_back({double(point[right]), double(point[up])});
    return projected;
}

class EarClipper {
public:
    explicit EarClipper(std::vector<PlanePoint> polygon) : points(std::move(polygon)) {
        for (std::uint32_t corner = 0; corner < points.size(); ++corner) ring.push_back(corner);
        // A corner that is not reflex now never becomes so.
        for (std::uint32_t place = 0; place < ring.size(); ++place)
            if (!isConvex(place)) reflexCorners.push_back(ring[place]);
    }

    std::vector<std::array<std::uint32_t, 3>> clip() {
        std::size_t place = 1, failures = 0;
        while (ring.size() > 3 && failures < ring.size()) {
            place %= ring.size();
            if (isEar(place)) {
                cut(place);
                place = std::max<std::size_t>(place, 2) - 1;
                failures = 0;
            } else {
                ++place;
                ++failures;
            }
        }
        while (ring.size() > 2) cut(1);
        return std::move(triangles);
    }

private:
    std::uint32_t before(std::size_t place) const { return ring[(place + ring.size() - 1) % ring.size()]; }
    std::uint32_t after(std::size_t place) const { return ring[(place + 1) % ring.size()]; }

    bool isConvex(std::size_t place) const {
        return signedArea(points[before(place)], points[ring[place]], points[after(place)]) > 0;
    }

    bool isEar(std::size_t place) const {
        if (!isConvex(place)) return false;
        const PlanePoint& a = points[before(place)];
        const PlanePoint& b = points[ring[place]];
        const PlanePoint& c = points[after(place)];
        return std::none_of(reflexCorners.begin(), reflexCorners.end(), [&](std::uint32_t corner) {
            const PlanePoint& p = points[corner];
            // Corners that touch where a hole is joined to the outline do not count.
            if (isSame(p, a) || isSame(p, b) || isSame(p, c)) return false;
            return signedArea(a, b, p) >= 0 && signedArea(b, c, p) >= 0 && signedArea(c, a, p) >= 0;
        });
    }

    void cut(std::size_t place) {
        triangles.push_back({before(place), ring[place], after(place)});
        const auto reflex = std::find(reflexCorners.begin(), reflexCorners.end(), ring[place]);
        if (reflex != reflexCorners.end()) reflexCorners.erase(reflex);
        ring.erase(ring.begin() + static_cast<std::ptrdiff_t>(place));
    }

    std::vector<PlanePoint> points;
    std::vector<std::uint32_t> ring;
    std::vector<std::uint32_t> reflexCorners;
    std::vector<std::array<std::uint32_t, 3>> triangles;
};

} // namespace

std::vector<std::array<std::uint32_t, 3>> triangulate(const std::vector<Point>& polygon) {
    return EarClipper(project(polygon)).clip();
}

} // namespace tesk::rendering::detail
