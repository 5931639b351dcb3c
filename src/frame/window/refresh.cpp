#include "frame/window/refresh.h"
#include "frame/window/text_window.h"
#include "text/record/text_record.h"
#include "text/render/render.h"

void RefreshRows(TextRecord* record, int32_t first, int32_t count)
{
    if (!(record->TextState & Batch) && EnsureWindow(record))
        DrawRows(record, first, count);
}

// The viewport is read only once the window is back: reopening it may give
// other VisibleRows.
void RefreshAll(TextRecord* record)
{
    if (EnsureWindow(record))
        RefreshRows(record, record->TopLine, record->VisibleRows);
}

void RefreshCursorLine(TextRecord* record)
{
    if (EnsureWindow(record))
        RefreshRows(record, record->CursorLine, 1);
}
