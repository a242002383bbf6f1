#pragma once

#include <measurement/section/detail/SampleStatistics.h>

#include <OpenSG/OSGColor.h>

#include <array>
#include <optional>
#include <vector>

/// Where the things of a chart of sampled distances lie, in units of the screen board that places it.
namespace tesk::measurement::detail {

/// The frame of a chart, spread horizontally around the mouse while that is inside.
struct ChartFrame {
    /// The range of the chart without magnification.
    float left = 2.0f, bottom = 0.0f, right = 20.0f, top = 2.0f;
    float zoomStrength = 2.0f;
    osg::Pnt2f mousePosition{0.0f, 0.0f};
    /// The horizontal extent of the frame as last drawn.
    float zoomedLeft = 0.0f, zoomedRight = 0.0f;

    /// Whether the mouse is inside the frame as last drawn; never where it is no number.
    bool containsMouse() const;
    /// Moves a place away from the mouse, most strongly next to it and by zoomStrength * pi / 2 at most, while the
    /// mouse is inside.
    float getZoomedX(float x) const;
    /// A new extent, as drawn from now on: the left end by the mouse in the former frame, the right end by the mouse
    /// between the new left end and the former right one.
    void zoom();
};

/// The vertical scale: from zero to the maximum distance with a margin of 0.2 below and above.
class ChartScale {
public:
    ChartScale(const ChartFrame& chartFrame, float maximumDistance);

    /// The height of a distance; nothing for one that lies outside the frame or is no finite number.
    std::optional<float> getHeight(float distance) const;

private:
    const ChartFrame& frame;
    float offset;
    float range;
};

struct ChartSample {
    osg::Pnt2f position;
    osg::Color3f color;
    float distance;
};

struct ChartSamples {
    /// In the order of the pairs, those left out that have no height.
    std::vector<ChartSample> all;
    /// The first of those nearest the mouse.
    std::optional<ChartSample> nearest;
};

/// The pairs' distances from left to right at equal steps before magnification, coloured by the average.
ChartSamples layOutSamples(const PointPairs& pointPairs, float averageDistance, const ChartFrame& frame,
                           const ChartScale& scale);

/// Where the label of a line at that height starts, on its baseline.
osg::Pnt2f labelPosition(const ChartFrame& frame, float height);

/// The corners of the plate behind a text of that width on a baseline, anticlockwise from the lower left. It reaches
/// from 0.35 below to 0.3 above the text's middle, which is the line that a label is for.
std::array<osg::Pnt2f, 4> plateCorners(const osg::Pnt2f& baseline, float textWidth);

/// The corners of the frame, anticlockwise from the lower left.
std::array<osg::Pnt2f, 4> frameCorners(const ChartFrame& frame);

} // namespace tesk::measurement::detail
