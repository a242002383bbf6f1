#pragma once

#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>

#include <unistd.h>

namespace tesk::measure {

/// Says on a terminal what is under way and for how many seconds, as long as the object lives.
///
/// Nothing appears where the descriptor is no terminal, nor in the first half second. The line is cut to the terminal's
/// width and erased by the destructor; when SIGINT, SIGTERM or SIGHUP ends the process it is erased too, and the
/// process ends by that signal at once. A signal that was ignored stays ignored. One object at a time; a child process
/// that is forked meanwhile leaves with _exit() or exec.
class Progress {
public:
    /// The activity, such as `loading part.stl`, may hold any characters.
    explicit Progress(const std::string& activity, int terminal = STDERR_FILENO);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

private:
    void drawUntilDone();

    std::string activity;
    int terminal;
    bool isDone = false;
    std::mutex mutex;
    std::condition_variable done;
    std::thread drawing;
};

} // namespace tesk::measure
