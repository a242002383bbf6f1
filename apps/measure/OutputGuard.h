#pragma once

#include <string_view>

namespace tesk::measure {

/// Keeps standard output for the program's results.
///
/// While the guard lives, whatever else the process writes to standard output, through a stream or the descriptor, goes
/// to /dev/null: the library's "Zero distance with tri!" is no result. write() reaches the descriptor as it was before.
/// One guard a process, made before anything is written.
class OutputGuard {
public:
    OutputGuard();
    ~OutputGuard();
    OutputGuard(const OutputGuard&) = delete;
    OutputGuard& operator=(const OutputGuard&) = delete;

    /// Writes everything, unbuffered; throws Failure when standard output is closed or takes no more.
    void write(std::string_view text);

private:
    /// The former standard output, -1 when that was closed.
    int results;
};

} // namespace tesk::measure
