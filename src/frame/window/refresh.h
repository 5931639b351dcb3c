#pragma once
// Redrawing rows of a text wherever it stands: an iconified or hidden text
// gets its window back first (EnsureWindow), then the rows are drawn
// (DrawRows). Nothing in Batch; the caller repaints once the batch is over.
#include <cstdint>

struct TextRecord;

// Redraws the rows of at most `count` lines from `first`, as DrawRows does.
void RefreshRows(TextRecord* record, int32_t first, int32_t count);
// RefreshRows(TopLine, VisibleRows), taken after the window is back.
void RefreshAll(TextRecord* record);
// RefreshRows(CursorLine, 1).
void RefreshCursorLine(TextRecord* record);
