#include "frame/window/held_drawing.h"

#include "frame/window/text_window_scrollers.h"
#include "text/record/text_record.h"
#include "text/render/render.h"
#include "text/render/render_support.h"

namespace {

// The scrollers, then every row of the viewport, the text's and those
// below its end: no cell keeps what it showed, so the cursor no longer
// shows either. No rows in Batch or without a window; what waited then
// waits on.
void DrawMissed(TextRecord* record)
{
    if (!record->DrawingMissed)
        return;
    UpdateVertScroller(record);
    UpdateHorizScroller(record);
    if (!DrawingPort(record))
        return;
    DrawRows(record, record->TopLine, record->VisibleRows);
    ClearRows(record, record->LineCount, record->VisibleRows);
    record->CursorShown = 0;
    record->DrawingMissed = 0;
}

} // namespace

void HoldDrawing(TextRecord* record)
{
    ++record->DrawingHeld;
}

void ReleaseDrawing(TextRecord* record)
{
    if (--record->DrawingHeld > 0)
        return;
    DrawMissed(record);
    // A window that was closed meanwhile is drawn whole when it comes back.
    record->DrawingMissed = 0;
}

int16_t SuspendHeldDrawing(TextRecord* record)
{
    const int16_t held = record->DrawingHeld;
    record->DrawingHeld = 0;
    DrawMissed(record);
    return held;
}

void ResumeHeldDrawing(TextRecord* record, int16_t held)
{
    record->DrawingHeld = held;
}
