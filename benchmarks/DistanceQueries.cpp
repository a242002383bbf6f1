#include <benchmarks/Works.h>

#include <measurement/geometry/DistanceLineLine.h>
#include <measurement/geometry/DistanceLineSegment.h>
#include <measurement/geometry/DistanceLineTriangle.h>
#include <measurement/geometry/DistanceSegmentPoint.h>
#include <measurement/geometry/DistanceSegmentTriangle.h>
#include <measurement/geometry/DistanceTrianglePoint.h>
#include <measurement/geometry/DistanceTriangleTriangle.h>

#include <benchmark/benchmark.h>
#include <support/Random.h>

#include <array>

namespace tesk::benchmarks {

using namespace measurement;

namespace {

constexpr std::size_t operandCount = 1024;

// Operands of extent 1, the second one's centre up to 3 away in each coordinate: neighbours in a mesh, as a search
// meets them.
template <class Operand> Operand create(test::Random& random, const osg::Vec3f& centre);

template <> osg::Pnt3f create(test::Random& random, const osg::Vec3f& centre) { return random.point(1.0f) + centre; }

template <> osg::Vec3f create(test::Random& random, const osg::Vec3f& centre) { return random.vector(1.0f) + centre; }

template <> Line create(test::Random& random, const osg::Vec3f& centre) {
    return {create<osg::Pnt3f>(random, centre), random.vector(1.0f)};
}

template <> Segment create(test::Random& random, const osg::Vec3f& centre) {
    const Segment segment = random.segment(1.0f);
    return {segment.start + centre, segment.end + centre};
}

template <> Triangle create(test::Random& random, const osg::Vec3f& centre) {
    const Triangle triangle = random.triangle(1.0f);
    return {triangle.p0 + centre, triangle.p1 + centre, triangle.p2 + centre};
}

template <class Query, class First, class Second> void measureQuery(benchmark::State& state) {
    test::Random random(1);
    std::array<First, operandCount> firsts;
    std::array<Second, operandCount> seconds;
    for (First& first : firsts) first = create<First>(random, osg::Vec3f(0, 0, 0));
    for (Second& second : seconds) second = create<Second>(random, random.vector(3.0f));
    Query query(firsts[0], seconds[0]);
    std::size_t next = 0;
    for (auto _ : state) {
        query.calcDistance(firsts[next], seconds[next]);
        benchmark::DoNotOptimize(query);
        next = (next + 1) % operandCount;
    }
}

template <class Query, class First, class Second> void addQuery(const char* name) {
    benchmark::RegisterBenchmark(name, measureQuery<Query, First, Second>);
}

} // namespace

void addDistanceQueries() {
    addQuery<DistanceLineLine, Line, Line>("DistanceQuery/LineLine");
    addQuery<DistanceLineSegment, Line, Segment>("DistanceQuery/LineSegment");
    addQuery<DistanceLineTriangle, Line, Triangle>("DistanceQuery/LineTriangle");
    addQuery<DistanceSegmentPoint, Segment, osg::Pnt3f>("DistanceQuery/SegmentPoint");
    addQuery<DistanceSegmentTriangle, Segment, Triangle>("DistanceQuery/SegmentTriangle");
    addQuery<DistanceTrianglePoint, Triangle, osg::Vec3f>("DistanceQuery/TrianglePoint");
    addQuery<DistanceTriangleTriangle, Triangle, Triangle>("DistanceQuery/TriangleTriangle");
}

} // namespace tesk::benchmarks
