#include "platform/dos/errors.h"
#include "platform/dos/file_io.h"
#include "platform/exec/memory.h"
#include "requesters/file_reports.h"
#include "requesters/no_memory.h"
#include "text/edit/block_marking.h"
#include "text/edit/block_operations.h"
#include "text/lines/edit_line.h"
#include "text/record/text_record.h"

#include <cerrno>
#include <fcntl.h>

bool WriteBlockToFile(TextRecord* record, const char* name)
{
    if (BlockLineCount(record, true) == 0 || !FlushEditLine(record))
        return false;
    const int32_t length = BlockTextLength(record);
    auto* bytes = static_cast<char*>(AllocVec(static_cast<size_t>(length) + 1, MEMF_CLEAR));
    if (!bytes) {
        NoMemoryRequester(record);
        return false;
    }
    CopyBlockText(record, bytes, length);
    const MessageId writing{73}; // "Writing file"
    const int fd = ::open(SystemPath(name).c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    if (fd < 0) {
        SetIoErrFromErrno(errno);
        DosErrorRequester(record, writing);
        FreeVec(bytes);
        return false;
    }
    const bool written = WriteBytes(fd, bytes, static_cast<size_t>(length));
    const bool closed = CloseFile(fd);
    FreeVec(bytes);
    if (!written || !closed)
        DosErrorRequester(record, writing);
    return written && closed;
}
