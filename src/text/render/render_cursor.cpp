#include "platform/display/intuition.h"
#include "text/record/block_span.h"
#include "text/record/line_strings.h"
#include "text/record/text_record.h"
#include "text/render/render.h"
#include "text/render/render_support.h"

// The cursor's own colours: insert mode on white, overwrite on blue; on the
// block red and yellow, so the cursor stays visible on black cells.
static void SetCursorPens(const TextRecord* record, RastPort* port)
{
    bool insert = (record->Options & InsertMode) != 0;
    if (TestInBlock(record, record->CursorLine, record->CursorColumn) > 0) {
        SetAPen(port, static_cast<uint8_t>(insert ? record->WhitePen : record->TextPen));
        SetBPen(port, static_cast<uint8_t>(insert ? record->RedPen : record->YellowPen));
    } else {
        SetAPen(port, static_cast<uint8_t>(record->TextPen));
        SetBPen(port, static_cast<uint8_t>(insert ? record->WhitePen : record->BluePen));
    }
}

void DrawCursor(TextRecord* record, bool show)
{
    if ((record->CursorShown != 0) == show)
        return;
    RastPort* port = DrawingPort(record);
    int32_t row = record->CursorLine - record->TopLine;
    int32_t column = record->CursorColumn - record->LeftColumn;
    if (!port || row < 0 || row >= record->VisibleRows || column < 0 || column >= record->VisibleColumns)
        return;
    char cell[2] = {record->CursorColumn < record->EditLength ? record->EditLine[record->CursorColumn] : ' ', '\0'};
    Move(port, ColumnToX(record, column), RowBaseline(record, row));
    if (show)
        SetCursorPens(record, port);
    else
        PaintRun(record, cell, LineIndex{record->CursorLine}, ColumnIndex{record->CursorColumn},
            VisibleLength(record->EditLine));
    Text(port, cell, 1);
    SetPlainPens(record, port);
    record->CursorShown = show ? 1 : 0;
}
