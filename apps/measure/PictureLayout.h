#pragma once

#include <apps/measure/PictureMeasurements.h>
#include <apps/measure/PictureOptions.h>

#include <rendering/picture/FittedView.h>

#include <optional>
#include <vector>

namespace tesk::measure {

/// How many digits after the point labels have.
///
/// Without a wish, so many that they tell about the ten thousandth part of the scene; else so many that the smallest
/// value has the significant digits wanted, as far as single precision knows them in a scene of this size. Zero values
/// do not count.
int chooseDecimals(const std::optional<int>& wantedDigits, const std::vector<float>& values, float sceneSize);

/// Text and lines that are readable and look alike at any size of the picture.
PictureStyle chooseStyle(const PictureSize& size, int decimals);

/// Free edges, wider where chart and legend are.
rendering::Margins chooseMargins(const PictureSize& size, bool hasChart, bool hasLegend);

/// Width by height.
float aspectOf(const PictureSize& size);

/// Fits the points, with margins as wide as labels need that would reach beyond the picture's edge.
rendering::FittedView fitWithLabels(const std::vector<osg::Pnt3f>& points, const rendering::Box& drawn,
                                    const std::vector<PictureLabel>& labels, float labelHeight,
                                    const PictureOptions& options, rendering::Margins margins);

} // namespace tesk::measure
