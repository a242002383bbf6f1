#pragma once

#include <measurement/Export.h>

#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGRefPtr.h>

#include <list>

namespace tesk::measurement {

class CircleMeasurement;
class GapMeasurement;
class LineObjectMeasurement;
class Measurement;
class MeasurementVisualisation;
class ObjectObjectMeasurement;
class PointObjectMeasurement;
class PointPointMeasurement;

/// Makes, keeps and deletes measurements, and tells visualisations of them.
///
/// The manager owns its measurements. Visualisations belong to their creator, who must keep them until they are removed
/// or the manager is gone. The nodes of all visualisations hang below one group node, which the manager hangs below the
/// node given to setVisualisationRoot().
///
/// A visualisation is told of every measurement that exists when it is added or is created later, of every update and
/// of every removal, visualisations in the order in which they were added. While it is told, it must neither add nor
/// remove measurements or visualisations. Updates may come before addMeasurement(): measurements report to the manager
/// while they are being created.
///
/// For the thread that owns the scene graph, between osgInit() and osgExit().
///
/// \code
/// MeasurementManager* const manager = MeasurementManager::getInstance();
/// manager->setVisualisationRoot(tkScenegraph::getInternalRoot());
/// manager->addVisualisation(&visualisation);
/// const float clearance = manager->createObjectObjectMeasurement(wheel, fender)->getValue();
/// \endcode
class TESK_MEASUREMENT_EXPORT MeasurementManager {
public:
    /// The manager of the process, made on first use and never destroyed.
    static MeasurementManager* getInstance();

    MeasurementManager();
    /// Detaches the group, then removes all visualisations, then all measurements.
    ~MeasurementManager();
    MeasurementManager(const MeasurementManager&) = delete;
    MeasurementManager& operator=(const MeasurementManager&) = delete;

    /// Each creation puts the new measurement at the end of the list, then tells the visualisations of it.
    ObjectObjectMeasurement* createObjectObjectMeasurement();
    /// The measurement comes back measured.
    ObjectObjectMeasurement* createObjectObjectMeasurement(const osg::NodePtr& node1, const osg::NodePtr& node2);
    GapMeasurement* createGapMeasurement();
    /// The nodes give the measurement its name alone; see GapMeasurement.
    GapMeasurement* createGapMeasurement(const osg::NodePtr& node1, const osg::NodePtr& node2);
    LineObjectMeasurement* createLineObjectMeasurement();
    CircleMeasurement* createCircleMeasurement();
    PointObjectMeasurement* createPointObjectMeasurement();
    PointPointMeasurement* createPointPointMeasurement();

    /// Tells the visualisations, then deletes the measurement, also one that is not in the list. Null is not deleted.
    void removeMeasurement(Measurement* measurement);
    void removeAllMeasurements();
    /// In the order of creation.
    const std::list<Measurement*>& getMeasurements() const { return measurements; }

    /// Tells the visualisation of every measurement, then attaches its node.
    void addVisualisation(MeasurementVisualisation* visualisation);
    /// Detaches the visualisation's node, then has it remove every measurement. It is not deleted.
    void removeVisualisation(MeasurementVisualisation* visualisation);

    /// Hangs the group below a node, null for none.
    void setVisualisationRoot(const osg::NodePtr& node);
    /// Makes the group if there is none yet; attaches it nowhere.
    void createVisualisationGroup();
    /// Shows or hides all visualisations at once through the group's traversal mask; their own visibility stays.
    void enableVisualisations(bool enabled);

    /// Has every visualisation update every measurement, for instance after the scene changed. Does not measure.
    void updateVisualisations();
    /// Has every visualisation update one measurement.
    void updateVisualisations(Measurement* measurement);

private:
    template <class Kind, class... Nodes> Kind* create(const Nodes&... nodes);
    void notifyOfRemoval(Measurement* measurement);

    std::list<Measurement*> measurements;
    std::list<MeasurementVisualisation*> visualisations;
    osg::RefPtr<osg::NodePtr> visualisationRoot;
    osg::RefPtr<osg::NodePtr> visualisationGroup;
};

} // namespace tesk::measurement
