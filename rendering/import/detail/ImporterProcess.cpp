#include <rendering/import/detail/ImporterProcess.h>

#include <rendering/import/detail/AssimpReader.h>
#include <rendering/import/detail/SceneMessage.h>
#include <rendering/import/detail/StlReader.h>

#include <fcntl.h>
#include <signal.h>
#include <strings.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <locale>
#include <memory>
#include <new>
#include <system_error>

namespace tesk::rendering::detail {

namespace {

#if defined(__SANITIZE_ADDRESS__)
constexpr bool isAddressSpaceLimited = false;
#else
constexpr bool isAddressSpaceLimited = true;
#endif

/// No library ends a process with it.
constexpr int outOfMemoryStatus = 87;

struct CloseStream {
    void operator()(std::FILE* stream) const { std::fclose(stream); }
};
typedef std::unique_ptr<std::FILE, CloseStream> Stream;

unsigned cpuLimit(const ImportLimits& limits) { return std::max(limits.cpuSeconds, 1u); }

unsigned clockLimit(const ImportLimits& limits) { return 10 * std::min(cpuLimit(limits), 1u << 20); }

void limitResource(decltype(RLIMIT_CPU) resource, rlim_t soft, rlim_t hard) {
    rlimit limit{};
    getrlimit(resource, &limit);
    limit.rlim_max = std::min(limit.rlim_max, hard);
    limit.rlim_cur = std::min(limit.rlim_max, soft);
    setrlimit(resource, &limit);
}

void limitMemory(std::uint64_t bytes) {
    if (!isAddressSpaceLimited) return;
    std::uint64_t pagesInUse = 0;
    std::ifstream("/proc/self/statm") >> pagesInUse;
    const std::uint64_t inUse = pagesInUse * static_cast<std::uint64_t>(sysconf(_SC_PAGESIZE));
    const rlim_t total = bytes > RLIM_INFINITY - inUse ? RLIM_INFINITY : inUse + bytes;
    limitResource(RLIMIT_AS, total, total);
    std::set_new_handler([] { _exit(outOfMemoryStatus); });
}

/// What the caller handles must end the child; what the caller ignores, such as Ctrl-C in the background, stays so.
void resetSignals() {
    for (int number = 1; number < NSIG; ++number) {
        struct sigaction action {};
        const bool isLimit = number == SIGXCPU || number == SIGALRM;
        if (sigaction(number, nullptr, &action) == 0 && (isLimit || action.sa_handler != SIG_IGN))
            signal(number, SIG_DFL);
    }
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
}

void silenceOutput() {
    const int nowhere = open("/dev/null", O_RDWR);
    for (int stream = 0; stream <= 2; ++stream) dup2(nowhere, stream);
}

void restrictChild(const ImportLimits& limits, pid_t parent) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != parent) _exit(1);
    resetSignals();
    silenceOutput();
    // Neither a core file nor a crash reporter.
    limitResource(RLIMIT_CORE, 0, 0);
    prctl(PR_SET_DUMPABLE, 0);
    limitResource(RLIMIT_CPU, cpuLimit(limits), rlim_t(cpuLimit(limits)) + 1);
    alarm(clockLimit(limits));
    limitMemory(limits.memoryBytes);
    std::locale::global(std::locale::classic());
}

FlatScene read(const std::string& file) {
    const bool isStl = strcasecmp(std::filesystem::path(file).extension().c_str(), ".stl") == 0;
    return isStl ? readStl(file) : readWithAssimp(file);
}

[[noreturn]] void runChild(const std::string& file, std::FILE* stream) {
    try {
        writeScene(stream, read(file));
    } catch (const std::exception& exception) {
        writeFailure(stream, std::string("not a readable mesh: ") + exception.what());
    }
    _exit(0);
}

std::string describeSize(std::uint64_t bytes) {
    const bool isGibibytes = bytes >> 30 << 30 == bytes;
    return std::to_string(bytes >> (isGibibytes ? 30 : 20)) + (isGibibytes ? " GiB" : " MiB");
}

/// Why the child ended before its message did.
std::string describeEnd(int status, const ImportLimits& limits) {
    if (WIFEXITED(status) && WEXITSTATUS(status) == outOfMemoryStatus)
        return "importer exceeded " + describeSize(limits.memoryBytes) + " of memory";
    switch (WIFSIGNALED(status) ? WTERMSIG(status) : 0) {
    case SIGXCPU:
        return "importer exceeded " + std::to_string(cpuLimit(limits)) + " s of computing time";
    case SIGALRM:
        return "importer took more than " + std::to_string(clockLimit(limits)) + " s";
    case SIGINT:
    case SIGTERM:
        return "importer was interrupted";
    default:
        return "importer crashed";
    }
}

/// 0 when the host reaps its children by itself.
int waitFor(pid_t child) {
    int status = 0;
    while (waitpid(child, &status, 0) < 0)
        if (errno != EINTR) return 0;
    return status;
}

void end(pid_t child) {
    kill(child, SIGKILL);
    waitFor(child);
}

} // namespace

FlatScene readInChildProcess(const std::string& file, const ImportLimits& limits) {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) throw UnreadableFile("no pipe: " + std::generic_category().message(errno));
    const Stream source(fdopen(ends[0], "rb"));
    Stream target(fdopen(ends[1], "wb"));
    const pid_t parent = getpid();
    const pid_t child = fork();
    if (child < 0) throw UnreadableFile("no process: " + std::generic_category().message(errno));
    if (child == 0) {
        restrictChild(limits, parent);
        runChild(file, target.get());
    }
    target.reset();
    try {
        FlatScene scene = readScene(source.get(), limits.memoryBytes);
        end(child);
        return scene;
    } catch (const MessageCutShort&) {
        throw UnreadableFile(describeEnd(waitFor(child), limits));
    } catch (const MessageDamaged&) {
        end(child);
        throw UnreadableFile("importer crashed");
    } catch (...) {
        end(child);
        throw;
    }
}

} // namespace tesk::rendering::detail
