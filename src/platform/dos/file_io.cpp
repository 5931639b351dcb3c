#include "platform/dos/file_io.h"

#include "platform/dos/errors.h"
#include "platform/dos/volumes.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

std::string SystemPath(const char* name)
{
    return ExpandVolumePath(name);
}

int OpenForReading(const char* name)
{
    // Opened without blocking, so that a FIFO with no writer doesn't hold
    // the text; a regular file then reads as it always does.
    int fd;
    do
        fd = ::open(SystemPath(name).c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    while (fd < 0 && errno == EINTR);
    if (fd < 0) {
        SetIoErrFromErrno(errno);
        return -1;
    }
    struct stat status;
    if (::fstat(fd, &status) != 0 || !S_ISREG(status.st_mode)) {
        ::close(fd);
        SetIoErr(ERROR_OBJECT_WRONG_TYPE);
        return -1;
    }
    ::fcntl(fd, F_SETFL, ::fcntl(fd, F_GETFL) & ~O_NONBLOCK);
    return fd;
}

FileKind KindOfFile(const char* name)
{
    struct stat status;
    if (::stat(SystemPath(name).c_str(), &status) != 0)
        return errno == ENOENT || errno == ENOTDIR ? FileKind::Missing : FileKind::Regular;
    return S_ISREG(status.st_mode) ? FileKind::Regular : FileKind::Other;
}

bool IsSameFile(const char* first, const char* second)
{
    struct stat one, two;
    return ::stat(SystemPath(first).c_str(), &one) == 0 && ::stat(SystemPath(second).c_str(), &two) == 0
        && one.st_dev == two.st_dev && one.st_ino == two.st_ino;
}

long ReadBytes(int fd, char* buffer, size_t size)
{
    for (;;) {
        ssize_t got = ::read(fd, buffer, size);
        if (got >= 0)
            return static_cast<long>(got);
        if (errno != EINTR) {
            SetIoErrFromErrno(errno);
            return -1;
        }
    }
}

bool WriteBytes(int fd, const char* buffer, size_t size)
{
    while (size > 0) {
        ssize_t put = ::write(fd, buffer, size);
        if (put < 0) {
            if (errno == EINTR)
                continue;
            SetIoErrFromErrno(errno);
            return false;
        }
        buffer += put;
        size -= static_cast<size_t>(put);
    }
    return true;
}

void StartWriteback(int fd)
{
    ::sync_file_range(fd, 0, 0, SYNC_FILE_RANGE_WRITE);
}

long long FileLength(int fd)
{
    struct stat status;
    if (::fstat(fd, &status) != 0 || !S_ISREG(status.st_mode))
        return -1;
    return static_cast<long long>(status.st_size);
}

bool CloseFile(int fd)
{
    // Linux releases the descriptor even when close reports an error, so
    // it is never retried.
    if (::close(fd) == 0)
        return true;
    SetIoErrFromErrno(errno);
    return false;
}
