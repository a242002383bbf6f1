#pragma once

#include <measurement/io/MeasurementReader.h>

class QDomElement;

namespace tesk::measurement {

/// Loads measurements from XML as XmlMeasurementWriter saves it.
///
/// A measurement refers to nodes by name; each is the one that tkScenegraph::findNode() finds. Every measurement is
/// measured anew from its nodes and points, which is what loading costs. Where a node is not found, the measurement is
/// there all the same, with the value that its kind has without the node.
///
/// Point-point, point-object and circle measurements keep their saved names. The others are named after their nodes if
/// both are found, and keep the saved name otherwise. An element without the attribute "name" has the description for
/// a name.
///
/// What the format does not have is skipped; numbers that cannot be read are 0, and so are points that are missing. The
/// name of the root does not matter. A sample distance that is missing is 10.
///
/// Nothing at all is loaded from a device that does not hold well-formed XML, and from a document that could harm the
/// process: one that has declarations in its DOCTYPE, nests deeper than 64 elements, has a tag with more than 64
/// attributes, or is larger than 256 MB or 16 million nodes, attributes counted twice. About a million samples fit in.
///
/// \code
/// QFile file("clearances.xml");
/// if (file.open(QIODevice::ReadOnly)) XmlMeasurementReader().readMeasurements(&file, manager);
/// \endcode
class TESK_MEASUREMENT_EXPORT XmlMeasurementReader : public MeasurementReader {
public:
    void readMeasurements(QIODevice* device, MeasurementManager* manager) override;

    /// Adds the element's measurement to the manager's; elements of other names are skipped.
    void readMeasurement(const QDomElement& element, MeasurementManager* manager);

    /// The same for each kind, whatever the element's name.
    void readObjectObjectMeasurement(const QDomElement& element, MeasurementManager* manager);
    void readPointPointMeasurement(const QDomElement& element, MeasurementManager* manager);
    void readCircleMeasurement(const QDomElement& element, MeasurementManager* manager);
    void readPointObjectMeasurement(const QDomElement& element, MeasurementManager* manager);
    void readLineObjectMeasurement(const QDomElement& element, MeasurementManager* manager);
    void readGapMeasurement(const QDomElement& element, MeasurementManager* manager);
};

} // namespace tesk::measurement
