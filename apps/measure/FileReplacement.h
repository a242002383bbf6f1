#pragma once

#include <csignal>
#include <string>
#include <string_view>

namespace tesk::measure {

/// Writes a file as a whole or not at all.
///
/// The text goes to a new file in the same folder, which takes the old file's place, and its permissions, when all is
/// written. Until then a reader sees the old file, or none; a link stays a link. What is not committed is removed.
///
/// While the object lives, SIGINT, SIGTERM and SIGHUP wait, so that they leave no unfinished file behind: write() looks
/// for them and gives up, and they take effect when the object is gone. All operations throw Failure, which names the
/// file.
class FileReplacement {
public:
    explicit FileReplacement(const std::string& path);
    ~FileReplacement();
    FileReplacement(const FileReplacement&) = delete;
    FileReplacement& operator=(const FileReplacement&) = delete;

    void write(std::string_view text);
    void commit();

private:
    /// Keeps the signals waiting that would end the process.
    class HeldSignals {
    public:
        HeldSignals();
        ~HeldSignals();
        HeldSignals(const HeldSignals&) = delete;
        HeldSignals& operator=(const HeldSignals&) = delete;
        bool isAnyWaiting() const;

    private:
        sigset_t held;
        sigset_t before;
    };

    // The signals come first, so that they are let go last.
    HeldSignals signals;
    std::string path;
    std::string target;
    /// Empty once it has been renamed.
    std::string temporary;
    int descriptor = -1;
};

/// Throws Failure when a FileReplacement of that path would fail as things stand: no such folder, no permission, not a
/// regular file. For saying so before long work.
void checkReplaceable(const std::string& path);

} // namespace tesk::measure
