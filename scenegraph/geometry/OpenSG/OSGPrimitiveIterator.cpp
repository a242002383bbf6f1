#include <OpenSG/OSGPrimitiveIterator.h>

#include <OpenSG/OSGNode.h>

namespace osg {

void PrimitiveIterator::setGeo(const GeometryPtr& geometry) {
    vertices = GeometryVertices(geometry);
    setToBegin();
}

void PrimitiveIterator::setGeo(const NodePtr& node) {
    setGeo(node == NullFC ? GeometryPtr() : GeometryPtr::dcast(node->getCore()));
}

void PrimitiveIterator::setToBegin() {
    index = 0;
    firstVertex = 0;
    readPrimitive();
}

void PrimitiveIterator::setToEnd() {
    index = countPrimitives();
    readPrimitive();
}

void PrimitiveIterator::seek(UInt32 target) {
    setToBegin();
    while (!atEnd && index < target) ++*this;
}

void PrimitiveIterator::operator++() {
    if (atEnd) return;
    firstVertex += length;
    ++index;
    readPrimitive();
}

Int32 PrimitiveIterator::getPositionIndex(UInt32 which) const {
    const UInt32 vertex = getVertex(which);
    return vertex < vertices.size() ? static_cast<Int32>(vertices.getPositionIndex(vertex)) : -1;
}

UInt32 PrimitiveIterator::countPrimitives() const {
    if (getGeometry() == NullFC || getGeometry()->getTypes() == NullFC) return 0;
    return getGeometry()->getTypes()->getSize();
}

void PrimitiveIterator::readPrimitive() {
    atEnd = index >= countPrimitives();
    length = 0;
    if (atEnd) return;
    type = getGeometry()->getTypes()->getValue(index);
    const GeoPLengthsPtr lengths = getGeometry()->getLengths();
    const UInt32 available = vertices.size() - firstVertex;
    if (lengths == NullFC)
        length = available;
    else if (index < lengths->getSize())
        length = osgMin(lengths->getValue(index), available);
}

} // namespace osg
