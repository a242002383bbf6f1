#pragma once

#include <measurement/visualisation/MeasurementVisualisation.h>

#include <OpenSG/OSGRefPtr.h>

#include <map>

namespace tesk::measurement {

/// Shows every measurement of the kinds that a derived class supports, each as a subtree of its own below one root.
///
/// Destruction releases the root and the subtrees without calling the derived class's operations.
class TESK_MEASUREMENT_EXPORT AbstractMeasurementVisualisation : public MeasurementVisualisation {
public:
    /// Shows or hides the root through its traversal mask.
    void setVisible(bool visible) override;
    /// Whether the root's traversal mask is 0xFFFFFFFF; any other counts as hidden.
    bool isVisible() const override;
    osg::NodePtr getVisualisation() override { return root; }
    /// Builds a subtree, marks it as an auxiliary node and attaches it; nothing for an unsupported measurement.
    ///
    /// A measurement added again gets a second subtree; the first stays attached as it is.
    void addMeasurement(const Measurement* measurement) override;
    /// Detaches and destroys the subtree.
    void removeMeasurement(const Measurement* measurement) override;
    void updateMeasurement(const Measurement* measurement) override;

    /// Stores the number of digits after the decimal point, then updates every subtree in the order of the
    /// measurements' addresses.
    void setPrecision(int digits);
    int getPrecision() const { return precision; }

    using Visualisations = std::map<const Measurement*, osg::RefPtr<osg::NodePtr>>;
    /// The subtree of each measurement shown.
    const Visualisations& getVisualisations() const { return visualisations; }

    /// Builds the subtree for a measurement; null when it is of a kind not shown here.
    virtual osg::NodePtr createVisualisation(const Measurement* measurement) = 0;
    /// Releases what is kept for a subtree that is about to be detached and destroyed.
    virtual void removeVisualisation(const Measurement* measurement, const osg::NodePtr& node) = 0;
    /// Brings a subtree up to date with the measurement and the precision.
    virtual void updateVisualisation(const Measurement* measurement, const osg::NodePtr& node) = 0;

protected:
    AbstractMeasurementVisualisation();
    ~AbstractMeasurementVisualisation();

private:
    int precision = 1;
    osg::RefPtr<osg::NodePtr> root;
    Visualisations visualisations;
};

} // namespace tesk::measurement
