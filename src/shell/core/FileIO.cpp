#include "shell/core/FileIO.h"

#include <dirent.h>
#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <climits>
#include <cstdint>
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

ReadOutcome ReadWhole(const std::string& path, size_t cap, std::string& bytes, IoError& error) {
    // O_NONBLOCK: opening a FIFO with no writer, or some devices, would wait for ever.
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    if (fd < 0) {
        const int err = errno;
        error = ErrnoError(err);
        return err == ENOENT || err == ENOTDIR ? ReadOutcome::Missing : ReadOutcome::Unreadable;
    }
    struct stat st {};
    if (::fstat(fd, &st) != 0 || !S_ISREG(st.st_mode)) {
        ::close(fd);
        error = MakeError(kErrPathAccess);
        return ReadOutcome::Unreadable;
    }
    if (static_cast<uintmax_t>(st.st_size) > cap) {
        ::close(fd);
        error = MakeError(kErrOutOfMemory);
        return ReadOutcome::TooLarge;
    }
    const int flags = ::fcntl(fd, F_GETFL);
    if (flags >= 0) ::fcntl(fd, F_SETFL, flags & ~O_NONBLOCK);

    std::string out;
    out.reserve(static_cast<size_t>(st.st_size));
    char buf[65536];
    // One byte past the cap tells a file that grew after the size check.
    while (out.size() <= cap) {
        const size_t room = cap - out.size();
        const size_t want = room >= sizeof buf ? sizeof buf : room + 1;
        const ssize_t n = ::read(fd, buf, want);
        if (n < 0 && errno == EINTR) continue;
        if (n < 0) {
            error = ErrnoError(errno);
            ::close(fd);
            return ReadOutcome::Unreadable;
        }
        if (n == 0) break;
        out.append(buf, static_cast<size_t>(n));
    }
    ::close(fd);
    if (out.size() > cap) {
        error = MakeError(kErrOutOfMemory);
        return ReadOutcome::TooLarge;
    }
    bytes = std::move(out);
    error = {};
    return ReadOutcome::Read;
}

namespace {

constexpr const char* kTempMark = ".ferrolith-tmp-";
// Room left for the file's own name in a temporary name within NAME_MAX.
constexpr size_t kTempNameRoom = 200;

std::string FolderOf(const std::string& path) {
    const size_t slash = path.find_last_of('/');
    if (slash == std::string::npos) return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

// Follows symbolic links to the file a save must replace. The result may not
// exist yet (a new file, or the target of a dangling link).
int ResolveLinks(const std::string& path, std::string& target) {
    std::string p = path;
    for (int hops = 0; hops < 40; ++hops) {
        struct stat st {};
        if (::lstat(p.c_str(), &st) != 0 || !S_ISLNK(st.st_mode)) {
            target = p;
            return 0;
        }
        std::string link(PATH_MAX, '\0');
        const ssize_t n = ::readlink(p.c_str(), link.data(), link.size());
        if (n < 0) return errno;
        link.resize(static_cast<size_t>(n));
        p = !link.empty() && link[0] == '/' ? link : FolderOf(p) + "/" + link;
    }
    return ELOOP;
}

// The process number of a temporary file name, or 0 when it is not one.
long TempOwner(const char* name) {
    const std::string n = name;
    const size_t mark = n.rfind(kTempMark);
    if (n.size() < 2 || n[0] != '.' || mark == std::string::npos || mark == 0) return 0;
    const std::string digits = n.substr(mark + std::char_traits<char>::length(kTempMark));
    if (digits.empty() || digits.size() > 10 || digits.find_first_not_of("0123456789") != std::string::npos)
        return 0;
    return std::stol(digits);
}

// Removes the temporary files in `folder` left by saves whose process is gone.
void RemoveStaleTemps(const std::string& folder) {
    DIR* dir = ::opendir(folder.c_str());
    if (dir == nullptr) return;
    const long self = static_cast<long>(::getpid());
    while (const dirent* e = ::readdir(dir)) {
        const long pid = TempOwner(e->d_name);
        if (pid <= 0 || pid == self || pid > INT32_MAX) continue;
        if (::kill(static_cast<pid_t>(pid), 0) == 0 || errno != ESRCH) continue;
        struct stat st {};
        if (::fstatat(::dirfd(dir), e->d_name, &st, AT_SYMLINK_NOFOLLOW) == 0 && S_ISREG(st.st_mode) &&
            st.st_uid == ::geteuid())
            ::unlinkat(::dirfd(dir), e->d_name, 0);
    }
    ::closedir(dir);
}

}  // namespace

std::string SetAside(const std::string& path) {
    for (int n = 1; n <= 100; ++n) {
        const std::string aside = path + ".too-large" + (n == 1 ? "" : "-" + std::to_string(n));
        // Never over another file: an earlier file set aside stays too.
        if (::renameat2(AT_FDCWD, path.c_str(), AT_FDCWD, aside.c_str(), RENAME_NOREPLACE) == 0) return aside;
        if (errno == EEXIST) continue;
        if (errno != EINVAL && errno != ENOSYS) return "";
        // A file system without the exclusive rename: test, then rename.
        struct stat st {};
        if (::lstat(aside.c_str(), &st) == 0) continue;
        return std::rename(path.c_str(), aside.c_str()) == 0 ? aside : "";
    }
    return "";
}

std::string TempPathFor(const std::string& path, long pid) {
    const size_t slash = path.find_last_of('/');
    const std::string folder = slash == std::string::npos ? "" : path.substr(0, slash + 1);
    std::string name = slash == std::string::npos ? path : path.substr(slash + 1);
    if (name.size() > kTempNameRoom) name.resize(kTempNameRoom);
    return folder + "." + name + kTempMark + std::to_string(pid);
}

void IgnoreFileSizeSignal() { std::signal(SIGXFSZ, SIG_IGN); }

IoError WriteReplacing(const std::string& path, std::string_view bytes) {
    static const bool ignored = (IgnoreFileSizeSignal(), true);
    (void)ignored;
    if (path.empty()) return MakeError(kErrPathNotFound);
    std::string target;
    if (const int err = ResolveLinks(path, target); err != 0) return ErrnoError(err);

    struct stat old {};
    const bool exists = ::lstat(target.c_str(), &old) == 0;
    if (!exists && errno != ENOENT) return ErrnoError(errno);
    if (exists && !S_ISREG(old.st_mode)) return MakeError(kErrPathAccess);

    RemoveStaleTemps(FolderOf(target));
    const std::string temp = TempPathFor(target, static_cast<long>(::getpid()));
    const int openFlags = O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW;
    int fd = ::open(temp.c_str(), openFlags, 0666);
    if (fd < 0 && errno == EEXIST) {
        // Left by an earlier process that had this number.
        ::unlink(temp.c_str());
        fd = ::open(temp.c_str(), openFlags, 0666);
    }
    if (fd < 0) return ErrnoError(errno);
    if (exists) {
        // The group first: changing it may clear the set-id bits set next.
        if (::fchown(fd, static_cast<uid_t>(-1), old.st_gid) != 0) {
            // Not a member of that group: the file takes the user's group.
        }
        ::fchmod(fd, old.st_mode & 07777);
    }

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
    if (err == 0 && std::rename(temp.c_str(), target.c_str()) != 0) err = errno;
    if (err != 0) {
        ::unlink(temp.c_str());
        return ErrnoError(err);
    }
    return {};
}

}  // namespace fileio
