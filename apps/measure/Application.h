#pragma once

#include <apps/measure/OutputGuard.h>

#include <string>
#include <vector>

namespace tesk::measure {

/// Carries out one command line, given without the program's name, and returns the exit status.
///
/// Results go through the guard, in one piece when everything is known; notes and the one line about a failure go to
/// standard error. Starts the scene graph.
int runApplication(const std::vector<std::string>& arguments, OutputGuard& output);

} // namespace tesk::measure
