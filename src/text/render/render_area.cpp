#include "platform/display/intuition.h"
#include "text/record/text_record.h"
#include "text/render/render.h"
#include "text/render/render_support.h"

#include <algorithm>

void ClearTextArea(TextRecord* record)
{
    RastPort* port = DrawingPort(record);
    if (!port)
        return;
    const Window* window = record->Window;
    SetAPen(port, static_cast<uint8_t>(record->BackgroundPen));
    RectFill(port, window->BorderLeft, window->BorderTop, window->Width - window->BorderRight - 1,
        window->Height - window->BorderBottom - 1);
    SetPlainPens(record, port);
    record->CursorShown = 0;
}

void ClearRows(TextRecord* record, int32_t first, int32_t count)
{
    RastPort* port = DrawingPort(record);
    if (!port)
        return;
    int32_t top = std::max(first, record->TopLine) - record->TopLine;
    int32_t bottom = std::min(first + count, record->TopLine + record->VisibleRows) - record->TopLine;
    if (top >= bottom)
        return;
    const Window* window = record->Window;
    SetAPen(port, static_cast<uint8_t>(record->BackgroundPen));
    RectFill(port, window->BorderLeft, RowToY(record, top), window->Width - window->BorderRight - 1,
        RowToY(record, bottom) - 1);
    SetPlainPens(record, port);
}

void ScrollRows(TextRecord* record, int32_t delta, int32_t fromRow)
{
    RastPort* port = DrawingPort(record);
    if (!port || fromRow >= record->VisibleRows)
        return;
    SetBPen(port, static_cast<uint8_t>(record->BackgroundPen));
    ScrollRaster(port, 0, delta, ColumnToX(record, 0), RowToY(record, std::max(fromRow, 0)),
        ColumnToX(record, record->VisibleColumns) - 1, RowToY(record, record->VisibleRows) - 1);
}

// Scrolls the cursor's row right of the cursor by `dx` pixels; positive
// moves the cells left.
static void ScrollCursorRow(TextRecord* record, int32_t dx)
{
    RastPort* port = DrawingPort(record);
    int32_t row = record->CursorLine - record->TopLine;
    int32_t column = record->CursorColumn - record->LeftColumn;
    if (!port || row < 0 || row >= record->VisibleRows || column < 0 || column >= record->VisibleColumns)
        return;
    SetBPen(port, static_cast<uint8_t>(record->BackgroundPen));
    ScrollRaster(port, dx, 0, ColumnToX(record, column), RowToY(record, row),
        ColumnToX(record, record->VisibleColumns) - 1, RowToY(record, row + 1) - 1);
}

void ScrollRowLeft(TextRecord* record)
{
    if (DrawingPort(record))
        ScrollCursorRow(record, record->Window->RPort->Font->tf_XSize);
}

void ScrollRowRight(TextRecord* record, int32_t n)
{
    if (DrawingPort(record))
        ScrollCursorRow(record, -n * record->Window->RPort->Font->tf_XSize);
}
