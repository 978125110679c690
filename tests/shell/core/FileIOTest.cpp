#include "shell/core/FileIO.h"

#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <tuple>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <fstream>
#include <future>
#include <thread>

namespace {

TEST(FileIO, SystemErrorsBecomeTheProgramsNumbers) {
    const std::tuple<int, int32_t, const char*> cases[] = {
        {0, 0, ""},
        {ENOENT, 76, "Path not found"},
        {ENOTDIR, 76, "Path not found"},
        {EACCES, 70, "Permission denied"},
        {EROFS, 70, "Permission denied"},
        {ENOSPC, 61, "Disk full"},
        {EFBIG, 61, "Disk full"},
        {EIO, 57, "Device I/O error"},
        {ENAMETOOLONG, 52, "Bad file name or number"},
        {EBUSY, 75, "Path/File access error"}};
    for (const auto& [err, number, text] : cases) {
        const fileio::IoError e = fileio::ErrnoError(err);
        EXPECT_EQ(e.Number, number) << err;
        EXPECT_EQ(e.Description, text) << err;
    }
    EXPECT_EQ(fileio::MakeError(62).Message(), "Error No. 62:  Input past end of file");
}

namespace fs = std::filesystem;
using fileio::ReadOutcome;

class FileIOFolder : public testutil::TempFolder {
protected:
    std::string Read(const std::string& name) const {
        std::string bytes;
        fileio::IoError e;
        EXPECT_EQ(fileio::ReadWhole(P(name), 1 << 20, bytes, e), ReadOutcome::Read) << name;
        return bytes;
    }
};

// The number of a process that has ended.
pid_t DeadPid() {
    const pid_t pid = ::fork();
    if (pid == 0) ::_exit(0);
    ::waitpid(pid, nullptr, 0);
    return pid;
}

TEST_F(FileIOFolder, ReplacesWholeFilesAndReadsThemBack) {
    const std::string path = P("a.dat");
    ASSERT_FALSE(fileio::WriteReplacing(path, std::string("old\0bytes", 9)).Failed());
    ASSERT_FALSE(fileio::WriteReplacing(path, "new").Failed());
    EXPECT_EQ(Read("a.dat"), "new");
    std::string bytes;
    fileio::IoError e;
    EXPECT_EQ(fileio::ReadWhole(path, 3, bytes, e), ReadOutcome::Read);
    EXPECT_EQ(fileio::ReadWhole(P("none"), 100, bytes, e), ReadOutcome::Missing);
    EXPECT_EQ(e.Number, 76);
    EXPECT_EQ(fileio::WriteReplacing(P("no/b.dat"), "x").Number, 76);
    EXPECT_EQ(Entries(), 1u) << "no temporary file is left behind";
}

TEST_F(FileIOFolder, FailedWriteKeepsTheOldFile) {
    const std::string path = P("a.dat");
    ASSERT_FALSE(fileio::WriteReplacing(path, "old").Failed());
    // A file size limit makes the write fail part way, even for root.
    rlimit saved{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &saved), 0);
    auto oldHandler = std::signal(SIGXFSZ, SIG_IGN);
    rlimit small = saved;
    small.rlim_cur = 100;
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
    const fileio::IoError e = fileio::WriteReplacing(path, std::string(1000, 'x'));
    setrlimit(RLIMIT_FSIZE, &saved);
    std::signal(SIGXFSZ, oldHandler);
    EXPECT_EQ(e.Number, 61);  // the size limit reads as a full disk
    EXPECT_EQ(Read("a.dat"), "old");
    EXPECT_EQ(Entries(), 1u) << "no temporary file is left behind";
}

TEST_F(FileIOFolder, ReadRefusesAFileLongerThanItsCapFromTheSizeAlone) {
    // 4 GB of holes: reading it would take long and all that memory.
    const std::string path = P("big.wld");
    {
        const int fd = ::open(path.c_str(), O_CREAT | O_WRONLY, 0644);
        ASSERT_GE(fd, 0);
        ASSERT_EQ(::ftruncate(fd, off_t{1} << 32), 0);
        ::close(fd);
    }
    std::string bytes = "kept";
    fileio::IoError e;
    EXPECT_EQ(fileio::ReadWhole(path, 1 << 20, bytes, e), ReadOutcome::TooLarge);
    EXPECT_EQ(e.Number, 7);
    EXPECT_EQ(bytes, "kept");
    ASSERT_FALSE(fileio::WriteReplacing(path, "abcd").Failed());
    EXPECT_EQ(fileio::ReadWhole(path, 3, bytes, e), ReadOutcome::TooLarge) << "one byte over";
}

TEST_F(FileIOFolder, ReadRefusesWhatIsNotARegularFileWithoutBlocking) {
    const std::string fifo = P("pipe.wld");
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
    // Should the reader wait in open() for a writer, this one comes after two
    // seconds, and the time taken fails the test instead of hanging it.
    std::promise<void> returned;
    std::thread writer([&, done = returned.get_future()] {
        if (done.wait_for(std::chrono::seconds(2)) == std::future_status::ready) return;
        const int fd = ::open(fifo.c_str(), O_WRONLY | O_NONBLOCK);
        if (fd >= 0) ::close(fd);
    });
    const auto start = std::chrono::steady_clock::now();
    std::string bytes;
    fileio::IoError e;
    const ReadOutcome fifoRead = fileio::ReadWhole(fifo, 100, bytes, e);
    const auto took = std::chrono::steady_clock::now() - start;
    returned.set_value();
    writer.join();
    EXPECT_EQ(fifoRead, ReadOutcome::Unreadable);
    EXPECT_EQ(e.Number, 75);
    EXPECT_LT(took, std::chrono::seconds(1));
    EXPECT_EQ(fileio::ReadWhole(dir_.string(), 100, bytes, e), ReadOutcome::Unreadable) << "a folder";
    EXPECT_EQ(fileio::ReadWhole("/dev/zero", 100, bytes, e), ReadOutcome::Unreadable) << "a device";
}

TEST_F(FileIOFolder, SaveWritesThroughSymbolicLinksAndKeepsPermissions) {
    fs::create_directories(dir_ / "real");
    ASSERT_FALSE(fileio::WriteReplacing(P("real/layout.wld"), "old").Failed());
    ::chmod(P("real/layout.wld").c_str(), 0600);
    fs::create_symlink("real/layout.wld", dir_ / "link.wld");
    ASSERT_FALSE(fileio::WriteReplacing(P("link.wld"), "new").Failed());
    EXPECT_TRUE(fs::is_symlink(dir_ / "link.wld"));
    EXPECT_EQ(Read("real/layout.wld"), "new");
    EXPECT_EQ(fs::status(dir_ / "real/layout.wld").permissions() & fs::perms::all,
              fs::perms::owner_read | fs::perms::owner_write);

    // A dangling link: the file it names is made, and the link stays.
    fs::create_symlink("real/later.wld", dir_ / "dangling.wld");
    ASSERT_FALSE(fileio::WriteReplacing(P("dangling.wld"), "made").Failed());
    EXPECT_TRUE(fs::is_symlink(dir_ / "dangling.wld"));
    EXPECT_EQ(Read("real/later.wld"), "made");
    EXPECT_EQ(Entries(dir_ / "real"), 2u);
}

TEST_F(FileIOFolder, SaveRefusesATargetThatIsNotARegularFile) {
    ASSERT_EQ(::mkfifo(P("pipe.wld").c_str(), 0600), 0);
    fs::create_directories(dir_ / "folder.wld");
    fs::create_symlink("pipe.wld", dir_ / "to-pipe.wld");
    for (const char* name : {"pipe.wld", "folder.wld", "to-pipe.wld"}) {
        const fileio::IoError e = fileio::WriteReplacing(P(name), "x");
        EXPECT_EQ(e.Message(), "Error No. 75:  Path/File access error") << name;
    }
    EXPECT_TRUE(fs::is_fifo(dir_ / "pipe.wld"));
    EXPECT_TRUE(fs::is_directory(dir_ / "folder.wld"));
    EXPECT_TRUE(fs::is_symlink(dir_ / "to-pipe.wld"));
    EXPECT_EQ(Entries(), 3u) << "nothing made";
}

TEST_F(FileIOFolder, SaveRemovesTemporaryFilesOfEndedProcesses) {
    const std::string path = P("layout.wld");
    // A save killed midway leaves its temporary file.
    const pid_t child = ::fork();
    if (child == 0) {
        std::ofstream(fileio::TempPathFor(path, ::getpid())) << "half";
        ::raise(SIGKILL);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    ASSERT_TRUE(WIFSIGNALED(status));
    EXPECT_TRUE(fs::exists(fileio::TempPathFor(path, child)));
    const std::string stale = fileio::TempPathFor(path, DeadPid());
    const std::string other = fileio::TempPathFor(P("other.wld"), DeadPid());
    const std::string live = fileio::TempPathFor(path, ::getppid());
    for (const std::string& p : {stale, other, live}) std::ofstream(p) << "left";
    EXPECT_EQ(fs::path(stale).filename().string().rfind(".layout.wld.ferrolith-tmp-", 0), 0u);


    ASSERT_FALSE(fileio::WriteReplacing(path, "saved").Failed());
    EXPECT_FALSE(fs::exists(stale));
    EXPECT_FALSE(fs::exists(other));
    EXPECT_FALSE(fs::exists(fileio::TempPathFor(path, child)));
    EXPECT_TRUE(fs::exists(live)) << "a running process keeps its file";
    EXPECT_EQ(Read("layout.wld"), "saved");
}

}  // namespace
