#pragma once

#include <apps/measure/SavedDocument.h>

class QString;

namespace tesk::measure {

/// The measurements of a document that the library can read. Throws Failure, which names line and cause, for numbers
/// that are none. Elements that the format does not have are passed over, each with a line in notes.
std::vector<SavedMeasurement> parseSavedDocument(const QString& text, std::vector<std::string>& notes);

} // namespace tesk::measure
