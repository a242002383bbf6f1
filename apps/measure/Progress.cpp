#include <apps/measure/Progress.h>

#include <apps/measure/EndingSignals.h>
#include <apps/measure/TerminalText.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <string_view>

#include <sys/ioctl.h>

namespace tesk::measure {

namespace {

constexpr std::string_view eraseLine = "\r\033[K";
constexpr int noTerminal = -1;

/// Where a line stands that has to be erased.
std::atomic<int> lineTerminal{noTerminal};
std::atomic<bool> isEnding{false};
static_assert(std::atomic<int>::is_always_lock_free && std::atomic<bool>::is_always_lock_free,
              "used in a signal handler");

void writeToTerminal(int terminal, std::string_view text) {
    // A terminal that takes no more text is no reason to stop measuring.
    [[maybe_unused]] const ssize_t written = write(terminal, text.data(), text.size());
}

/// Calls only what is allowed in a signal handler.
void eraseDrawnLine() {
    const int terminal = lineTerminal.exchange(noTerminal);
    if (terminal != noTerminal) writeToTerminal(terminal, eraseLine);
}

void eraseLineAndEnd(int signalNumber) {
    isEnding = true;
    eraseDrawnLine();
    std::signal(signalNumber, SIG_DFL);
    std::raise(signalNumber);
}

void replaceHandler(void (*expected)(int), void (*replacement)(int)) {
    for (const int signalNumber : endingSignals) {
        struct sigaction action {};
        sigaction(signalNumber, nullptr, &action);
        if (action.sa_handler != expected) continue;
        action.sa_handler = replacement;
        sigaction(signalNumber, &action, nullptr);
    }
}

std::size_t terminalColumns(int terminal) {
    winsize size{};
    return ioctl(terminal, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : 80;
}

/// A thread that no signal interrupts, so that handlers run where the work is done.
template <typename Body> std::thread startWithoutSignals(Body body) {
    sigset_t all;
    sigset_t before;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before);
    std::thread thread(body);
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
    return thread;
}

} // namespace

Progress::Progress(const std::string& currentActivity, int drawingTerminal)
    : activity(printable(currentActivity)), terminal(drawingTerminal) {
    if (isatty(terminal) == 0) return;
    replaceHandler(SIG_DFL, eraseLineAndEnd);
    drawing = startWithoutSignals([this] { drawUntilDone(); });
}

Progress::~Progress() {
    if (!drawing.joinable()) return;
    {
        const std::lock_guard lock(mutex);
        isDone = true;
    }
    done.notify_one();
    drawing.join();
    eraseDrawnLine();
    replaceHandler(eraseLineAndEnd, SIG_DFL);
}

void Progress::drawUntilDone() {
    using namespace std::chrono_literals;
    const auto start = std::chrono::steady_clock::now();
    std::unique_lock lock(mutex);
    for (auto pause = 500ms; !done.wait_for(lock, pause, [this] { return isDone; }); pause = 1000ms) {
        const auto elapsed = std::chrono::duration_cast<std::chrono::seconds>(std::chrono::steady_clock::now() - start);
        const std::string seconds = "  " + std::to_string(elapsed.count()) + " s";
        // The last column stays free: some terminals wrap as soon as it is filled.
        const std::size_t room = terminalColumns(terminal) - 1;
        const std::string line(shortened(activity, room - std::min(room, seconds.size())));
        if (isEnding) return;
        lineTerminal = terminal;
        writeToTerminal(terminal, std::string(eraseLine) + line + seconds);
    }
}

} // namespace tesk::measure
