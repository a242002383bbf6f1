#include <apps/measure/SampleFile.h>

#include <apps/measure/FileReplacement.h>
#include <apps/measure/Numbers.h>

#include <measurement/section/LineObjectMeasurement.h>

#include <cmath>

namespace tesk::measure {

namespace {

float distanceBetween(const osg::Pnt3f& point1, const osg::Pnt3f& point2) {
    const float x = point1[0] - point2[0], y = point1[1] - point2[1], z = point1[2] - point2[2];
    return std::sqrt(x * x + y * y + z * z);
}

void appendPoint(std::string& text, const osg::Pnt3f& point) {
    for (osg::UInt32 axis = 0; axis < 3; ++axis) text += formatNumber(point[axis], 9) + ",";
}

} // namespace

const measurement::GapMeasurement::PointPairs* samplesOf(const measurement::Measurement& measurement) {
    if (const auto* gap = dynamic_cast<const measurement::GapMeasurement*>(&measurement)) return &gap->getPointPairs();
    const auto* line = dynamic_cast<const measurement::LineObjectMeasurement*>(&measurement);
    return line != nullptr ? &line->getPointPairs() : nullptr;
}

void writeSamples(const std::string& path, const measurement::GapMeasurement::PointPairs& samples) {
    constexpr std::size_t enoughToWrite = std::size_t{1} << 16;
    FileReplacement file(path);
    std::string text = "x1,y1,z1,x2,y2,z2,distance\n";
    for (const auto& [point1, point2] : samples) {
        appendPoint(text, point1);
        appendPoint(text, point2);
        text += formatNumber(distanceBetween(point1, point2), 9) + "\n";
        if (text.size() < enoughToWrite) continue;
        file.write(text);
        text.clear();
    }
    file.write(text);
    file.commit();
}

} // namespace tesk::measure
