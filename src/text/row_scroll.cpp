#include "text/row_scroll.h"

#include "text/render.h"
#include "text/render_support.h"
#include "text/text_record.h"

void ScrollRowsFrom(TextRecord* record, int32_t fromRow, int32_t rows)
{
    if (!DrawingPort(record) || fromRow < 0 || fromRow >= record->VisibleRows)
        return;
    const int32_t pitch = RowToY(record, 1) - RowToY(record, 0);
    ScrollRows(record, rows * pitch, fromRow);
}
