#include "text/edit/viewport.h"

#include "frame/window/refresh.h"
#include "frame/window/text_window.h"
#include "frame/window/text_window_scrollers.h"
#include "platform/display/intuition.h"
#include "text/edit/viewport_support.h"
#include "text/lines/edit_line.h"
#include "text/record/line_access.h"
#include "text/record/text_record.h"
#include "text/render/render.h"

#include <algorithm>

namespace {

bool LeftButtonHeld(const TextRecord* record)
{
    return (record->LastQualifier & IEQUALIFIER_LEFTBUTTON) != 0;
}

// How far from the viewport's left or top edge the cursor lands when the
// viewport must jump: the middle, or near the edge the cursor left while
// the left button drags it.
int32_t ColumnOffset(const TextRecord* record, bool leftOfView)
{
    int32_t half = record->VisibleColumns / 2;
    if (!LeftButtonHeld(record))
        return half;
    return leftOfView ? record->VisibleColumns / 4 : half + half / 2;
}

int32_t RowOffset(const TextRecord* record, bool aboveView)
{
    int32_t half = record->VisibleRows / 2;
    if (!LeftButtonHeld(record))
        return half;
    return aboveView ? record->VisibleRows / 8 : half + (half * 8) / 10;
}

// The highest TopLine that still fills the window.
int32_t LastTopLine(const TextRecord* record)
{
    return std::max(record->LineCount - record->VisibleRows, 0);
}

int32_t LastLeftColumn(const TextRecord* record)
{
    return std::max(record->MaxLineLength - record->VisibleColumns, 0);
}

// The limit of sideways scrolling by columns and pages: one column more
// than the scroller reaches, so that the last character can stand in the
// window's first column.
int32_t SidewaysLimit(const TextRecord* record)
{
    return std::max(record->MaxLineLength - record->VisibleColumns + 1, 0);
}

// After TopLine moved by `delta` lines: a cursor that has left the view is
// carried along with the text.
void CarryCursor(TextRecord* record, int32_t delta)
{
    // A line that can't be stored stays in the EditLine, and the cursor
    // with it, rather than be dropped for the line the view reached.
    if (CursorLineInView(record) || !FlushEditLine(record))
        return;
    LoadEditLine(record, LineIndex{record->CursorLine + delta}, ColumnIndex{record->CursorColumn});
}

void ScrollOneLine(TextRecord* record, int32_t delta)
{
    ScrollRows(record, delta * RowPitch(record));
    record->TopLine += delta;
    CarryCursor(record, delta);
    RefreshRows(record, delta < 0 ? record->TopLine : record->TopLine + record->VisibleRows - 1, 1);
    FollowCursor(record, true);
    UpdateVertScroller(record);
}

void ScrollColumns(TextRecord* record, int32_t delta)
{
    record->LeftColumn += delta;
    ClampCursorToView(record);
    RefreshAll(record);
    UpdateHorizScroller(record);
}

} // namespace

int32_t RowPitch(const TextRecord* record)
{
    const Window* window = record->Window;
    if (!window || !window->RPort || !window->RPort->Font)
        return 0;
    return window->RPort->Font->tf_YSize + 1;
}

bool CursorLineInView(const TextRecord* record)
{
    return record->CursorLine >= record->TopLine && record->CursorLine < record->TopLine + record->VisibleRows;
}

bool PlaceViewportAtCursor(TextRecord* record)
{
    bool moved = false;
    int32_t column = record->CursorColumn;
    if (column < record->LeftColumn || column >= record->LeftColumn + record->VisibleColumns) {
        int32_t left = column - ColumnOffset(record, column < record->LeftColumn);
        left = std::max(std::min(left, LastLeftColumn(record)), 0);
        moved = left != record->LeftColumn;
        record->LeftColumn = left;
    }
    int32_t line = record->CursorLine;
    if (!CursorLineInView(record)) {
        int32_t top = line - RowOffset(record, line < record->TopLine);
        top = std::max(std::min(top, LastTopLine(record)), 0);
        moved = moved || top != record->TopLine;
        record->TopLine = top;
    }
    return moved;
}

bool FollowCursor(TextRecord* record, bool needWindow)
{
    if (needWindow && !EnsureWindow(record))
        return false;
    if ((record->TextState & Batch) || !(record->TextState & WindowOpen))
        return false;
    bool moved = PlaceViewportAtCursor(record);
    PadEditLine(record);
    if (moved)
        RefreshAll(record);
    UpdateVertScroller(record);
    UpdateHorizScroller(record);
    return moved;
}

void ClampCursorToView(TextRecord* record)
{
    int32_t right = record->LeftColumn + record->VisibleColumns - 1;
    if (record->CursorColumn > right)
        record->CursorColumn = ClampColumn(record, right);
    else if (record->CursorColumn < record->LeftColumn)
        record->CursorColumn = ClampColumn(record, record->LeftColumn);
    else
        return;
    PadEditLine(record);
}

int32_t ScrollToLine(TextRecord* record, int32_t line)
{
    if (record->TextState & Batch)
        return 0;
    int32_t top = std::max(std::min(line, LastTopLine(record)), 0);
    int32_t delta = top - record->TopLine;
    if (delta == 0)
        return 0;
    record->TopLine = top;
    CarryCursor(record, delta);
    int32_t distance = delta < 0 ? -delta : delta;
    if (distance < record->VisibleRows) {
        ScrollRows(record, delta * RowPitch(record));
        if (delta < 0)
            RefreshRows(record, top, distance);
        else
            RefreshRows(record, top + record->VisibleRows - distance, distance);
    } else {
        RefreshAll(record);
    }
    UpdateVertScroller(record);
    return delta;
}

void ScrollPage(TextRecord* record, int32_t direction)
{
    ScrollToLine(record, record->TopLine + (record->VisibleRows - 1) * direction);
}

void ScrollLineUp(TextRecord* record)
{
    if (record->TopLine > 0)
        ScrollOneLine(record, -1);
}

void ScrollLineDown(TextRecord* record)
{
    if (record->TopLine + record->VisibleRows < record->LineCount)
        ScrollOneLine(record, 1);
}

void ScrollToVertPot(TextRecord* record, uint16_t pot)
{
    record->LastVertPot = pot;
    int64_t range = std::max(record->LineCount - record->VisibleRows, 0);
    ScrollToLine(record, ClampLine(record, static_cast<int32_t>(range * pot / MAXPOT)));
}

void ScrollColumnLeft(TextRecord* record)
{
    if (record->LeftColumn >= 1)
        ScrollColumns(record, -1);
}

void ScrollColumnRight(TextRecord* record)
{
    if (record->LeftColumn < SidewaysLimit(record))
        ScrollColumns(record, 1);
}

void ScrollPageSideways(TextRecord* record, int32_t direction, uint16_t pot)
{
    int32_t limit = SidewaysLimit(record);
    if ((direction > 0 && record->LeftColumn >= limit) || (direction < 0 && record->LeftColumn <= 0))
        return;
    record->LastHorizPot = pot;
    int32_t left = record->LeftColumn + (record->VisibleColumns - 1) * direction;
    record->LeftColumn = std::max(std::min(left, limit), 0);
    if (record->CursorColumn < record->LeftColumn || record->CursorColumn >= record->LeftColumn + record->VisibleColumns) {
        record->CursorColumn = ClampColumn(record, record->LeftColumn);
        ClampCursorToView(record);
    }
    PadEditLine(record);
    RefreshAll(record);
    UpdateHorizScroller(record);
}

void ScrollToHorizPot(TextRecord* record, uint16_t pot)
{
    record->LastHorizPot = pot;
    int64_t range = LastLeftColumn(record);
    record->LeftColumn = static_cast<int32_t>(range * pot / MAXPOT);
    ClampCursorToView(record);
    RefreshAll(record);
}
