#pragma once

#include <apps/measure/MeasurementSession.h>

namespace tesk::measure {

/// Draws the scene with the session's measurements as far as they have a value, and writes the picture that the options
/// ask for. The session has measured.
///
/// Throws Failure, which names the file: there is no OpenGL, the measurement to be shown in the chart is not there, the
/// file cannot be written. The file is written as a whole or not at all.
void drawPicture(const PictureOptions& options, const MeasurementSession& session, const SceneCatalogue& catalogue);

} // namespace tesk::measure
