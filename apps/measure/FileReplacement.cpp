#include <apps/measure/FileReplacement.h>

#include <apps/measure/EndingSignals.h>
#include <apps/measure/Failure.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tesk::measure {

namespace {

[[noreturn]] void fail(const std::string& path, const std::string& cause) {
    throw Failure("cannot write " + path + ": " + cause);
}

[[noreturn]] void failWithErrno(const std::string& path) { fail(path, std::generic_category().message(errno)); }

/// The file that links lead to; the path itself where there is none yet.
std::string resolveLinks(const std::string& path) {
    const std::unique_ptr<char, decltype(&std::free)> resolved(realpath(path.c_str(), nullptr), &std::free);
    return resolved ? resolved.get() : path;
}

/// Of the file that is there, or else what a new file gets.
mode_t permissions(const std::string& path) {
    struct stat status {};
    if (stat(path.c_str(), &status) == 0) return status.st_mode & 0777u;
    const mode_t mask = umask(0);
    umask(mask);
    return 0666u & ~mask;
}

} // namespace

FileReplacement::HeldSignals::HeldSignals() {
    sigemptyset(&held);
    for (const int signalNumber : endingSignals) {
        struct sigaction action {};
        sigaction(signalNumber, nullptr, &action);
        // An ignored signal that is held back would count as waiting.
        if (action.sa_handler != SIG_IGN) sigaddset(&held, signalNumber);
    }
    pthread_sigmask(SIG_BLOCK, &held, &before);
}

FileReplacement::HeldSignals::~HeldSignals() { pthread_sigmask(SIG_SETMASK, &before, nullptr); }

bool FileReplacement::HeldSignals::isAnyWaiting() const {
    sigset_t waiting;
    sigpending(&waiting);
    for (const int signalNumber : endingSignals) {
        if (sigismember(&held, signalNumber) == 1 && sigismember(&waiting, signalNumber) == 1) return true;
    }
    return false;
}

FileReplacement::FileReplacement(const std::string& wantedPath)
    : path(wantedPath), target(resolveLinks(path)), temporary(target + ".XXXXXX") {
    checkReplaceable(path);
    descriptor = mkostemp(temporary.data(), O_CLOEXEC);
    if (descriptor < 0) failWithErrno(path);
    fchmod(descriptor, permissions(target));
}

FileReplacement::~FileReplacement() {
    if (descriptor >= 0) close(descriptor);
    if (!temporary.empty()) unlink(temporary.c_str());
}

void FileReplacement::write(std::string_view text) {
    // Small pieces, so that a signal does not wait long.
    constexpr std::size_t pieceSize = std::size_t{1} << 20;
    while (!text.empty()) {
        if (signals.isAnyWaiting()) fail(path, "interrupted");
        const ssize_t written = ::write(descriptor, text.data(), std::min(text.size(), pieceSize));
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) failWithErrno(path);
        text.remove_prefix(static_cast<std::size_t>(written));
    }
}

void FileReplacement::commit() {
    // On the disk before it has the name: else a power failure could leave an empty file in place of the old one.
    if (fsync(descriptor) != 0 && errno != EINVAL) failWithErrno(path);
    if (std::rename(temporary.c_str(), target.c_str()) != 0) failWithErrno(path);
    temporary.clear();
}

void checkReplaceable(const std::string& path) {
    const std::string target = resolveLinks(path);
    struct stat status {};
    const bool exists = stat(target.c_str(), &status) == 0;
    if (exists && !S_ISREG(status.st_mode)) fail(path, "not a regular file");
    if (exists && access(target.c_str(), W_OK) != 0) failWithErrno(path);
    const std::string folder = std::filesystem::path(target).parent_path().string();
    if (access(folder.empty() ? "." : folder.c_str(), W_OK | X_OK) != 0) failWithErrno(path);
    if (!exists && (target.empty() || target.back() == '/')) fail(path, "not the name of a file");
}

} // namespace tesk::measure
