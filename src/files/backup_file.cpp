#include "files/backup_file.h"

#include "frame/window/status.h"
#include "platform/dos/errors.h"
#include "platform/dos/file_io.h"
#include "requesters/file_reports.h"
#include "services/messages.h"

#include <cerrno>
#include <fcntl.h>
#include <string>
#include <unistd.h>

namespace {

// The copy for file systems without hard links. A partial copy is removed.
bool CopyFile(const std::string& from, const std::string& to)
{
    int in = OpenForReading(from.c_str());
    if (in < 0)
        return false;
    int out = ::open(to.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (out < 0) {
        SetIoErrFromErrno(errno);
        ::close(in);
        return false;
    }
    char block[16384];
    long got;
    bool copied = true;
    while (copied && (got = ReadBytes(in, block, sizeof block)) != 0)
        copied = got > 0 && WriteBytes(out, block, static_cast<size_t>(got));
    ::close(in);
    copied = CloseFile(out) && copied;
    if (!copied)
        ::unlink(to.c_str());
    return copied;
}

} // namespace

void MakeBackupFile(TextRecord* record, const char* name)
{
    SetStatusMessage(record, MessageId::CreatingBackup);
    const std::string file = SystemPath(name);
    const std::string backup = file + GetString(MessageId::BackupExtension);
    ::unlink(backup.c_str());
    // A link follows a symbolic link, so the backup holds the contents and
    // not a second link to the link.
    bool made = ::linkat(AT_FDCWD, file.c_str(), AT_FDCWD, backup.c_str(), AT_SYMLINK_FOLLOW) == 0;
    if (!made) {
        const int error = errno;
        SetIoErrFromErrno(error);
        if (error != ENOENT && error != ENOTDIR)
            made = CopyFile(file, backup);
    }
    if (!made)
        DosErrorRequester(record, MessageId::CreatingBackup);
}
