#include <measurement/io/XmlMeasurementWriter.h>

#include <measurement/model/CircleMeasurement.h>
#include <measurement/model/MeasurementManager.h>
#include <measurement/model/NodeUtils.h>
#include <measurement/model/ObjectObjectMeasurement.h>
#include <measurement/model/PointObjectMeasurement.h>
#include <measurement/model/PointPointMeasurement.h>
#include <measurement/section/GapMeasurement.h>
#include <measurement/section/LineObjectMeasurement.h>

#include <QDomDocument>
#include <QIODevice>

#include <algorithm>
#include <iterator>

namespace tesk::measurement {

namespace {

/// Of the code units of valid UTF-16.
bool isForbidden(QChar character) {
    const ushort code = character.unicode();
    return (code < 0x20 && code != '\t' && code != '\n' && code != '\r') || code == 0xFFFE || code == 0xFFFF;
}

QString toXmlText(const std::string& text) {
    // A leading U+FEFF is a character of the text; only at the very start would Qt take it for a byte order mark.
    const QString all = QString::fromStdString('-' + text).mid(1);
    QString result;
    std::remove_copy_if(all.begin(), all.end(), std::back_inserter(result), isForbidden);
    return result;
}

QString toXmlText(float number) { return QString::number(static_cast<double>(number), 'g', 6); }

QDomElement appendChild(QDomDocument& document, QDomElement& parent, const QString& tag) {
    return parent.appendChild(document.createElement(tag)).toElement();
}

QDomElement appendMeasurement(QDomDocument& document, QDomElement& parent, const QString& tag,
                              const Measurement& measurement) {
    QDomElement element = appendChild(document, parent, tag);
    element.setAttribute("name", toXmlText(measurement.getName()));
    return element;
}

void setNode(QDomElement& element, const QString& attribute, const osg::NodePtr& node) {
    const char* const name = NodeUtils::getName(node);
    element.setAttribute(attribute, toXmlText(name ? name : ""));
}

void appendDescription(QDomDocument& document, QDomElement& element, const Measurement& measurement) {
    const QString text = toXmlText(measurement.getDescription());
    // Readers skip text of nothing but white space unless it is marked as character data.
    const bool isBlank = !text.isEmpty() && text.trimmed().isEmpty();
    appendChild(document, element, "Description")
        .appendChild(isBlank ? document.createCDATASection(text) : document.createTextNode(text));
}

void appendPoint(QDomDocument& document, QDomElement& element, const QString& tag, const osg::Pnt3f& point) {
    QDomElement child = appendChild(document, element, tag);
    child.setAttribute("x", toXmlText(point[0]));
    child.setAttribute("y", toXmlText(point[1]));
    child.setAttribute("z", toXmlText(point[2]));
}

void appendNumber(QDomDocument& document, QDomElement& element, const QString& tag, const QString& attribute,
                  float number) {
    appendChild(document, element, tag).setAttribute(attribute, toXmlText(number));
}

/// What gap and line-object measurements have in common.
template <class Kind> void appendSampling(QDomDocument& document, QDomElement& element, const Kind& measurement) {
    appendNumber(document, element, "SampleDistance", "value", measurement.getSampleDistance());
    QDomElement value = appendChild(document, element, "Value");
    value.setAttribute("average", toXmlText(measurement.getAverageDistance()));
    value.setAttribute("deviation", toXmlText(measurement.getDeviation()));
    QDomElement samples = appendChild(document, element, "Samples");
    for (const auto& pair : measurement.getPointPairs()) {
        QDomElement sample = appendChild(document, samples, "Sample");
        appendPoint(document, sample, "Point1", pair.first);
        appendPoint(document, sample, "Point2", pair.second);
    }
}

/// What the kinds that measure one distance between two points have in common.
template <class Kind>
void appendDistance(QDomDocument& document, QDomElement& parent, const QString& tag, const Kind& measurement) {
    QDomElement element = appendMeasurement(document, parent, tag, measurement);
    setNode(element, "node1", measurement.getNode1());
    setNode(element, "node2", measurement.getNode2());
    appendDescription(document, element, measurement);
    appendPoint(document, element, "Point1", measurement.getPoint1());
    appendPoint(document, element, "Point2", measurement.getPoint2());
    appendNumber(document, element, "Value", "distance", measurement.getValue());
}

} // namespace

void XmlMeasurementWriter::writeMeasurements(QIODevice* device, const MeasurementManager* manager) {
    QDomDocument document("measurements");
    QDomElement root = document.appendChild(document.createElement("Measurements")).toElement();
    for (const Measurement* measurement : manager->getMeasurements()) writeMeasurement(document, root, measurement);
    device->write(document.toString(1).toUtf8());
}

void XmlMeasurementWriter::writeMeasurement(QDomDocument& document, QDomElement& parent,
                                            const Measurement* measurement) {
    if (const auto objectObject = dynamic_cast<const ObjectObjectMeasurement*>(measurement))
        writeObjectObjectMeasurement(document, parent, objectObject);
    else if (const auto pointPoint = dynamic_cast<const PointPointMeasurement*>(measurement))
        writePointPointMeasurement(document, parent, pointPoint);
    else if (const auto circle = dynamic_cast<const CircleMeasurement*>(measurement))
        writeCircleMeasurement(document, parent, circle);
    else if (const auto pointObject = dynamic_cast<const PointObjectMeasurement*>(measurement))
        writePointObjectMeasurement(document, parent, pointObject);
    else if (const auto lineObject = dynamic_cast<const LineObjectMeasurement*>(measurement))
        writeLineObjectMeasurement(document, parent, lineObject);
    else if (const auto gap = dynamic_cast<const GapMeasurement*>(measurement))
        writeGapMeasurement(document, parent, gap);
}

void XmlMeasurementWriter::writeObjectObjectMeasurement(QDomDocument& document, QDomElement& parent,
                                                        const ObjectObjectMeasurement* measurement) {
    appendDistance(document, parent, "ObjectObjectMeasurement", *measurement);
}

void XmlMeasurementWriter::writePointPointMeasurement(QDomDocument& document, QDomElement& parent,
                                                      const PointPointMeasurement* measurement) {
    appendDistance(document, parent, "PointPointMeasurement", *measurement);
}

void XmlMeasurementWriter::writeCircleMeasurement(QDomDocument& document, QDomElement& parent,
                                                  const CircleMeasurement* measurement) {
    QDomElement element = appendMeasurement(document, parent, "CircleMeasurement", *measurement);
    setNode(element, "node1", measurement->getNode1());
    setNode(element, "node2", measurement->getNode2());
    setNode(element, "node3", measurement->getNode3());
    appendDescription(document, element, *measurement);
    appendPoint(document, element, "Point1", measurement->getPoint1());
    appendPoint(document, element, "Point2", measurement->getPoint2());
    appendPoint(document, element, "Point3", measurement->getPoint3());
    appendNumber(document, element, "Value", "radius", measurement->getValue());
}

void XmlMeasurementWriter::writePointObjectMeasurement(QDomDocument& document, QDomElement& parent,
                                                       const PointObjectMeasurement* measurement) {
    appendDistance(document, parent, "PointObjectMeasurement", *measurement);
}

void XmlMeasurementWriter::writeLineObjectMeasurement(QDomDocument& document, QDomElement& parent,
                                                      const LineObjectMeasurement* measurement) {
    QDomElement element = appendMeasurement(document, parent, "LineObjectMeasurement", *measurement);
    setNode(element, "line", measurement->getLine());
    setNode(element, "node", measurement->getNode());
    appendDescription(document, element, *measurement);
    appendPoint(document, element, "LinePoint", measurement->getLinePoint());
    appendSampling(document, element, *measurement);
}

void XmlMeasurementWriter::writeGapMeasurement(QDomDocument& document, QDomElement& parent,
                                               const GapMeasurement* measurement) {
    QDomElement element = appendMeasurement(document, parent, "GapMeasurement", *measurement);
    setNode(element, "node1", measurement->getNode1());
    setNode(element, "node2", measurement->getNode2());
    appendDescription(document, element, *measurement);
    appendPoint(document, element, "Point1", measurement->getPoint1());
    appendPoint(document, element, "Point2", measurement->getPoint2());
    appendSampling(document, element, *measurement);
}

} // namespace tesk::measurement
