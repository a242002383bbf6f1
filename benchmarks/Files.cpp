#include <benchmarks/Comparison.h>
#include <benchmarks/Works.h>

#include <measurement/io/XmlMeasurementReader.h>
#include <measurement/io/XmlMeasurementWriter.h>
#include <measurement/model/CircleMeasurement.h>
#include <measurement/model/MeasurementManager.h>
#include <measurement/model/ObjectObjectMeasurement.h>
#include <measurement/model/PointObjectMeasurement.h>
#include <measurement/model/PointPointMeasurement.h>
#include <measurement/section/GapMeasurement.h>
#include <measurement/section/LineObjectMeasurement.h>
#include <platform/tkScenegraph.h>

#include <support/Scenes.h>

#include <QBuffer>

namespace tesk::benchmarks {

using namespace measurement;

namespace {

constexpr std::size_t measurementCount = 10'000;

/// Small named parts one above the other in the process's scene, and a wire above each: measuring costs little.
class Scene {
public:
    Scene() {
        for (std::size_t i = 0; i < partCount; ++i) {
            const auto height = static_cast<float>(i);
            const float wireHeight = height + 0.5f;
            parts.push_back(test::named(test::quad(height), "part " + std::to_string(i)));
            wires.push_back(test::named(test::lines({{{0, 0.5f, wireHeight}, {1, 0.5f, wireHeight}}}),
                                        "wire " + std::to_string(i)));
        }
        root = test::group({test::group(parts), test::group(wires)});
        tkScenegraph::getRoot()->addChild(root);
    }
    ~Scene() { tkScenegraph::getRoot()->subChild(root.get()); }
    Scene(const Scene&) = delete;
    Scene& operator=(const Scene&) = delete;

    /// All kinds in equal numbers, between a part and the next one.
    void addMeasurements(MeasurementManager& manager) const {
        for (std::size_t i = 0; i < measurementCount; ++i) addMeasurement(manager, i % 6, i % (partCount - 1));
    }

private:
    void addMeasurement(MeasurementManager& manager, std::size_t kind, std::size_t part) const {
        const test::SceneNode &lower = parts[part], &upper = parts[part + 1];
        const auto height = static_cast<float>(part);
        const osg::Pnt3f onLower(0.2f, 0.5f, height), onUpper(0.8f, 0.5f, height + 1.0f);
        if (kind == 0) {
            PointPointMeasurement* const measurement = manager.createPointPointMeasurement();
            measurement->setPoint1(lower, onLower);
            measurement->setPoint2(upper, onUpper);
        } else if (kind == 1) {
            CircleMeasurement* const measurement = manager.createCircleMeasurement();
            measurement->setPoint1(lower, onLower);
            measurement->setPoint2(upper, onUpper);
            measurement->setPoint3(lower, osg::Pnt3f(0.5f, 0.2f, height));
        } else if (kind == 2) {
            PointObjectMeasurement* const measurement = manager.createPointObjectMeasurement();
            measurement->setPoint(lower, onLower);
            measurement->setNode(upper);
        } else if (kind == 3) {
            manager.createObjectObjectMeasurement(lower, upper);
        } else if (kind == 4) {
            LineObjectMeasurement* const measurement = manager.createLineObjectMeasurement();
            measurement->setLine(wires[part], osg::Pnt3f(0, 0.5f, height + 0.5f));
            measurement->setNode(lower);
            measurement->setSampleDistance(0.3f);
            measurement->update();
        } else {
            GapMeasurement* const measurement = manager.createGapMeasurement();
            measurement->setNode1(lower, onLower);
            measurement->setNode2(upper, onUpper);
            measurement->setSampleDistance(0.3f);
            measurement->update();
        }
    }

    static constexpr std::size_t partCount = 100;
    test::SceneNodes parts, wires;
    test::SceneNode root;
};

QByteArray save(const MeasurementManager& manager) {
    QBuffer device;
    device.open(QIODevice::WriteOnly);
    XmlMeasurementWriter().writeMeasurements(&device, &manager);
    return device.data();
}

void load(QByteArray document, MeasurementManager& manager) {
    QBuffer device(&document);
    device.open(QIODevice::ReadOnly);
    XmlMeasurementReader().readMeasurements(&device, &manager);
}

void showSize(benchmark::State& state, const QByteArray& document) {
    state.counters["B/measurement"] = static_cast<double>(document.size()) / static_cast<double>(measurementCount);
}

void measureSaving(benchmark::State& state) {
    MeasurementManager manager;
    const Scene scene;
    scene.addMeasurements(manager);
    QByteArray document;
    compare(state, {{"ours", [&] { document = save(manager); }}});
    showSize(state, document);
}

void measureLoading(benchmark::State& state) {
    MeasurementManager original, copy;
    const Scene scene;
    scene.addMeasurements(original);
    const QByteArray document = save(original);
    std::size_t loadedCount = 0;
    const auto empty = [&] {
        loadedCount = copy.getMeasurements().size();
        copy.removeAllMeasurements();
    };
    compare(state, {{"ours", [&] { load(document, copy); }, empty}});
    expectCount(state, loadedCount, measurementCount);
    showSize(state, document);
}

} // namespace

void addFiles() {
    const struct {
        const char* name;
        void (*measure)(benchmark::State& state);
    } rows[] = {{"Files/saving/", measureSaving}, {"Files/loading/", measureLoading}};
    for (const auto& row : rows)
        addRow(row.name + std::to_string(measurementCount), measurementCount, false, row.measure);
}

} // namespace tesk::benchmarks
