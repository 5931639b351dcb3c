#include "text/lines/edit_line.h"

#include "frame/protocol/last_edit.h"
#include "text/record/line_access.h"
#include "text/record/line_strings.h"
#include "text/record/line_table.h"
#include "text/record/text_record.h"

#include <cassert>
#include <cstring>

bool FlushEditLine(TextRecord* record)
{
    record->EditLength = TrimLineEnd(record->EditLine);
    const int32_t line = record->CursorLine;
    if (std::strcmp(record->EditLine, StoredLineText(record, line)) == 0) {
        return true;
    }
    if (!StoreLine(record, record->EditLine, line)) {
        return false;
    }
    record->Modified = 1;
    NoteLastEdit(record);
    return true;
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
