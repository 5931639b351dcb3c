#include "files/replacement_file.h"

#include "platform/dos/errors.h"
#include "platform/dos/file_io.h"
#include "platform/dos/filenotes.h"
#include "platform/dos/paths.h"

#include <atomic>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace {

bool Fail()
{
    SetIoErrFromErrno(errno);
    return false;
}

// A step of the replacement failed: its error is kept, the temporary file
// goes, and the old file stays.
bool FailAbandoning(ReplacementFile* file)
{
    Fail();
    AbandonReplacement(file);
    return false;
}

// The file a save ends in: the path itself, or for a symbolic link the file
// it points at, so that the link survives the rename.
std::string ResolveTarget(const std::string& path)
{
    struct stat link;
    if (::lstat(path.c_str(), &link) != 0 || !S_ISLNK(link.st_mode))
        return path;
    char resolved[PATH_MAX];
    return ::realpath(path.c_str(), resolved) ? std::string(resolved) : path;
}

std::string DirectoryOf(const std::string& path)
{
    return std::string(path.c_str(), static_cast<size_t>(PathPart(path.c_str()) - path.c_str()));
}

// A short name of our own beside the target, whatever the length of the
// target's name (a name of 255 bytes leaves no room for a suffix): hidden,
// unique within this process by the counter and across processes by the
// pid; O_EXCL refuses any clash, and a clash just tries the next number.
int CreateTemporary(const std::string& target, std::string* temporary, mode_t mode)
{
    static std::atomic<unsigned> counter{0};
    std::string stem = DirectoryOf(target);
    if (!stem.empty() && stem.back() != '/')
        stem += '/';
    stem += ".tavrel-" + std::to_string(::getpid()) + '-';
    for (int attempt = 0; attempt < 100; ++attempt) {
        *temporary = stem + std::to_string(counter.fetch_add(1));
        int fd = ::open(temporary->c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
        if (fd >= 0 || errno != EEXIST)
            return fd;
    }
    return -1;
}

// The old file's owner and group go to the new one where this process may
// set them: root keeps both; a user keeps at least the group when it is one
// of theirs. Where neither is allowed the file is the saver's, as any new file.
void KeepOwner(int fd, const struct stat& old)
{
    if (::fchown(fd, old.st_uid, old.st_gid) != 0)
        static_cast<void>(::fchown(fd, static_cast<uid_t>(-1), old.st_gid));
}

// A directory that refuses new files (no write permission on it) while the
// file itself may be written: the replacement can't be made, so the file is
// written in place. A failure halfway then leaves the file cut short, which
// the caller reports.
bool OpenInPlace(ReplacementFile* file)
{
    file->fd = ::open(file->target.c_str(), O_WRONLY | O_TRUNC | O_CLOEXEC);
    return file->fd >= 0 || Fail();
}

void SyncDirectoryOf(const std::string& path)
{
    const std::string directory = DirectoryOf(path);
    int fd = ::open(directory.empty() ? "." : directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0)
        return;
    ::fsync(fd); // the rename is done; a failed sync of the directory changes nothing now
    ::close(fd);
}

} // namespace

bool OpenReplacement(const char* name, ReplacementFile* file)
{
    file->target = ResolveTarget(SystemPath(name));
    file->temporary.clear();
    struct stat old;
    const bool exists = ::stat(file->target.c_str(), &old) == 0;
    if (exists && !S_ISREG(old.st_mode))
        return OpenInPlace(file);
    // A new file gets 0666 less the umask, as any new file; a replacement the
    // old file's permission bits, set before a byte is written.
    file->fd = CreateTemporary(file->target, &file->temporary, 0666);
    if (file->fd < 0) {
        const int error = errno;
        file->temporary.clear();
        if (exists && (error == EACCES || error == EPERM) && ::access(file->target.c_str(), W_OK) == 0)
            return OpenInPlace(file);
        errno = error;
        return Fail();
    }
    if (exists) {
        KeepOwner(file->fd, old);
        if (::fchmod(file->fd, old.st_mode & 07777) != 0)
            return FailAbandoning(file);
    }
    return true;
}

bool CommitReplacement(ReplacementFile* file)
{
    if (file->temporary.empty()) {
        const bool closed = CloseFile(file->fd);
        file->fd = -1;
        return closed;
    }
    if (::fsync(file->fd) != 0)
        return FailAbandoning(file);
    // CloseFile keeps its error in IoErr, which AbandonReplacement leaves.
    const bool closed = CloseFile(file->fd);
    file->fd = -1;
    if (!closed) {
        AbandonReplacement(file);
        return false;
    }
    char note[MaxCommentLength + 1];
    if (GetComment(file->target.c_str(), note, sizeof note) && note[0])
        SetComment(file->temporary.c_str(), note);
    if (::rename(file->temporary.c_str(), file->target.c_str()) != 0)
        return FailAbandoning(file);
    file->temporary.clear();
    SyncDirectoryOf(file->target);
    return true;
}

void AbandonReplacement(ReplacementFile* file)
{
    if (file->fd >= 0)
        ::close(file->fd);
    file->fd = -1;
    if (!file->temporary.empty())
        ::unlink(file->temporary.c_str());
    file->temporary.clear();
}
