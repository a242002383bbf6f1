#include <apps/measure/PictureLayout.h>

#include <algorithm>
#include <cmath>

namespace tesk::measure {

namespace {

int exponentOf(float number) { return static_cast<int>(std::floor(std::log10(number))); }

/// How much larger a picture is than the usual one.
float pixelScale(const PictureSize& size) {
    constexpr float usualSize = 960.0f;
    return static_cast<float>(std::min(size.width, size.height)) / usualSize;
}

bool isAnyMissing(const rendering::Margins& missing) {
    return std::max({missing.left, missing.right, missing.bottom, missing.top}) > 0.0f;
}

/// How far labels reach beyond the picture less a narrow edge.
rendering::Margins missingFor(const std::vector<PictureLabel>& labels, float labelHeight,
                              const rendering::FittedView& view, float aspect) {
    constexpr float edge = 0.01f;
    rendering::Margins missing{0.0f, 0.0f, 0.0f, 0.0f};
    for (const PictureLabel& label : labels) {
        const osg::Pnt2f place = view.project(label.position, aspect);
        const osg::Vec2f unit(labelHeight / aspect, labelHeight);
        missing.left = std::max(missing.left, edge - place[0] - label.lower[0] * unit[0]);
        missing.right = std::max(missing.right, place[0] + label.upper[0] * unit[0] - 1.0f + edge);
        missing.bottom = std::max(missing.bottom, edge - place[1] - label.lower[1] * unit[1]);
        missing.top = std::max(missing.top, place[1] + label.upper[1] * unit[1] - 1.0f + edge);
    }
    return missing;
}

} // namespace

int chooseDecimals(const std::optional<int>& wantedDigits, const std::vector<float>& values, float sceneSize) {
    constexpr int most = 12, digitsOfFloat = 8;
    constexpr float partsOfScene = 4.0f; // as a power of ten
    if (!(sceneSize > 0.0f)) return 1;
    if (!wantedDigits) return std::clamp(static_cast<int>(std::lround(partsOfScene - std::log10(sceneSize))), 0, most);
    float smallest = sceneSize;
    for (const float value : values)
        if (value > 0.0f) smallest = std::min(smallest, value);
    const int known = digitsOfFloat - 1 - exponentOf(sceneSize);
    return std::clamp(std::min(*wantedDigits - 1 - exponentOf(smallest), known), 0, most);
}

PictureStyle chooseStyle(const PictureSize& size, int decimals) {
    constexpr float labelPixels = 30.0f, leastLabelPixels = 15.0f, linePixels = 2.0f, leastLinePixels = 1.0f;
    const float scale = pixelScale(size);
    const float labelHeight = std::max(labelPixels * scale, leastLabelPixels) / static_cast<float>(size.height);
    return {labelHeight, std::max(linePixels * scale, leastLinePixels), decimals};
}

rendering::Margins chooseMargins(const PictureSize& size, bool hasChart, bool hasLegend) {
    // Chart and legend are drawn on boards of 32.5 by 21 units that fit into the picture.
    constexpr float boardWidth = 32.5f, boardHeight = 21.0f, chartHeight = 3.2f, legendHeight = 4.2f;
    const float unit = std::min(aspectOf(size) / boardWidth, 1.0f / boardHeight);
    rendering::Margins margins;
    if (hasChart) margins.bottom = std::max(margins.bottom, chartHeight * unit);
    if (hasLegend) margins.top = std::max(margins.top, legendHeight * unit);
    return margins;
}

float aspectOf(const PictureSize& size) { return static_cast<float>(size.width) / static_cast<float>(size.height); }

rendering::FittedView fitWithLabels(const std::vector<osg::Pnt3f>& points, const rendering::Box& drawn,
                                    const std::vector<PictureLabel>& labels, float labelHeight,
                                    const PictureOptions& options, rendering::Margins margins) {
    constexpr int mostAttempts = 5;
    constexpr float widest = 0.4f;
    const float aspect = aspectOf(options.size);
    rendering::FittedView view = rendering::fitView(points, drawn, options.viewFrom, aspect, margins);
    // Each new view moves the labels a little.
    for (int attempt = 0; attempt < mostAttempts; ++attempt) {
        const rendering::Margins missing = missingFor(labels, labelHeight, view, aspect);
        if (!isAnyMissing(missing)) break;
        margins = {std::min(margins.left + missing.left, widest), std::min(margins.right + missing.right, widest),
                   std::min(margins.bottom + missing.bottom, widest), std::min(margins.top + missing.top, widest)};
        view = rendering::fitView(points, drawn, options.viewFrom, aspect, margins);
    }
    return view;
}

} // namespace tesk::measure
