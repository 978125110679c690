#include "shell/FileIO.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <tuple>

#include <unistd.h>

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

TEST(FileIO, ReplacesWholeFilesAndReadsThemBack) {
    const auto dir = std::filesystem::temp_directory_path() / ("ferrolith_fileio_" + std::to_string(::getpid()));
    std::filesystem::create_directories(dir);
    const std::string path = (dir / "a.dat").string();
    ASSERT_FALSE(fileio::WriteReplacing(path, std::string("old\0bytes", 9)).Failed());
    ASSERT_FALSE(fileio::WriteReplacing(path, "new").Failed());
    std::string bytes;
    fileio::IoError e;
    ASSERT_TRUE(fileio::ReadWhole(path, 100, bytes, e));
    EXPECT_EQ(bytes, "new");
    ASSERT_TRUE(fileio::ReadWhole(path, 2, bytes, e));
    EXPECT_EQ(bytes, "ne") << "reading stops at the cap";

    EXPECT_EQ(fileio::WriteReplacing((dir / "no" / "b.dat").string(), "x").Number, 76);
    EXPECT_FALSE(fileio::ReadWhole(dir.string(), 100, bytes, e)) << "a folder is not a file";
    EXPECT_EQ(e.Number, 75);
    EXPECT_FALSE(fileio::ReadWhole((dir / "none").string(), 100, bytes, e));
    EXPECT_EQ(e.Number, 76);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir), std::filesystem::directory_iterator()), 1)
        << "no temporary file is left behind";
    std::filesystem::remove_all(dir);
}

}  // namespace
