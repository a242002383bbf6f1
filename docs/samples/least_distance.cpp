//! [measure]
#include <measurement/model/MeasurementManager.h>
#include <measurement/model/ObjectObjectMeasurement.h>

using namespace tesk::measurement;

float leastDistance(const osg::NodePtr& vessel, const osg::NodePtr& stirrer) {
    MeasurementManager* const manager = MeasurementManager::getInstance();
    const ObjectObjectMeasurement* const measurement = manager->createObjectObjectMeasurement(vessel, stirrer);
    // Points are in world coordinates: measurement->getPoint1() lies on the vessel, getPoint2() on the stirrer.
    return measurement->getValue();
}
//! [measure]

#include <OpenSG/OSGSimpleGeometry.h>

int main(int argc, char** argv) {
    osg::osgInit(argc, argv);
    const osg::NodeRefPtr outer(osg::makeBox(3, 3, 3, 1, 1, 1));
    const osg::NodeRefPtr inner(osg::makeBox(1, 1, 1, 1, 1, 1));
    const bool isRight = leastDistance(outer.get(), inner.get()) == 1.0f;
    MeasurementManager::getInstance()->removeAllMeasurements();
    return isRight ? 0 : 1;
}
