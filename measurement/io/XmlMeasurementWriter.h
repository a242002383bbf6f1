#pragma once

#include <measurement/io/MeasurementWriter.h>

class QDomDocument;
class QDomElement;

namespace tesk::measurement {

class CircleMeasurement;
class GapMeasurement;
class LineObjectMeasurement;
class Measurement;
class ObjectObjectMeasurement;
class PointObjectMeasurement;
class PointPointMeasurement;

/// Saves measurements as XML: a document of type "measurements", its root "Measurements", and in it an element for each
/// measurement, named like the measurement's class.
///
/// Nodes are saved by the name that NodeUtils::getName() gives, points in the frame that the measurement keeps them in.
/// Results, such as values and samples, are saved for other programs: XmlMeasurementReader measures anew. Numbers have
/// six significant digits, whatever the locale.
///
/// Names and descriptions are taken as UTF-8. What is not UTF-8 becomes U+FFFD, and characters that XML cannot carry,
/// such as most control characters, are left out. Everything else comes back exactly.
///
/// The document is made up in memory, with about 2 KB for each sample, and then written in one piece.
///
/// \code
/// QSaveFile file("clearances.xml");
/// file.open(QIODevice::WriteOnly);
/// XmlMeasurementWriter().writeMeasurements(&file, manager);
/// const bool isSaved = file.commit();
/// \endcode
class TESK_MEASUREMENT_EXPORT XmlMeasurementWriter : public MeasurementWriter {
public:
    void writeMeasurements(QIODevice* device, const MeasurementManager* manager) override;

    /// Appends the measurement's element to the parent, an element of the document. Null and kinds that the format does
    /// not have are left out.
    void writeMeasurement(QDomDocument& document, QDomElement& parent, const Measurement* measurement);

    /// The same for each kind.
    void writeObjectObjectMeasurement(QDomDocument& document, QDomElement& parent,
                                      const ObjectObjectMeasurement* measurement);
    void writePointPointMeasurement(QDomDocument& document, QDomElement& parent,
                                    const PointPointMeasurement* measurement);
    void writeCircleMeasurement(QDomDocument& document, QDomElement& parent, const CircleMeasurement* measurement);
    void writePointObjectMeasurement(QDomDocument& document, QDomElement& parent,
                                     const PointObjectMeasurement* measurement);
    void writeLineObjectMeasurement(QDomDocument& document, QDomElement& parent,
                                    const LineObjectMeasurement* measurement);
    void writeGapMeasurement(QDomDocument& document, QDomElement& parent, const GapMeasurement* measurement);
};

} // namespace tesk::measurement
