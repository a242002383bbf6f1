#include <apps/measure/Progress.h>

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <string>

#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tesk::measure {

namespace {

const std::string eraseLine = "\r\033[K";

/// A terminal whose screen the test can read.
class PseudoTerminal {
public:
    PseudoTerminal() : screen(posix_openpt(O_RDWR | O_NOCTTY)) {
        if (grantpt(screen) == 0 && unlockpt(screen) == 0) terminal = open(ptsname(screen), O_RDWR | O_NOCTTY);
    }
    ~PseudoTerminal() {
        close(terminal);
        close(screen);
    }
    bool isOpen() const { return terminal >= 0; }
    int getTerminal() const { return terminal; }
    /// What appears up to some text, or until nothing more has appeared for a while.
    std::string readUntil(const std::string& end) const {
        std::string seen;
        char character = 0;
        pollfd state{screen, POLLIN, 0};
        while (seen.find(end) == std::string::npos && poll(&state, 1, 5000) > 0 && read(screen, &character, 1) == 1) {
            seen += character;
        }
        return seen;
    }

private:
    int screen;
    int terminal = -1;
};

} // namespace

TEST(Progress, IsDrawnOnATerminalAndErasedAtTheEnd) {
    const PseudoTerminal terminal;
    if (!terminal.isOpen()) GTEST_SKIP() << "this system gives no pseudo-terminals";
    {
        const Progress progress("loading \x1b[31mpart.stl", terminal.getTerminal());
        EXPECT_EQ(terminal.readUntil(" s"), eraseLine + "loading ?[31mpart.stl  0 s");
    }
    EXPECT_EQ(terminal.readUntil(eraseLine), eraseLine);
}

TEST(Progress, LeavesTheTerminalCleanWhenInterrupted) {
    const PseudoTerminal terminal;
    if (!terminal.isOpen()) GTEST_SKIP() << "this system gives no pseudo-terminals";
    const pid_t child = fork();
    if (child == 0) {
        const Progress progress("measuring", terminal.getTerminal());
        alarm(60);
        for (;;) pause();
    }
    EXPECT_EQ(terminal.readUntil(" s"), eraseLine + "measuring  0 s");
    kill(child, SIGINT);
    EXPECT_EQ(terminal.readUntil(eraseLine), eraseLine);
    int status = 0;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGINT);
}

} // namespace tesk::measure
