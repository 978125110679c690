// Whole-file reading and writing for the program's own files, and the
// run-time error numbers their warning boxes show ("Error No. 62:  Input
// past end of file").
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace fileio {

// Error numbers the readers and writers report.
inline constexpr int32_t kErrOverflow = 6;
inline constexpr int32_t kErrOutOfMemory = 7;
inline constexpr int32_t kErrTypeMismatch = 13;
inline constexpr int32_t kErrBadFileName = 52;
inline constexpr int32_t kErrDeviceIo = 57;
inline constexpr int32_t kErrDiskFull = 61;
inline constexpr int32_t kErrPastEnd = 62;
inline constexpr int32_t kErrPermission = 70;
inline constexpr int32_t kErrPathAccess = 75;
inline constexpr int32_t kErrPathNotFound = 76;

// A failure as its message box tells it; Number 0 means none.
struct IoError {
    int32_t Number = 0;
    std::string Description;
    bool Failed() const { return Number != 0; }
    std::string Message() const;  // "Error No. <Number>:  <Description>"
};

std::string ErrorDescription(int32_t number);
IoError MakeError(int32_t number);
// The error number of a system error code of a file operation.
IoError ErrnoError(int err);

// What a read found. The readers act on it: only bytes that were read and
// found malformed may cost the user the file; a file that could not be opened
// or read is left where it is.
enum class ReadOutcome {
    Read,        // the bytes are in hand (possibly none)
    Missing,     // nothing at the path
    Unreadable,  // there but not readable: permission, I/O error, a folder, a FIFO, a device
    TooLarge,    // longer than the largest valid file of its format; refused from its size alone
};

// Reads a regular file whole. The file is opened without blocking (a FIFO or
// a device never hangs the reader) and its kind and size are checked before a
// byte is read: anything but a regular file is Unreadable, a file longer than
// `cap` bytes is TooLarge. `error` tells the reason of every outcome but Read.
ReadOutcome ReadWhole(const std::string& path, size_t cap, std::string& bytes, IoError& error);

// A write past the process's file-size limit (ulimit -f) would end the program
// by SIGXFSZ; with the signal ignored it fails with EFBIG, which is reported
// as a full disk ("Disk full") and leaves the old file as it was. The program
// calls this at its start; the first save calls it too.
void IgnoreFileSizeSignal();

// Moves a file that is too large to read out of the way, so that the tool can
// start empty without losing it: it becomes "NAME.too-large" in the same
// folder, or "NAME.too-large-2" and on when that name is taken. Returns the
// new path, or "" when the file could not be moved (it is then left as it is).
std::string SetAside(const std::string& path);

// Replaces the file at `path` with `bytes`: a new file in the same folder,
// flushed to disk, then renamed over the old one, so a failed write never
// destroys the old file. A symbolic link is followed and its target is
// replaced; the new file keeps the old one's permission bits (a new file gets
// the umask's). A target that exists and is not a regular file (a folder, a
// FIFO, a device) is refused with "Path/File access error" and nothing is
// touched. A missing folder is "Path not found". Because the file is replaced,
// another hard link to the old file keeps the old contents.
//
// The temporary file is ".NAME.ferrolith-tmp-PID"; a save removes the ones
// in its folder whose process is gone (a save killed midway leaves one).
// The first save ignores SIGXFSZ (IgnoreFileSizeSignal).
IoError WriteReplacing(const std::string& path, std::string_view bytes);

// The temporary file name a save of `path` by process `pid` uses.
std::string TempPathFor(const std::string& path, long pid);

}  // namespace fileio
