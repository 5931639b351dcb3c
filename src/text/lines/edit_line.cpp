#include "text/lines/edit_line.h"

#include "frame/protocol/last_edit.h"
#include "text/record/line_access.h"
#include "text/record/line_strings.h"
#include "text/record/line_table.h"
#include "text/record/text_record.h"

#include <cassert>
#include <cstring>

EditLineStore StoreEditLine(TextRecord* record)
{
    record->EditLength = TrimLineEnd(record->EditLine);
    const int32_t line = record->CursorLine;
    const char* stored = StoredLineText(record, line);
    if (std::strcmp(record->EditLine, stored) == 0)
        return EditLineStore::Unchanged;
    // A line that keeps its length is overwritten where it lies: no pool
    // string, no run of its own, so replacing a word by one of the same
    // length all over a large text costs no memory.
    if (std::strlen(stored) == static_cast<size_t>(record->EditLength) && record->EditLength > 0)
        std::memcpy(LineString(record, line), record->EditLine, static_cast<size_t>(record->EditLength));
    else if (!StoreLine(record, record->EditLine, line))
        return EditLineStore::Failed;
    record->Modified = 1;
    return EditLineStore::Stored;
}

bool FlushEditLine(TextRecord* record)
{
    EditLineStore store = StoreEditLine(record);
    if (store == EditLineStore::Stored)
        NoteLastEdit(record);
    return store != EditLineStore::Failed;
}

void LoadEditLine(TextRecord* record, LineIndex line, ColumnIndex column)
{
    record->CursorLine = ClampLine(record, line.value);
    const char* text = StoredLineText(record, record->CursorLine);
    const size_t length = std::strlen(text);
    assert(length <= static_cast<size_t>(record->MaxLineLength));
    std::memcpy(record->EditLine, text, length + 1);
    record->EditLength = static_cast<int32_t>(length);
    record->CursorColumn = ClampColumn(record, column.value);
    PadEditLine(record);
}

void PadEditLine(TextRecord* record)
{
    assert(record->CursorColumn <= record->MaxLineLength);
    while (record->EditLength < record->CursorColumn) {
        record->EditLine[record->EditLength++] = ' ';
    }
    std::memset(record->EditLine + record->EditLength, 0,
        static_cast<size_t>(record->MaxLineLength - record->EditLength) + 1);
}
