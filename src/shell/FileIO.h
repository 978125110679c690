// Whole-file reading and writing for the program's own files, and the
// run-time error numbers their warning boxes show ("Error No. 62:  Input
// past end of file"). A file is replaced through a temporary file in the same
// folder and a rename, so a failed write never destroys the old file.
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

// Reads a regular file whole, at most `cap` bytes of it. A missing file, a
// folder or a read failure gives false with the error.
bool ReadWhole(const std::string& path, size_t cap, std::string& bytes, IoError& error);

// Replaces `path` with `bytes`: a new file beside it, flushed to disk, then
// renamed over the old one. A missing folder is an error ("Path not found").
// On failure the temporary file is removed and the old file is left as it was.
IoError WriteReplacing(const std::string& path, std::string_view bytes);

}  // namespace fileio
