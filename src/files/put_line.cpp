#include "files/put_line.h"

#include "files/file_io.h"
#include "text/text_record.h"

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
    if (record->FilePosition + length + 1 > record->FileLimit && !FlushFileBlock(record, fd))
        return false;
    if (length + 1 > record->FileLimit) {
        if (!WriteBytes(fd, text, static_cast<size_t>(length)))
            return false;
    } else {
        std::memcpy(record->FileCursor, text, static_cast<size_t>(length));
        record->FileCursor += length;
        record->FilePosition += length;
    }
    *record->FileCursor++ = '\n';
    ++record->FilePosition;
    return true;
}
