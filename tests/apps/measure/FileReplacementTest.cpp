#include <apps/measure/FileReplacement.h>

#include <apps/measure/Failure.h>
#include <support/TemporaryFolder.h>

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>

#include <sys/wait.h>
#include <unistd.h>

namespace tesk::measure {

namespace {

namespace fs = std::filesystem;

/// A folder with an old file in it.
class FileReplacementTest : public testing::Test {
protected:
    FileReplacementTest() { folder.write("file", "old"); }

    std::string content() const {
        std::ifstream file(path);
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }
    std::ptrdiff_t fileCount() const {
        return std::distance(fs::directory_iterator(folder.file("")), fs::directory_iterator());
    }

    const test::TemporaryFolder folder;
    const std::string path = folder.file("file");
};

} // namespace

TEST_F(FileReplacementTest, ShowsTheNewFileWhenItIsComplete) {
    fs::permissions(path, fs::perms::owner_all);
    fs::create_symlink("file", folder.file("link"));
    FileReplacement file(folder.file("link"));
    file.write("new ");
    file.write("file");
    EXPECT_EQ(content(), "old");
    file.commit();
    EXPECT_EQ(content(), "new file");
    EXPECT_TRUE(fs::is_symlink(folder.file("link")));
    EXPECT_EQ(fs::status(path).permissions(), fs::perms::owner_all);
    EXPECT_EQ(fileCount(), 2);
}

TEST_F(FileReplacementTest, LeavesTheOldFileWhenItIsGivenUp) {
    FileReplacement(path).write("half");
    EXPECT_EQ(content(), "old");
    EXPECT_EQ(fileCount(), 1);
}

TEST_F(FileReplacementTest, LeavesTheOldFileWhenInterrupted) {
    const pid_t child = fork();
    if (child == 0) {
        try {
            FileReplacement file(path);
            file.write("half");
            raise(SIGTERM);
            file.write("way");
            file.commit();
        } catch (const Failure&) {
        }
        _exit(0);
    }
    int status = 0;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGTERM);
    EXPECT_EQ(content(), "old");
    EXPECT_EQ(fileCount(), 1);
}

TEST_F(FileReplacementTest, RefusesWhatIsNoFile) {
    for (const char* other : {"/dev/null", "/", "", "missing/file"}) {
        EXPECT_THROW(checkReplaceable(other), Failure) << other;
    }
    EXPECT_NO_THROW(checkReplaceable(folder.file("another")));
}

} // namespace tesk::measure
