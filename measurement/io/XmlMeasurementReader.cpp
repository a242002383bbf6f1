#include <measurement/io/XmlMeasurementReader.h>

#include <measurement/io/detail/DocumentText.h>
#include <measurement/model/CircleMeasurement.h>
#include <measurement/model/MeasurementManager.h>
#include <measurement/model/ObjectObjectMeasurement.h>
#include <measurement/model/PointObjectMeasurement.h>
#include <measurement/model/PointPointMeasurement.h>
#include <measurement/section/GapMeasurement.h>
#include <measurement/section/LineObjectMeasurement.h>
#include <platform/tkScenegraph.h>

#include <QDomDocument>

namespace tesk::measurement {

namespace {

osg::NodePtr findNode(const QDomElement& element, const QString& attribute) {
    return tkScenegraph::findNode(element.attribute(attribute).toStdString());
}

/// An attribute as a number, 0 when it is missing or no number.
float readNumber(const QDomElement& element, const QString& attribute) {
    return element.attribute(attribute).toFloat();
}

/// The last child of the name counts.
std::string readDescription(const QDomElement& element) {
    return element.lastChildElement("Description").text().toStdString();
}

/// An empty name is a name; only a missing one gives way to the description.
std::string readName(const QDomElement& element) {
    const QString name = element.attribute("name");
    return name.isNull() ? readDescription(element) : name.toStdString();
}

osg::Pnt3f readPoint(const QDomElement& element, const QString& tag) {
    const QDomElement point = element.lastChildElement(tag);
    return {readNumber(point, "x"), readNumber(point, "y"), readNumber(point, "z")};
}

float readSampleDistance(const QDomElement& element) {
    const QDomElement sampleDistance = element.lastChildElement("SampleDistance");
    return sampleDistance.isNull() ? 10.0f : readNumber(sampleDistance, "value");
}

void setTexts(AbstractMeasurement& measurement, const QDomElement& element) {
    measurement.setName(readName(element));
    measurement.setDescription(readDescription(element));
}

void setNodePaths(AbstractMeasurement& measurement, const osg::NodePtr& node1, const osg::NodePtr& node2) {
    measurement.setNodePath1(AbstractMeasurement::createNodePath(node1));
    measurement.setNodePath2(AbstractMeasurement::createNodePath(node2));
}

} // namespace

void XmlMeasurementReader::readMeasurements(QIODevice* device, MeasurementManager* manager) {
    const auto text = detail::readDocumentText(*device);
    QDomDocument document("measurements");
    if (!text || !document.setContent(*text, false)) return;
    for (QDomElement element = document.documentElement().firstChildElement(); !element.isNull();
         element = element.nextSiblingElement())
        readMeasurement(element, manager);
}

void XmlMeasurementReader::readMeasurement(const QDomElement& element, MeasurementManager* manager) {
    const QString tag = element.tagName();
    if (tag == "ObjectObjectMeasurement")
        readObjectObjectMeasurement(element, manager);
    else if (tag == "PointPointMeasurement")
        readPointPointMeasurement(element, manager);
    else if (tag == "CircleMeasurement")
        readCircleMeasurement(element, manager);
    else if (tag == "PointObjectMeasurement")
        readPointObjectMeasurement(element, manager);
    else if (tag == "LineObjectMeasurement")
        readLineObjectMeasurement(element, manager);
    else if (tag == "GapMeasurement")
        readGapMeasurement(element, manager);
}

// The order of the calls is part of the format: kinds whose setters update keep the name that is set after them, and
// the others lose it to the update at the end.

void XmlMeasurementReader::readObjectObjectMeasurement(const QDomElement& element, MeasurementManager* manager) {
    const osg::NodePtr node1 = findNode(element, "node1");
    const osg::NodePtr node2 = findNode(element, "node2");
    ObjectObjectMeasurement* const measurement = manager->createObjectObjectMeasurement();
    measurement->setNode1(node1);
    measurement->setNode2(node2);
    setTexts(*measurement, element);
    setNodePaths(*measurement, node1, node2);
    measurement->update();
}

void XmlMeasurementReader::readPointPointMeasurement(const QDomElement& element, MeasurementManager* manager) {
    const osg::NodePtr node1 = findNode(element, "node1");
    const osg::NodePtr node2 = findNode(element, "node2");
    PointPointMeasurement* const measurement = manager->createPointPointMeasurement();
    measurement->setPoint1(node1, readPoint(element, "Point1"));
    measurement->setPoint2(node2, readPoint(element, "Point2"));
    setTexts(*measurement, element);
}

void XmlMeasurementReader::readCircleMeasurement(const QDomElement& element, MeasurementManager* manager) {
    const osg::NodePtr node1 = findNode(element, "node1");
    const osg::NodePtr node2 = findNode(element, "node2");
    const osg::NodePtr node3 = findNode(element, "node3");
    CircleMeasurement* const measurement = manager->createCircleMeasurement();
    measurement->setPoint1(node1, readPoint(element, "Point1"));
    measurement->setPoint2(node2, readPoint(element, "Point2"));
    measurement->setPoint3(node3, readPoint(element, "Point3"));
    setTexts(*measurement, element);
}

void XmlMeasurementReader::readPointObjectMeasurement(const QDomElement& element, MeasurementManager* manager) {
    const osg::NodePtr node1 = findNode(element, "node1");
    const osg::NodePtr node2 = findNode(element, "node2");
    PointObjectMeasurement* const measurement = manager->createPointObjectMeasurement();
    measurement->setPoint(node1, readPoint(element, "Point1"));
    measurement->setNode(node2);
    measurement->setName(readName(element));
    measurement->setNodePath2(AbstractMeasurement::createNodePath(node2));
    measurement->setDescription(readDescription(element));
}

void XmlMeasurementReader::readLineObjectMeasurement(const QDomElement& element, MeasurementManager* manager) {
    const osg::NodePtr line = findNode(element, "line");
    const osg::NodePtr node = findNode(element, "node");
    LineObjectMeasurement* const measurement = manager->createLineObjectMeasurement();
    measurement->setLine(line, readPoint(element, "LinePoint"));
    measurement->setNode(node);
    setNodePaths(*measurement, line, node);
    measurement->setSampleDistance(readSampleDistance(element));
    setTexts(*measurement, element);
    measurement->update();
}

void XmlMeasurementReader::readGapMeasurement(const QDomElement& element, MeasurementManager* manager) {
    const osg::NodePtr node1 = findNode(element, "node1");
    const osg::NodePtr node2 = findNode(element, "node2");
    GapMeasurement* const measurement = manager->createGapMeasurement();
    measurement->setNode1(node1, readPoint(element, "Point1"));
    measurement->setNode2(node2, readPoint(element, "Point2"));
    setNodePaths(*measurement, node1, node2);
    measurement->setSampleDistance(readSampleDistance(element));
    setTexts(*measurement, element);
    measurement->update();
}

} // namespace tesk::measurement
