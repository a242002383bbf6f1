#pragma once

#include <QString>

#include <optional>

class QIODevice;

namespace tesk::measurement::detail {

/// The device's XML document, decoded, when it is well-formed and a DOM can take it without harm; else nothing.
///
/// A DOM needs stack in proportion to the depth and memory in proportion to the nodes, and expands entities; hence the
/// limits, which XmlMeasurementReader states. Both parsers are to see this one text: given the bytes, they need not
/// agree on the encoding, nor then on what is a tag.
std::optional<QString> readDocumentText(QIODevice& device);

} // namespace tesk::measurement::detail
