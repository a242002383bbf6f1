#include <benchmarks/Comparison.h>
#include <benchmarks/Works.h>

#include <measurement/model/MeasurementManager.h>
#include <measurement/model/PointPointMeasurement.h>
#include <measurement/section/GapMeasurement.h>
#include <measurement/visualisation/LineObjectMeasurementVisualisation.h>
#include <measurement/visualisation/OverlayGraphMeasurementVisualisation.h>
#include <measurement/visualisation/SimpleMeasurementVisualisation.h>
#include <rendering/picture/ScenePicture.h>

#include <OpenSG/OSGMatrixCamera.h>
#include <OpenSG/OSGPassiveWindow.h>
#include <OpenSG/OSGRenderAction.h>
#include <OpenSG/OSGViewport.h>
#include <support/Scenes.h>

#include <memory>
#include <stdexcept>

namespace tesk::benchmarks {

using namespace measurement;

namespace {

/// Distances between two points, shown with arrows and labels.
class ShownDistances {
public:
    explicit ShownDistances(std::size_t count) {
        manager.addVisualisation(&shown);
        for (std::size_t i = 0; i < count; ++i) measurements.push_back(manager.createPointPointMeasurement());
        move(0.0f);
    }
    ~ShownDistances() {
        manager.removeAllMeasurements();
        manager.removeVisualisation(&shown);
    }
    ShownDistances(const ShownDistances&) = delete;
    ShownDistances& operator=(const ShownDistances&) = delete;

    /// Gives every measurement another second point, which updates what is shown.
    void move(float distance) {
        for (std::size_t i = 0; i < measurements.size(); ++i)
            measurements[i]->setPoint2(osg::NullFC, osg::Pnt3f(distance, static_cast<float>(i), 1.0f));
    }
    void setPrecision(int digits) { shown.setPrecision(digits); }

private:
    MeasurementManager manager;
    SimpleMeasurementVisualisation shown;
    std::vector<PointPointMeasurement*> measurements;
};

void measureUpdate(benchmark::State& state, std::size_t count) {
    ShownDistances distances(count);
    float distance = 0.0f;
    compare(state, {{"ours", [&] { distances.move(distance += 12.5f); }}});
}

void measurePrecision(benchmark::State& state, std::size_t count) {
    ShownDistances distances(count);
    int digits = 0;
    compare(state, {{"ours", [&] { distances.setPrecision(digits++ % 4); }}});
}

/// A gap between a bar along x and a slope above it.
class Gap {
public:
    explicit Gap(std::size_t count) {
        measurement.setNode1(bar, {0, 0, 0});
        measurement.setNode2(slope, {10, 0, 0});
        // The last sample is half a step in front of the track's end, so that rounding decides about none.
        measurement.setSampleDistance(10.0f / (static_cast<float>(count) - 0.5f));
        measurement.update();
    }

    GapMeasurement measurement{nullptr};

private:
    const test::SceneNode bar = test::triangles({{{-1, -1, 0}, {11, -1, 0}, {5, 2, 0}}});
    const test::SceneNode slope = test::triangles({{{-40, -9, 2}, {40, -9, 5}, {40, 99, 5}}});
};

/// A view for the mouse to move in; draws nothing.
class View {
public:
    View() {
        viewport->setCamera(camera);
        viewport->setSize(0.0f, 0.0f, 1.0f, 1.0f);
        window->addPort(viewport);
        window->resize(1280, 960);
        action->setWindow(window.getCPtr());
        action->setViewport(viewport.getCPtr());
        action->setCamera(camera.getCPtr());
    }
    ~View() { window->subPort(viewport); }
    View(const View&) = delete;
    View& operator=(const View&) = delete;

    osg::RenderAction* getAction() const { return action.get(); }

private:
    osg::RefPtr<osg::MatrixCameraPtr> camera{osg::MatrixCamera::create()};
    osg::RefPtr<osg::ViewportPtr> viewport{osg::Viewport::create()};
    osg::RefPtr<osg::PassiveWindowPtr> window{osg::PassiveWindow::create()};
    std::unique_ptr<osg::RenderAction> action{osg::RenderAction::create()};
};

void measureChart(benchmark::State& state, std::size_t count) {
    const Gap gap(count);
    const View view;
    OverlayGraphMeasurementVisualisation chart;
    chart.setActiveMeasurement(&gap.measurement);
    osg::Pnt2f mouse(200.0f, 940.0f);
    compare(state, {{"ours", [&] {
                         mouse[0] += 10.0f;
                         chart.mouseMoved(view.getAction(), mouse);
                     }}});
    expectCount(state, gap.measurement.getPointPairs().size(), count);
}

void measureLines(benchmark::State& state, std::size_t count) {
    const Gap gap(count);
    LineObjectMeasurementVisualisation lines;
    lines.addMeasurement(&gap.measurement);
    compare(state, {{"ours", [&] { lines.updateMeasurement(&gap.measurement); }}});
}

/// From a scene that was never drawn to the finished picture, in a context that stands.
void measurePicture(benchmark::State& state, std::size_t triangleCount) {
    using namespace rendering;
    const test::SceneNode scene = test::geometry(test::bumpySphere(triangleCount));
    const Box box{{-1.2f, -1.2f, -1.2f}, {1.2f, 1.2f, 1.2f}};
    const FittedView view = fitView(box.getCorners(), box, osg::Vec3f(1, -1, 1), 4.0f / 3.0f, Margins());
    try {
        OffscreenContext context(1280, 960);
        compare(state, {{"ours", [&] { drawScene(context, scene, view, osg::Color3f(1, 1, 1)); }}});
    } catch (const std::runtime_error& failure) {
        skip(state, failure.what());
    }
}

} // namespace

void addVisualisation() {
    const struct {
        const char* name;
        void (*measure)(benchmark::State& state, std::size_t count);
        std::size_t count;
        std::size_t triangleCount;
    } rows[] = {{"Visualisation/update/", measureUpdate, 1, 2},
                {"Visualisation/update/", measureUpdate, 1000, 2000},
                {"Visualisation/precision/", measurePrecision, 1000, 2000},
                {"Visualisation/lines/", measureLines, 10'000, 20'000},
                {"Visualisation/chart/", measureChart, 10'000, 20'000},
                {"Visualisation/picture/", measurePicture, 1'000'000, 1'000'000}};
    for (const auto& row : rows)
        addRow(row.name + std::to_string(row.count), row.triangleCount, false, row.measure, row.count);
}

} // namespace tesk::benchmarks
