// Makes a measurement between two objects of the application's scene, reads it, and measures again after a change.
#include <measurement/model/MeasurementManager.h>
#include <measurement/model/ObjectObjectMeasurement.h>

#include <platform/tkScenegraph.h>

#include <OpenSG/OSGBaseFunctions.h>
#include <OpenSG/OSGNodePtr.h>
#include <OpenSG/OSGSimpleGeometry.h>
#include <OpenSG/OSGTransform.h>

#include <iostream>

using namespace tesk::measurement;

namespace {

void moveTo(const osg::TransformPtr& placing, float x, float y, float z) {
    osg::Matrix matrix;
    matrix.setTranslate(x, y, z);
    const osg::CPEditor editor(placing, osg::Transform::MatrixFieldMask);
    placing->setMatrix(matrix);
}

/// A cube of side 1 that the transform places in the scene.
osg::NodePtr addCube(const osg::TransformPtr& placing) {
    const osg::NodePtr cube = osg::makeBox(1, 1, 1, 1, 1, 1);
    const osg::NodePtr placed = osg::makeNodeFor(placing);
    {
        const osg::CPEditor editor(placed, osg::Node::ChildrenFieldMask);
        placed->addChild(cube);
    }
    const osg::NodePtr scene = tkScenegraph::getRoot();
    const osg::CPEditor editor(scene, osg::Node::ChildrenFieldMask);
    scene->addChild(placed);
    return cube;
}

std::ostream& operator<<(std::ostream& stream, const osg::Pnt3f& point) {
    return stream << '(' << point[0] << ", " << point[1] << ", " << point[2] << ')';
}

void print(const ObjectObjectMeasurement& clearance) {
    std::cout << clearance.getValue() << " from " << clearance.getPoint1() << " to " << clearance.getPoint2() << '\n';
}

} // namespace

int main(int argc, char** argv) {
    osg::osgInit(argc, argv);
    const osg::TransformPtr wheelPlacing = osg::Transform::create();
    const osg::TransformPtr fenderPlacing = osg::Transform::create();
    const osg::NodePtr wheel = addCube(wheelPlacing);
    const osg::NodePtr fender = addCube(fenderPlacing);
    moveTo(fenderPlacing, 3, 0.5f, 0.25f);

    //! [measure]
    MeasurementManager* const manager = MeasurementManager::getInstance();
    ObjectObjectMeasurement* const clearance = manager->createObjectObjectMeasurement(wheel, fender);
    print(*clearance);
    //! [measure]

    //! [update]
    moveTo(wheelPlacing, 1, 0, 0);
    clearance->update();
    print(*clearance);
    //! [update]

    manager->removeMeasurement(clearance);
}
