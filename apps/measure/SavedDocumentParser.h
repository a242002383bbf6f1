#pragma once

#include <apps/measure/SavedDocument.h>

class QString;

namespace tesk::measure {

/// The measurements of a document that the library can read. Throws Failure, which names line and cause, for anything
/// that the format does not have.
std::vector<SavedMeasurement> parseSavedDocument(const QString& text);

} // namespace tesk::measure
