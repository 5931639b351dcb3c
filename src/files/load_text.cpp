#include "files/load_text.h"

#include "files/file_buffer.h"
#include "files/file_names.h"
#include "files/read_text_line.h"
#include "frame/protocol/command_message.h"
#include "frame/protocol/last_edit.h"
#include "frame/protocol/send.h"
#include "frame/protocol/text_names.h"
#include "frame/window/refresh.h"
#include "frame/window/status.h"
#include "frame/window/text_window.h"
#include "frame/window/text_window_scrollers.h"
#include "platform/dos/file_io.h"
#include "platform/exec/memory.h"
#include "requesters/file_reports.h"
#include "text/edit/reset_text.h"
#include "text/lines/edit_line.h"
#include "text/record/line_access.h"
#include "text/record/line_strings.h"
#include "text/record/line_table.h"
#include "text/record/text_record.h"
#include "text/render/render.h"

#include <cstddef>
#include <cstdint>

namespace {

// Loaded text for a file of `fileLength` bytes: the file's own bytes and
// room for tabs that open into spaces. Pages that no line reaches are
// never touched, so the guess costs address space, not memory.
size_t LoadedTextGuess(long long fileLength)
{
    const auto length = static_cast<size_t>(fileLength);
    return length + length / 8 + 4096;
}

// Runs for the lines of a file of `fileLength` bytes, when they are 16
// bytes long on average or longer, as in most texts; more lines grow the
// table as they come. Pages of the table that no run reaches are never
// touched.
int64_t LineRunsGuess(long long fileLength)
{
    return fileLength / 16 / LoadedRunLength + 1;
}

// Appends every line of the file; false when a line can't be stored or a
// read fails.
bool AppendFileLines(TextRecord* record, int fd)
{
    const long long fileLength = FileLength(fd);
    if (fileLength > 0
        && (!ReserveLoadedText(record, LoadedTextGuess(fileLength))
            || !ReserveLineRuns(record, LineRunsGuess(fileLength))))
        return false;
    for (;;) {
        // The lines before the next tab that need no more than a copy go
        // straight from the buffer; ReadTextLine builds the one after them.
        if (record->FilePosition < record->FileLimit) {
            const char* next = record->FileBuffer + record->FilePosition;
            const long taken = AppendNewlineLines(record, next, static_cast<size_t>(record->FileCursor - next));
            if (taken < 0)
                return false;
            record->FilePosition += static_cast<int32_t>(taken);
        }
        const int32_t length = ReadTextLine(record, fd);
        if (length < 0)
            return length == EndOfText;
        if (!StoreLine(record, record->EditLine, record->LineCount))
            return false;
    }
}

// The text's bookmarks go with its old lines. A record that no main
// process serves (a tool working on files) has none.
void ForgetTextBookmarks(TextRecord* record)
{
    if (record->MainPort)
        SendToMainWait(record, CMD_DROP_BOOKMARKS, 0);
}

// The lines appended from `first` on move in front of the cursor's line;
// the cursor keeps its index and so stands on the first of them. Without
// the room to move them they stay at the end, after "Not enough memory".
void MoveLoadedLinesBeforeCursor(TextRecord* record, int32_t first)
{
    if (EnsureLineRoom(record, InsertLineRoom))
        RotateLines(record, record->CursorLine, first, record->LineCount);
    record->Modified = 1;
    record->TextState &= static_cast<uint16_t>(~BlockMarked);
}

// The last steps of a load, once the lines are in: a load in place of the
// text names it after its file; the cursor's line is taken out, the place
// noted as the last edit, and the window shows the text from the cursor.
void FinishLoad(TextRecord* record, const char* name, bool insert, bool whole)
{
    if (!insert) {
        SetFileIdentity(record, name);
        record->PartOfFile = whole ? 0 : 1;
    }
    LoadEditLine(record, LineIndex(record->CursorLine), ColumnIndex(record->CursorColumn));
    NoteLastEdit(record);
    UpdateVisibleSize(record);
    RefreshAll(record);
    DrawCursor(record, true);
    UpdateVertScroller(record);
    UpdateHorizScroller(record);
}

} // namespace

bool ReadFileAhead(TextRecord* record, const char* name)
{
    const int fd = OpenForReading(name);
    if (fd < 0)
        return false;
    char* buffer = NewFileBuffer(FileBufferRequest);
    if (!buffer) {
        CloseFile(fd);
        return false;
    }
    record->FileBuffer = buffer;
    record->FileBufferSize = FileBufferRequest;
    record->FileLimit = 0;
    record->FilePosition = FileBufferRequest;
    EmptyLineTable(record);
    const bool whole = AppendFileLines(record, fd);
    CloseFile(fd);
    record->FileBuffer = nullptr;
    record->FileCursor = nullptr;
    record->FileBufferSize = 0;
    FreeVec(buffer);
    // What a load would report (a read error, no memory, an empty file) is
    // left to the load in the window: the text is one empty line again.
    if (!whole || record->LineCount == 0) {
        EmptyLineTable(record);
        InsertEmptyLine(record, 0);
        return false;
    }
    SetTextFileName(record, name);
    return true;
}

void ShowFileReadAhead(TextRecord* record, const char* name)
{
    FinishLoad(record, name, false, true);
}

bool LoadText(TextRecord* record, const char* name, bool insert)
{
    // An insert keeps the typed line, so it must reach the table first.
    if (!FlushEditLine(record) && insert)
        return false;
    ShowBusyPointer(record);
    int32_t size = FileBufferRequest;
    char* buffer = GetFileBuffer(record, &size);
    if (!buffer)
        return false;
    const int fd = OpenForReading(name);
    if (fd < 0) {
        DosErrorRequester(record, MessageId::LoadingFile);
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
    SetStatusMessage(record, MessageId::LoadingInProgress);
    const int32_t oldCount = record->LineCount;
    const bool whole = AppendFileLines(record, fd);
    if (record->LineCount == 0) {
        InsertEmptyLine(record, 0);
        ErrorRequester(record, MessageId::EmptyFile);
    }
    UpdateVisibleSize(record);
    CloseFile(fd);

    const bool wasEmpty = oldCount == 0 || (oldCount == 1 && StoredLineText(record, 0)[0] == '\0');
    if (wasEmpty) {
        record->Modified = 0;
        record->CursorLine = 0;
        // The old empty line gives way to the file's lines, if there are any.
        if (oldCount == 1 && record->LineCount > 1)
            DropLines(record, 0, 1);
        ForgetTextBookmarks(record);
    } else if (insert && record->LineCount > oldCount) {
        MoveLoadedLinesBeforeCursor(record, oldCount);
    }
    FinishLoad(record, name, insert, whole);

    record->FileBuffer = nullptr;
    record->FileCursor = nullptr;
    record->FileBufferSize = 0;
    FreeVec(buffer);
    ClearBusyPointer(record);
    return whole;
}

bool MayLoadOver(TextRecord* record)
{
    // What was typed on the cursor's line counts as a change before the
    // line goes back to the table; a line that can't go back is a change.
    const bool flushed = FlushEditLine(record);
    return (flushed && !record->Modified) || IsOneBlankLine(record)
        || ConfirmRequester(record, MessageId::LoseModifiedText) == 1;
}

bool LoadTextChecked(TextRecord* record, const char* name, bool insert)
{
    if (!insert && !MayLoadOver(record))
        return false;
    if (LoadText(record, name, insert))
        return true;
    if (insert || !IsOneBlankLine(record))
        return false;
    // A file that isn't there gives an empty text of that name, which saving
    // creates. One that is there but couldn't be read gives it too, marked
    // as holding less than its file. Anything that isn't a file (a
    // directory, a device) leaves the text's name alone.
    const FileKind kind = KindOfFile(name);
    if (kind != FileKind::Other) {
        SetFileIdentity(record, name);
        record->PartOfFile = kind == FileKind::Regular ? 1 : 0;
    }
    return false;
}
