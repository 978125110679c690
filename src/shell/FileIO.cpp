#include "shell/FileIO.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

namespace fileio {

std::string IoError::Message() const { return "Error No. " + std::to_string(Number) + ":  " + Description; }

std::string ErrorDescription(int32_t number) {
    switch (number) {
        case 0: return "";
        case kErrOverflow: return "Overflow";
        case kErrOutOfMemory: return "Out of memory";
        case kErrTypeMismatch: return "Type mismatch";
        case kErrBadFileName: return "Bad file name or number";
        case kErrDeviceIo: return "Device I/O error";
        case kErrDiskFull: return "Disk full";
        case kErrPastEnd: return "Input past end of file";
        case kErrPermission: return "Permission denied";
        case kErrPathNotFound: return "Path not found";
        default: return "Path/File access error";
    }
}

IoError MakeError(int32_t number) { return IoError{number, ErrorDescription(number)}; }

IoError ErrnoError(int err) {
    switch (err) {
        case 0: return {};
        case ENOENT:
        case ENOTDIR: return MakeError(kErrPathNotFound);
        case EACCES:
        case EPERM:
        case EROFS: return MakeError(kErrPermission);
        case ENOSPC:
        case EDQUOT:
        case EFBIG: return MakeError(kErrDiskFull);
        case ENAMETOOLONG: return MakeError(kErrBadFileName);
        case EIO: return MakeError(kErrDeviceIo);
        default: return MakeError(kErrPathAccess);
    }
}

bool ReadWhole(const std::string& path, size_t cap, std::string& bytes, IoError& error) {
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) {
        error = ErrnoError(errno);
        return false;
    }
    struct stat st {};
    if (::fstat(fd, &st) != 0 || !S_ISREG(st.st_mode)) {
        ::close(fd);
        error = MakeError(kErrPathAccess);
        return false;
    }
    std::string out;
    char buf[65536];
    while (out.size() < cap) {
        const ssize_t n = ::read(fd, buf, std::min(sizeof buf, cap - out.size()));
        if (n < 0 && errno == EINTR) continue;
        if (n < 0) {
            error = ErrnoError(errno);
            ::close(fd);
            return false;
        }
        if (n == 0) break;
        out.append(buf, static_cast<size_t>(n));
    }
    ::close(fd);
    bytes = std::move(out);
    return true;
}

IoError WriteReplacing(const std::string& path, std::string_view bytes) {
    if (path.empty()) return MakeError(kErrPathNotFound);
    std::string temp = path + ".XXXXXX";
    const int fd = ::mkstemp(temp.data());
    if (fd < 0) return ErrnoError(errno);
    // mkstemp makes the file private; give it the mode a plain create would.
    const mode_t mask = ::umask(0);
    ::umask(mask);
    ::fchmod(fd, 0666 & ~mask);

    int err = 0;
    size_t done = 0;
    while (done < bytes.size() && err == 0) {
        const ssize_t n = ::write(fd, bytes.data() + done, bytes.size() - done);
        if (n < 0) {
            if (errno != EINTR) err = errno;
        } else if (n == 0) {
            err = EIO;
        } else {
            done += static_cast<size_t>(n);
        }
    }
    if (err == 0 && ::fsync(fd) != 0) err = errno;
    if (::close(fd) != 0 && err == 0) err = errno;
    if (err == 0 && std::rename(temp.c_str(), path.c_str()) != 0) err = errno;
    if (err != 0) {
        ::unlink(temp.c_str());
        return ErrnoError(err);
    }
    return {};
}

}  // namespace fileio
