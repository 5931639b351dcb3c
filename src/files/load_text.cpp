#include "files/load_text.h"

#include "files/file_buffer.h"
#include "files/file_io.h"
#include "files/file_names.h"
#include "files/file_reports.h"
#include "files/read_text_line.h"
#include "frame/command_message.h"
#include "frame/send.h"
#include "frame/status.h"
#include "frame/text_window.h"
#include "frame/text_window_scrollers.h"
#include "platform/exec/memory.h"
#include "text/edit_line.h"
#include "text/last_edit.h"
#include "text/line_strings.h"
#include "text/line_table.h"
#include "text/render.h"
#include "text/reset_text.h"
#include "text/text_record.h"

#include <algorithm>
#include <cstdint>

namespace {

bool IsOneBlankLine(const TextRecord* record)
{
    return record->LineCount == 1 && IsBlankText(record->EditLine);
}

// Bytes of a file read before its line count is predicted from them.
constexpr long long PredictionSample = 65536;

// Slots to add when the table is full. Once a sample of a regular file has
// been read, the lines read so far and the bytes still ahead predict the
// lines to come, and the table grows once to hold them and an eighth more:
// each growth copies the table and keeps both copies alive for a moment,
// which for a large file costs more memory than the slots left unused,
// whose pages are never touched. Before that, and for a file of unknown
// length, it grows by half its size, at least StoreLineRoom slots.
int32_t GrowthRoom(const TextRecord* record, int fd, long long fileLength, int32_t firstLine)
{
    const int32_t halfRoom = std::max(StoreLineRoom, record->LineCount / 2);
    const long long offset = FileOffset(fd);
    const long long taken = offset - (record->FileLimit - record->FilePosition);
    if (fileLength < 0 || offset < 0 || taken < PredictionSample || taken >= fileLength)
        return halfRoom;
    const double expected = static_cast<double>(record->LineCount - firstLine)
                            * static_cast<double>(fileLength - taken) / static_cast<double>(taken);
    const double room = expected + expected / 8 + StoreLineRoom;
    return static_cast<int32_t>(std::min(room, static_cast<double>(INT32_MAX - record->LineCount)));
}

// Appends every line of the file from `firstLine` on; false when a line
// can't be stored (its slot isn't counted) or a read fails.
bool AppendFileLines(TextRecord* record, int fd, long long fileLength, int32_t firstLine)
{
    int32_t length;
    while ((length = ReadTextLine(record, fd)) >= 0) {
        if (record->LineCount == record->LineCapacity
            && !EnsureLineRoom(record, GrowthRoom(record, fd, fileLength, firstLine)))
            return false;
        if (!StoreLine(record, record->EditLine, record->LineCount))
            return false;
        ++record->LineCount;
    }
    return length == EndOfText;
}

// The text's bookmarks go with its old lines. A record that no main
// process serves (a tool working on files) has none.
void ForgetTextBookmarks(TextRecord* record)
{
    if (record->MainPort)
        SendToMainWait(record, CMD_DROP_BOOKMARKS, 0);
}

// The lines appended from `first` on move in front of the cursor's line;
// the cursor keeps its index and so stands on the first of them.
void MoveLoadedLinesBeforeCursor(TextRecord* record, int32_t first)
{
    char** table = record->LineTable;
    std::rotate(table + record->CursorLine, table + first, table + record->LineCount);
    record->Modified = 1;
    record->TextState &= static_cast<uint16_t>(~BlockMarked);
}

} // namespace

bool LoadText(TextRecord* record, const char* name, bool insert)
{
    FlushEditLine(record);
    ShowBusyPointer(record);
    int32_t size = FileBufferRequest;
    char* buffer = GetFileBuffer(record, &size);
    if (!buffer)
        return false;
    const int fd = OpenForReading(name);
    if (fd < 0) {
        DosErrorRequester(record, MessageId{61});
        FreeVec(buffer);
        ClearBusyPointer(record);
        return false;
    }
    record->FileBuffer = buffer;
    record->FileBufferSize = size;
    record->FileLimit = 0;
    record->FilePosition = size;

    if (insert)
        record->Modified = 1;
    else
        ResetText(record, name);
    SetStatusMessage(record, MessageId{63});
    const int32_t oldCount = record->LineCount;
    const bool whole = AppendFileLines(record, fd, FileLength(fd), oldCount);
    if (record->LineCount == 0) {
        record->LineTable[0] = nullptr;
        record->LineCount = 1;
        ErrorRequester(record, MessageId{65});
    }
    UpdateVisibleSize(record);
    CloseFile(fd);

    const bool wasEmpty = oldCount == 0 || (oldCount == 1 && record->LineTable[0] == nullptr);
    if (wasEmpty) {
        record->Modified = 0;
        record->CursorLine = 0;
        // The old empty line gives way to the file's lines, if there are any.
        if (oldCount == 1 && record->LineCount > 1) {
            std::copy(record->LineTable + 1, record->LineTable + record->LineCount, record->LineTable);
            --record->LineCount;
        }
        ForgetTextBookmarks(record);
    } else if (insert && record->LineCount > oldCount) {
        MoveLoadedLinesBeforeCursor(record, oldCount);
    }
    if (!insert)
        SetFileIdentity(record, name);
    LoadEditLine(record, LineIndex(record->CursorLine), ColumnIndex(record->CursorColumn));
    NoteLastEdit(record);
    UpdateVisibleSize(record);
    RefreshAll(record);
    DrawCursor(record, true);
    UpdateVertScroller(record);
    UpdateHorizScroller(record);

    record->FileBuffer = nullptr;
    record->FileCursor = nullptr;
    record->FileBufferSize = 0;
    FreeVec(buffer);
    ClearBusyPointer(record);
    return whole;
}

bool LoadTextChecked(TextRecord* record, const char* name, bool insert)
{
    if (!insert && record->Modified && !IsOneBlankLine(record)
        && ConfirmRequester(record, MessageId{68}) != 1)
        return false;
    if (LoadText(record, name, insert))
        return true;
    if (!insert && IsOneBlankLine(record))
        SetFileIdentity(record, name);
    return false;
}
