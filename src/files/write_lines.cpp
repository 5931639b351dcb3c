#include "files/write_lines.h"

#include "files/file_buffer.h"
#include "files/put_line.h"
#include "files/replacement_file.h"
#include "files/tab_compression.h"
#include "frame/window/busy.h"
#include "platform/exec/memory.h"
#include "requesters/file_reports.h"
#include "text/lines/edit_line.h"
#include "text/record/line_table.h"
#include "text/record/text_record.h"

#include <cstring>

namespace {

bool PutAllLines(TextRecord* record, int fd, bool compress)
{
    // A compressed line is made in the block itself when a whole line fits
    // there, and goes through the WorkLine only with a block smaller than that.
    const bool compressInBlock = record->MaxLineLength + 1 <= record->FileLimit;
    LineWalk walk = StartLineWalk(record, 0);
    for (int32_t line = 0; line < record->LineCount; ++line) {
        size_t stored;
        const char* text = WalkLine(&walk, &stored);
        auto length = static_cast<int32_t>(stored);
        if (compress && *text && compressInBlock) {
            char* room = LineRoom(record, fd, record->MaxLineLength);
            if (!room)
                return false;
            LineAdded(record, CompressTabs(text, stored, room));
            continue;
        }
        if (compress && *text) {
            length = CompressTabs(text, stored, record->WorkLine);
            text = record->WorkLine;
        }
        if (!PutLine(record, fd, text, length))
            return false;
    }
    return FlushFileBlock(record, fd);
}

} // namespace

bool WriteLines(TextRecord* record, const char* name, bool compress)
{
    if (!FlushEditLine(record))
        return false;
    int32_t size = FileBufferRequest;
    char* buffer = GetFileBuffer(record, &size);
    if (!buffer)
        return false;
    LockTextWindow(record);
    record->FileBuffer = buffer;
    record->FileCursor = buffer;
    record->FileLimit = size;
    record->FilePosition = 0;

    bool written = false;
    ReplacementFile file;
    if (!OpenReplacement(name, &file)) {
        DosErrorRequester(record, MessageId::SavingText);
    } else if (!PutAllLines(record, file.fd, compress)) {
        AbandonReplacement(&file);
        DosErrorRequester(record, MessageId::WritingFile);
    } else if (!CommitReplacement(&file)) {
        DosErrorRequester(record, MessageId::WritingFile);
    } else {
        written = true;
    }

    record->FileBuffer = nullptr;
    record->FileCursor = nullptr;
    record->FileLimit = 0;
    record->FilePosition = 0;
    FreeVec(buffer);
    UnlockTextWindow(record);
    return written;
}
