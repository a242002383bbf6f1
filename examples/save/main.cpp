// Saves the measurements of a scene to a file and loads them into another scene: save-example FILE.xml
#include <measurement/io/XmlMeasurementReader.h>
#include <measurement/io/XmlMeasurementWriter.h>
#include <measurement/model/MeasurementManager.h>
#include <measurement/model/ObjectObjectMeasurement.h>

#include <platform/tkScenegraph.h>

#include <OpenSG/OSGBaseFunctions.h>
#include <OpenSG/OSGGroup.h>
#include <OpenSG/OSGNodePtr.h>
#include <OpenSG/OSGRefPtr.h>
#include <OpenSG/OSGSimpleAttachments.h>
#include <OpenSG/OSGSimpleGeometry.h>

#include <QFile>
#include <QSaveFile>

#include <iostream>

using namespace tesk::measurement;

namespace {

osg::NodePtr addChild(const osg::NodePtr& parent, const osg::NodePtr& child, const char* name) {
    osg::setName(child, name);
    const osg::CPEditor editor(parent, osg::Node::ChildrenFieldMask);
    parent->addChild(child);
    return child;
}

/// A shaft in a bore, both along the z axis and without their ends.
osg::NodePtr makeBearing(float shaftRadius, float boreRadius) {
    const osg::NodePtr bearing = osg::makeCoredNode<osg::Group>();
    addChild(bearing, osg::makeCylinder(1, shaftRadius, 64, true, false, false), "shaft");
    addChild(bearing, osg::makeCylinder(2, boreRadius, 64, true, false, false), "bore");
    return bearing;
}

//! [save]
bool save(const QString& name) {
    QSaveFile file(name);
    if (!file.open(QIODevice::WriteOnly)) return false;
    XmlMeasurementWriter().writeMeasurements(&file, MeasurementManager::getInstance());
    return file.commit();
}
//! [save]

//! [load]
bool load(const QString& name) {
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly)) return false;
    XmlMeasurementReader().readMeasurements(&file, MeasurementManager::getInstance());
    return true;
}
//! [load]

void print() {
    for (const Measurement* measurement : MeasurementManager::getInstance()->getMeasurements())
        std::cout << measurement->getName() << ": " << measurement->getValue() << '\n';
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: save-example FILE.xml\n";
        return 2;
    }
    osg::osgInit(argc, argv);
    MeasurementManager* const manager = MeasurementManager::getInstance();

    const osg::NodeRefPtr first(makeBearing(1, 1.25f));
    tkScenegraph::setRoot(first.get());
    manager->createObjectObjectMeasurement(tkScenegraph::findNode("shaft"), tkScenegraph::findNode("bore"));
    print();
    const bool isSaved = save(argv[1]);
    manager->removeAllMeasurements();

    // Measured anew: the nodes are those of the same names.
    const osg::NodeRefPtr second(makeBearing(1, 1.5f));
    tkScenegraph::setRoot(second.get());
    const bool isLoaded = isSaved && load(argv[1]);
    print();
    manager->removeAllMeasurements();
    tkScenegraph::setRoot(osg::NullFC);
    if (!isLoaded) std::cerr << "save-example: " << argv[1] << " cannot be written and read\n";
    return isLoaded ? 0 : 1;
}
