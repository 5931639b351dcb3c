#include "text/line_access.h"

#include "text/line_table.h"
#include "text/text_record.h"

#include <cstring>

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

int32_t StoredLineLength(const TextRecord* record, int32_t line)
{
    return static_cast<int32_t>(std::strlen(StoredLineText(record, line)));
}
