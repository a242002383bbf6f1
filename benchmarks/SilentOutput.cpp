#include <benchmarks/SilentOutput.h>

#include <cstdio>
#include <iostream>

#include <fcntl.h>
#include <unistd.h>

namespace tesk::benchmarks {

namespace {

void flush() {
    std::cout.flush();
    std::fflush(stdout);
}

} // namespace

SilentOutput::SilentOutput() : output(dup(STDOUT_FILENO)) {
    flush();
    const int nowhere = open("/dev/null", O_WRONLY);
    dup2(nowhere, STDOUT_FILENO);
    close(nowhere);
}

SilentOutput::~SilentOutput() {
    flush();
    dup2(output, STDOUT_FILENO);
    close(output);
}

} // namespace tesk::benchmarks
