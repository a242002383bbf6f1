#include <measurement/model/Measurement.h>

namespace tesk::measurement {

Measurement::~Measurement() = default;

} // namespace tesk::measurement
