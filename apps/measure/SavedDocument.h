#pragma once

#include <apps/measure/MeasurementInput.h>

#include <cstddef>
#include <string>
#include <vector>

namespace tesk::measurement {
class MeasurementManager;
}

namespace tesk::measure {

/// What a document says of a measurement before it is measured.
struct SavedMeasurement {
    Command kind = Command::pointPoint;
    /// Names, empty where the measurement has no node.
    std::vector<std::string> nodes;
    std::vector<osg::Pnt3f> points;
    float step = 0.0f;
};

/// A file of saved measurements, read and checked, but not measured yet.
///
/// Stricter than the library, which reads what it can: a number that is none or a sample distance that is not positive
/// is a mistake here, since both would quietly measure something else.
class SavedDocument {
public:
    /// For the time before the scene is there, since the library measures what it finds. Throws Failure, which names
    /// file and cause.
    explicit SavedDocument(const std::string& path);

    const std::string& getPath() const { return path; }
    const std::vector<SavedMeasurement>& getMeasurements() const { return measurements; }
    /// What was passed over, one line each.
    const std::vector<std::string>& getNotes() const { return notes; }
    /// Adds all measurements, measured against the scene, to the manager's.
    void load(measurement::MeasurementManager& manager) const;

private:
    std::string path;
    std::string text;
    std::vector<SavedMeasurement> measurements;
    std::vector<std::string> notes;
};

/// Replaces the file with a document of all the manager's measurements. Throws Failure, which names the file.
void saveDocument(const std::string& path, const measurement::MeasurementManager& manager);

} // namespace tesk::measure
