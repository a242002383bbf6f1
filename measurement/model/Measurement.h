#pragma once

#include <measurement/Export.h>

#include <OpenSG/OSGNode.h>

#include <string>

namespace tesk::measurement {

/// What every measurement can say about itself: its value, the nodes it measures, its name and description.
///
/// Measurements are made, kept and deleted by a MeasurementManager. What else a kind can say, such as its points, is
/// reached through its concrete type.
class TESK_MEASUREMENT_EXPORT Measurement {
public:
    // The virtual operations stand in the order that the interface fixes.
    virtual ~Measurement();
    /// Measures anew and shows the result.
    virtual void update() = 0;
    /// The measured number in scene units; each kind says which, and what it is while inputs are missing.
    virtual float getValue() const = 0;
    virtual osg::NodePtr getNode1() const = 0;
    virtual osg::NodePtr getNode2() const = 0;
    virtual osg::NodePtr getNode3() const = 0;
    virtual const std::string& getName() const = 0;
    virtual const std::string& getDescription() const = 0;
};

} // namespace tesk::measurement
