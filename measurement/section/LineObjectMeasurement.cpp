#include <measurement/section/LineObjectMeasurement.h>

#include <measurement/geometry/detail/VectorMath.h>
#include <measurement/model/detail/GroupNode.h>
#include <measurement/scene/detail/GeometryPrimitives.h>
#include <measurement/scene/detail/PointIndex.h>
#include <measurement/scene/detail/SubtreeWalk.h>
#include <measurement/section/LineGraph.h>
#include <measurement/section/detail/PositionArray.h>
#include <measurement/section/detail/SampleStatistics.h>

#include <platform/tkOptimize.h>

#include <cmath>

namespace tesk::measurement {

namespace {

/// Ends of lines up to this far apart are one vertex.
constexpr float mergeDistance = 0.005f;

float edgeLength(const LineGraphIterator& place) { return std::sqrt(detail::squaredLength(place.getDirection())); }

/// Whether single precision has a parameter a step after any in the first half of an edge. Otherwise steps would lead
/// there and never on, after millions of them.
bool isStepOnEdge(float step, float length) { return 0.5f + step / length > 0.5f; }

/// False where the parameter is NaN.
bool isSamePlace(const LineGraphIterator& a, const LineGraphIterator& b) {
    return a.getFirstNode() == b.getFirstNode() && a.getSecondNode() == b.getSecondNode() &&
           a.getParameter() == b.getParameter();
}

} // namespace

LineObjectMeasurement::LineObjectMeasurement(MeasurementManager* owner) : AbstractMeasurement(owner) {}

void LineObjectMeasurement::update() {
    averageDistance = 0.0f;
    deviation = 0.0f;
    pointPairs.clear();
    // Deliberate: minimum and maximum are left as they are, and nobody is told.
    if (line == osg::NullFC || node == osg::NullFC) return;
    const osg::NodeRefPtr mergedLine(mergeLineGeometry(line));
    sampleLine(LineGraph(mergedLine));
    calcStatistics();
    AbstractMeasurement::update();
}

float LineObjectMeasurement::getValue() const { return averageDistance; }

void LineObjectMeasurement::setLine(const osg::NodePtr& lineObject, const osg::Pnt3f& point) {
    detail::hold(line, lineObject);
    setNode1(lineObject);
    linePoint = point;
}

void LineObjectMeasurement::setNode(const osg::NodePtr& object) {
    detail::hold(node, object);
    setNode2(object);
}

osg::NodePtr LineObjectMeasurement::mergeLineGeometry(const osg::NodePtr& lineObject) {
    const osg::GeoPTypesUI8Ptr types = osg::GeoPTypesUI8::create();
    const osg::GeoPLengthsUI32Ptr lengths = osg::GeoPLengthsUI32::create();
    const osg::GeoIndicesUI32Ptr indices = osg::GeoIndicesUI32::create();
    const osg::GeoPositions3fPtr positions = osg::GeoPositions3f::create();
    osg::GeometryPtr geometry;
    const osg::NodePtr merged = osg::makeCoredNode<osg::Geometry>(&geometry);
    {
        const osg::CPEditor edit(geometry, osg::Geometry::TypesFieldMask | osg::Geometry::LengthsFieldMask |
                                               osg::Geometry::IndicesFieldMask | osg::Geometry::PositionsFieldMask);
        geometry->setTypes(types);
        geometry->setLengths(lengths);
        geometry->setIndices(indices);
        geometry->setPositions(positions);
    }
    {
        // Ended from the last to the first: the end of the positions' edit has the volume computed from the others.
        const osg::CPEditor positionsEdit(positions, osg::GeoPositions3f::GeoPropDataFieldMask);
        const osg::CPEditor indicesEdit(indices, osg::GeoIndicesUI32::GeoPropDataFieldMask);
        const osg::CPEditor lengthsEdit(lengths, osg::GeoPLengthsUI32::GeoPropDataFieldMask);
        const osg::CPEditor typesEdit(types, osg::GeoPTypesUI8::GeoPropDataFieldMask);
        mergeLinesRec(lineObject, positions, indices);
        types->push_back(GL_LINES);
        lengths->push_back(positions->getSize());
    }
    tkOptimize::unifyVerticesEpsilon(merged, mergeDistance);
    return merged;
}

void LineObjectMeasurement::mergeLinesRec(const osg::NodePtr& lineObject, const osg::GeoPositions3fPtr& positions,
                                          const osg::GeoIndicesUI32Ptr& indices) {
    detail::visitSubtree(lineObject, [&](const osg::NodePtr& visited) {
        const osg::GeometryPtr geometry = detail::getGeometry(visited);
        if (geometry == osg::NullFC) return;
        const osg::Matrix toWorld = visited->getToWorld();
        const detail::GeometryPositions ends(geometry);
        detail::forEachLineByIndex(geometry, ends, [&](osg::Int32 first, osg::Int32 second) {
            if (first == second) return;
            for (const osg::Int32 end : {first, second}) {
                osg::Pnt3f position = ends[end];
                toWorld.multMatrixPnt(position);
                indices->push_back(positions->getSize());
                positions->push_back(position);
            }
        });
    });
}

void LineObjectMeasurement::sampleLine(const LineGraph& graph) {
    const LineGraphIterator start = graph.at(linePoint);
    std::set<int> visited{start.getFirstIndex()};
    detail::PointIndex object(node);
    float upper = 0.0f, lower = 0.0f;
    const auto walk = [&](auto move, auto record) {
        LineGraphIterator place = start, sampled;
        do {
            sampled = place;
            const osg::Pnt3f point = place.getPosition();
            object.calc(point);
            const float distance = detail::distanceBetween(point, object.getPoint());
            if (pointPairs.empty()) {
                upper = upperBandFactor * distance;
                lower = lowerBandFactor * distance;
            } else if (distance > upper || distance < lower) {
                return;
            }
            record(std::make_pair(point, object.getPoint()));
            averageDistance += distance;
            // A walk that stays where it is would go on for ever.
        } while (sampleDistance > 0.0f && move(place) && !isSamePlace(place, sampled));
    };
    walk([&](LineGraphIterator& place) { return moveForward(place, visited); },
         [&](const auto& pair) { pointPairs.push_back(pair); });
    // Deliberate: the start is sampled again.
    walk([&](LineGraphIterator& place) { return moveBackward(place, visited); },
         [&](const auto& pair) { pointPairs.push_front(pair); });
}

bool LineObjectMeasurement::moveForward(LineGraphIterator& place, std::set<int>& visited) const {
    if (place.isAtEnd()) return false;
    float walked = 0.0f;
    for (;;) {
        const float length = edgeLength(place);
        const float reach = (1.0f - place.getParameter()) * length + walked;
        if (sampleDistance <= reach) {
            place.setParameter(place.getParameter() + (sampleDistance - walked) / length);
            return isStepOnEdge(sampleDistance, length);
        }
        place.setParameter(0.0f);
        if (!place.findNextPoint()) {
            place.setParameter(1.0f);
            return true;
        }
        if (!visited.insert(place.getFirstIndex()).second) return false;
        walked = reach;
    }
}

bool LineObjectMeasurement::moveBackward(LineGraphIterator& place, std::set<int>& visited) const {
    if (place.isAtBeginning()) return false;
    float walked = 0.0f;
    for (;;) {
        const float length = edgeLength(place);
        const float reach = place.getParameter() * length + walked;
        if (sampleDistance <= reach) {
            place.setParameter(place.getParameter() - (sampleDistance - walked) / length);
            return true;
        }
        place.setParameter(1.0f);
        if (!place.findPreviousPoint()) {
            place.setParameter(0.0f);
            return true;
        }
        // Deliberate: the node just reached, where the walk forward looks at the one just passed.
        if (!visited.insert(place.getFirstIndex()).second) return false;
        walked = reach;
    }
}

void LineObjectMeasurement::calcStatistics() {
    // There are samples: the first one is always recorded.
    const detail::SampleStatistics statistics = detail::calcStatistics(pointPairs, averageDistance);
    averageDistance = statistics.average;
    deviation = statistics.deviation;
    minimumDistance = statistics.minimum;
    maximumDistance = statistics.maximum;
}

} // namespace tesk::measurement
