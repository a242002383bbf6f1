#include <measurement/model/MeasurementManager.h>
#include <measurement/model/ObjectObjectMeasurement.h>
#include <measurement/visualisation/SimpleMeasurementVisualisation.h>
#include <platform/tkScenegraph.h>

#include <OpenSG/OSGBaseFunctions.h>
#include <OpenSG/OSGGroup.h>
#include <OpenSG/OSGSimpleGeometry.h>

using namespace tesk::measurement;

namespace {

//! [hold]
osg::NodePtr makeAssembly() {
    const osg::NodePtr assembly = osg::makeCoredNode<osg::Group>(); // no references yet
    const osg::NodePtr part = osg::makeBox(1, 1, 1, 1, 1, 1);       // nor here
    const osg::CPEditor editor(assembly, osg::Node::ChildrenFieldMask);
    assembly->addChild(part); // the parent holds the part
    return assembly;
}

osg::NodeRefPtr assembly; // whoever keeps a node without a parent holds it
//! [hold]

//! [removed]
/// Takes a part out of the scene. A measurement of it keeps it alive, and its value, until the next update().
void removePart(const osg::NodePtr& part) {
    const osg::NodePtr parent = part->getParent();
    const osg::CPEditor editor(parent, osg::Node::ChildrenFieldMask);
    parent->subChild(part);
}
//! [removed]

} // namespace

int main(int argc, char** argv) {
    osg::osgInit(argc, argv);
    assembly = osg::NodeRefPtr(makeAssembly());
    const osg::NodePtr part = assembly->getChild(0);
    MeasurementManager* const manager = MeasurementManager::getInstance();
    bool isRight = false;
    {
        SimpleMeasurementVisualisation distances;
        manager->setVisualisationRoot(tkScenegraph::getInternalRoot());
        manager->addVisualisation(&distances);
        manager->createObjectObjectMeasurement(part, part);
        removePart(osg::NodePtr(part));
        isRight = part.getRefCount() > 0 && part->getParent() == osg::NullFC;

        //! [end]
        manager->removeVisualisation(&distances); // before it is destroyed
        manager->removeAllMeasurements();         // lets go of their nodes
        manager->setVisualisationRoot(osg::NullFC);
        //! [end]
    }
    //! [exit]
    assembly = osg::NullFC;
    osg::osgExit();
    //! [exit]
    return isRight && manager->getMeasurements().empty() ? 0 : 1;
}
