#include "platform/exec/memory.h"
#include "text/edit_line.h"
#include "text/line_operations.h"
#include "text/no_memory.h"
#include "text/render.h"
#include "text/text_record.h"
#include "text/viewport.h"

#include <cstring>

void MoveLines(TextRecord* record, int32_t first, int32_t last)
{
    FlushEditLine(record);
    const int32_t line = record->CursorLine;
    const auto count = static_cast<size_t>(last - first + 1);
    auto** moved = static_cast<char**>(AllocVec(sizeof(char*) * count, MEMF_ANY));
    if (!moved) {
        NoMemoryRequester(record);
        return;
    }
    char** table = record->LineTable;
    std::memcpy(moved, table + first, sizeof(char*) * count);
    record->Modified = 1;
    std::memmove(table + line + count, table + line, sizeof(char*) * static_cast<size_t>(first - line));
    std::memcpy(table + line, moved, sizeof(char*) * count);
    FreeVec(moved);
    LoadEditLine(record, LineIndex(line), ColumnIndex(record->CursorColumn));
    if (!FollowCursor(record, false))
        RefreshAll(record);
}
