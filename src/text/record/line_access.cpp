#include "text/record/line_access.h"
#include "text/record/line_strings.h"

#include "text/record/line_table.h"
#include "text/record/text_record.h"

int32_t ClampLine(const TextRecord* record, int32_t line)
{
    if (line >= record->LineCount) {
        line = record->LineCount - 1;
    }
    return line < 0 ? 0 : line;
}

int32_t ClampColumn(const TextRecord* record, int32_t column)
{
    if (column > record->MaxLineLength - 1) {
        column = record->MaxLineLength - 1;
    }
    return column < 0 ? 0 : column;
}

const char* GetLineText(const TextRecord* record, int32_t line)
{
    if (line == record->CursorLine) {
        return record->EditLine;
    }
    return StoredLineText(record, line);
}

const char* StoredLineText(const TextRecord* record, int32_t line)
{
    return LineString(record, line);
}

bool IsOneBlankLine(const TextRecord* record)
{
    return record->LineCount == 1 && IsBlankText(GetLineText(record, 0));
}
