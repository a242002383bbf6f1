#include <apps/measure/Picture.h>

#include <apps/measure/Failure.h>
#include <apps/measure/FileReplacement.h>
#include <apps/measure/MeasurementReport.h>
#include <apps/measure/PictureLayout.h>
#include <apps/measure/PictureMeasurements.h>
#include <apps/measure/PictureObjects.h>
#include <apps/measure/SampleFile.h>

#include <rendering/picture/PngEncoding.h>
#include <rendering/picture/ScenePicture.h>

#include <OpenSG/OSGGroup.h>

#include <algorithm>
#include <optional>
#include <set>
#include <stdexcept>

namespace tesk::measure {

namespace {

using Measured = std::vector<SessionMeasurement>;

/// Chart and legend show one that has samples.
bool isSampled(const SessionMeasurement& measured) { return samplesOf(measured.measurement) != nullptr; }

/// The one that is wanted, or else the last, which is the command's own, before the first; null when there is none.
const SessionMeasurement* chooseActive(const Measured& all, const std::string& wanted) {
    if (wanted.empty()) {
        if (!all.empty() && isSampled(all.back())) return &all.back();
        const auto first = std::find_if(all.begin(), all.end(), isSampled);
        return first != all.end() ? &*first : nullptr;
    }
    const std::string name = singleSpaced(wanted);
    for (const SessionMeasurement& measured : all) {
        if (isSampled(measured) && (name == measured.report.name || name == measured.report.getTitle()))
            return &measured;
    }
    throw Failure("no gap or line-object measurement with a value is called '" + name + "'");
}

/// Some of the points, evenly spread; not always the same of the three that a sample has.
std::vector<osg::Pnt3f> thinned(const std::vector<osg::Pnt3f>& points, std::size_t most) {
    std::size_t step = points.size() / most + 1;
    if (step > 1 && step % 3 == 0) ++step;
    std::vector<osg::Pnt3f> some;
    for (std::size_t i = 0; i < points.size(); i += step) some.push_back(points[i]);
    return some;
}

std::set<const CatalogueNode*> measuredNodes(const Measured& all) {
    std::set<const CatalogueNode*> nodes;
    for (const SessionMeasurement& measured : all)
        nodes.insert(measured.input.nodes.begin(), measured.input.nodes.end());
    nodes.erase(nullptr);
    return nodes;
}

std::vector<float> valuesOf(const Measured& all) {
    std::vector<float> values;
    for (const SessionMeasurement& measured : all) values.push_back(measured.report.numbers.front().number);
    return values;
}

/// Everything of a picture but the camera.
class PictureScene {
public:
    PictureScene(const PictureOptions& pictureOptions, const Measured& all, const SceneCatalogue& catalogue)
        : options(pictureOptions), active(chooseActive(all, options.active)),
          objects(catalogue, measuredNodes(all), chooseStyle(options.size, 0).lineWidth),
          toFit(objects.getColoredPoints()) {
        for (const SessionMeasurement& measured : all) addPoints(measured.measurement);
        fitted = rendering::boxOf(toFit);
        style = chooseStyle(options.size, chooseDecimals(options.digits, valuesOf(all), fitted.getDiagonal()));
        measurements.emplace(style);
        for (const SessionMeasurement& measured : all) measurements->add(measured.measurement);
        if (active != nullptr) measurements->setActive(active->measurement);
        root = osg::makeCoredNode<osg::Group>();
        const osg::CPEditor editor(root.get(), osg::Node::ChildrenFieldMask);
        root->addChild(objects.getNode());
        root->addChild(measurements->getNode());
    }

    /// Places the camera and opens the view of what it is to see.
    rendering::FittedView look() {
        constexpr float tolerance = 0.005f;
        constexpr std::size_t mostRays = 200;
        const bool hasLegend = active != nullptr && active->input.kind == Command::lineObject;
        rendering::Box drawn = fitted;
        if (objects.getBounds()) drawn.extendBy(*objects.getBounds());
        const rendering::FittedView view =
            fitWithLabels(toFit, drawn, measurements->getLabels(), style.labelHeight, options,
                          chooseMargins(options.size, active != nullptr, hasLegend));
        objects.seeThrough(view.getEye(), thinned(toSee, mostRays), tolerance * fitted.getDiagonal());
        return view;
    }

    osg::NodePtr getRoot() const { return root.get(); }

private:
    void addPoints(const measurement::Measurement& measurement) {
        constexpr std::size_t mostOfOne = 24;
        // Beside the surfaces on which the ends lie, which would hide them by rounding.
        constexpr float inset = 0.03f;
        for (const osg::Pnt3f& point : pointsOf(measurement)) toFit.push_back(point);
        for (const osg::Pnt3f& point : thinned(pointsOf(measurement, inset), mostOfOne)) toSee.push_back(point);
    }

    const PictureOptions& options;
    const SessionMeasurement* active;
    PictureObjects objects;
    std::vector<osg::Pnt3f> toFit;
    /// No object is to hide these.
    std::vector<osg::Pnt3f> toSee;
    rendering::Box fitted;
    PictureStyle style{};
    std::optional<PictureMeasurements> measurements;
    osg::RefPtr<osg::NodePtr> root;
};

std::string drawPng(const PictureOptions& options, const Measured& all, const SceneCatalogue& catalogue) {
    const auto [width, height] = options.size;
    // First of all, so that what is certain to fail takes no time.
    rendering::OffscreenContext context(width, height);
    PictureScene scene(options, all, catalogue);
    const rendering::FittedView view = scene.look();
    return rendering::encodePng(width, height,
                                rendering::drawScene(context, scene.getRoot(), view, options.background));
}

} // namespace

void drawPicture(const PictureOptions& options, const MeasurementSession& session, const SceneCatalogue& catalogue) {
    std::string bytes;
    try {
        bytes = drawPng(options, session.getMeasurements(), catalogue);
    } catch (const std::runtime_error& cause) {
        throw Failure("cannot draw " + options.file + ": " + cause.what());
    }
    FileReplacement file(options.file);
    file.write(bytes);
    file.commit();
}

} // namespace tesk::measure
