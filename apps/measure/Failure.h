#pragma once

#include <stdexcept>
#include <string>

namespace tesk::measure {

/// What the program's exit status says.
enum ExitStatus : int {
    exitDone = 0,
    exitFailure = 1,           ///< the scene or the machine does not allow what was asked
    exitWrongUsage = 2,        ///< the command line alone shows that it cannot be carried out
    exitExpectationNotMet = 3, ///< everything was done, but a value is not as expected
};

/// Ends the command with exitFailure; the text is one line that names what failed and why.
class Failure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

} // namespace tesk::measure
