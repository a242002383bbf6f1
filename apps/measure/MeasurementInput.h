#pragma once

#include <apps/measure/Options.h>
#include <apps/measure/SceneCatalogue.h>

#include <vector>

namespace tesk::measure {

/// What a measurement measures, its nodes found.
struct MeasurementInput {
    Command kind = Command::pointPoint;
    /// In the order of the measurement's nodes, null where there is none; a free point of point-object counts as lying
    /// on the object.
    std::vector<const CatalogueNode*> nodes;
    /// The given points, not those that measuring finds.
    std::vector<osg::Pnt3f> points;
    /// The sample distance of a gap or line-object.
    float step = 0.0f;

    /// Empty where there is no node.
    std::string getNodeName(std::size_t index) const;
    osg::NodePtr getNode(std::size_t index) const;
};

/// Throws Failure when the nodes cannot be measured: one is missing, has nothing with an area in it (or, where lines
/// count, nothing with a length), reaches beyond the range of single precision, or is part of the other.
void checkInput(const MeasurementInput& input, const SceneCatalogue& catalogue);

/// How many samples the measurement takes at most, give or take rounding: steps along the track of a gap or along all
/// lines of a line object; 0 for the other kinds and while a node is missing.
double countSamples(const MeasurementInput& input);

/// Throws Failure, with the number, when more samples are needed than a run may take.
void checkSampleCount(double count);
/// The same for a saved document, which holds fewer.
void checkSavedSampleCount(double count);

} // namespace tesk::measure
