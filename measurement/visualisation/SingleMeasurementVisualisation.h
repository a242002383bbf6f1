#pragma once

#include <measurement/visualisation/MeasurementVisualisation.h>

#include <OpenSG/OSGRefPtr.h>

#include <set>

namespace tesk::measurement {

/// Shows one measurement, the active one, as a subtree below its root.
///
/// Nothing is active at first, and adding a measurement does not make it so. Destruction releases root and subtree
/// without calling the derived class's operations.
class TESK_MEASUREMENT_EXPORT SingleMeasurementVisualisation : public MeasurementVisualisation {
public:
    // The virtual operations stand in the order that the interface fixes.
    /// Shows or hides the root through its traversal mask.
    void setVisible(bool visible) override;
    /// Whether the root's traversal mask is 0xFFFFFFFF; any other counts as hidden.
    bool isVisible() const override;
    osg::NodePtr getVisualisation() override { return root; }
    /// Remembers the measurement; builds nothing.
    void addMeasurement(const Measurement* measurement) override;
    /// Forgets the measurement; the active one is no longer shown.
    void removeMeasurement(const Measurement* measurement) override;
    void updateMeasurement(const Measurement* measurement) override;
    /// Shows a measurement in place of the one shown, null for none. It need not have been added; its creator must not
    /// delete it before another is active or it was removed here.
    virtual void setActiveMeasurement(const Measurement* measurement);
    virtual const Measurement* getActiveMeasurement() const;

    /// Stores the number of digits after the decimal point, then updates the subtree.
    void setPrecision(int digits);
    int getPrecision() const { return precision; }
    /// The subtree of the active measurement; null when nothing is active or the kind is not shown here.
    osg::NodePtr getActiveVisualisation() const { return activeVisualisation; }

    /// Builds the subtree for a measurement; null when it is of a kind not shown here.
    virtual osg::NodePtr createVisualisation(const Measurement* measurement) = 0;
    /// Releases what is kept for a subtree that is about to be detached and released.
    virtual void removeVisualisation(const Measurement* measurement, const osg::NodePtr& node) = 0;
    /// Brings the subtree up to date with the measurement and the precision.
    virtual void updateVisualisation(const Measurement* measurement, const osg::NodePtr& node) = 0;

protected:
    SingleMeasurementVisualisation();
    ~SingleMeasurementVisualisation();

private:
    void removeActiveVisualisation();

    int precision = 1;
    const Measurement* activeMeasurement = nullptr;
    osg::RefPtr<osg::NodePtr> root;
    osg::RefPtr<osg::NodePtr> activeVisualisation;
    std::set<const Measurement*> measurements;
};

} // namespace tesk::measurement
