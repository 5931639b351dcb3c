#include "files/put_line.h"

#include "platform/dos/file_io.h"
#include "text/record/text_record.h"

#include <cstring>

bool FlushFileBlock(TextRecord* record, int fd)
{
    const bool written = WriteBytes(fd, record->FileBuffer, static_cast<size_t>(record->FilePosition));
    StartWriteback(fd);
    record->FileCursor = record->FileBuffer;
    record->FilePosition = 0;
    return written;
}

bool PutLine(TextRecord* record, int fd, const char* text, int32_t length)
{
    if (length + 1 > record->FileLimit) {
        if (!FlushFileBlock(record, fd) || !WriteBytes(fd, text, static_cast<size_t>(length)))
            return false;
        LineAdded(record, 0);
        return true;
    }
    char* room = LineRoom(record, fd, length);
    if (!room)
        return false;
    std::memcpy(room, text, static_cast<size_t>(length));
    LineAdded(record, length);
    return true;
}
