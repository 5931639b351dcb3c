#include "text/render/row_scroll.h"

#include "text/record/text_record.h"
#include "text/render/render.h"
#include "text/render/render_support.h"

void ScrollRowsFrom(TextRecord* record, int32_t fromRow, int32_t rows)
{
    if (!DrawingPort(record) || fromRow < 0 || fromRow >= record->VisibleRows)
        return;
    const int32_t pitch = RowToY(record, 1) - RowToY(record, 0);
    ScrollRows(record, rows * pitch, fromRow);
}
