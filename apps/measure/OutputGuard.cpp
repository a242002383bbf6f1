#include <apps/measure/OutputGuard.h>

#include <apps/measure/Failure.h>

#include <cerrno>
#include <cstdio>
#include <iostream>
#include <system_error>

#include <fcntl.h>
#include <unistd.h>

namespace tesk::measure {

namespace {

/// A copy that does not take the number of a standard stream and that child programs do not inherit.
int duplicate(int descriptor) { return fcntl(descriptor, F_DUPFD_CLOEXEC, STDERR_FILENO + 1); }

void flushStreams() {
    std::cout.flush();
    std::fflush(stdout);
}

} // namespace

OutputGuard::OutputGuard() : results(duplicate(STDOUT_FILENO)) {
    flushStreams();
    int nowhere = open("/dev/null", O_RDWR);
    // Fills closed standard descriptors, which the next files and pipes would get otherwise.
    while (nowhere >= 0 && nowhere <= STDERR_FILENO) nowhere = open("/dev/null", O_RDWR);
    dup2(nowhere, STDOUT_FILENO);
    close(nowhere);
}

OutputGuard::~OutputGuard() {
    // What still stands in a buffer belongs to /dev/null as well.
    flushStreams();
    if (results < 0) return;
    dup2(results, STDOUT_FILENO);
    close(results);
}

void OutputGuard::write(std::string_view text) {
    while (!text.empty()) {
        const ssize_t written = ::write(results, text.data(), text.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) throw Failure("cannot write to standard output: " + std::generic_category().message(errno));
        text.remove_prefix(static_cast<std::size_t>(written));
    }
}

} // namespace tesk::measure
