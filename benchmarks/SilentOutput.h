#pragma once

namespace tesk::benchmarks {

/// Sends standard output to /dev/null as long as it lives: objects that touch write many lines.
class SilentOutput {
public:
    SilentOutput();
    ~SilentOutput();
    SilentOutput(const SilentOutput&) = delete;
    SilentOutput& operator=(const SilentOutput&) = delete;

private:
    int output;
};

} // namespace tesk::benchmarks
