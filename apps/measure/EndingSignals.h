#pragma once

#include <csignal>

namespace tesk::measure {

/// What ends the program from outside: Ctrl-C, a kill, a closed terminal.
constexpr int endingSignals[] = {SIGINT, SIGTERM, SIGHUP};

} // namespace tesk::measure
