#pragma once
// Measures shared by the cursor and viewport operations.
#include <cstdint>

struct TextRecord;

// Pixels from one text row to the next in the window's font; 0 without a
// window or font (nothing is drawn then either).
int32_t RowPitch(const TextRecord* record);
// Whether CursorLine lies in TopLine .. TopLine + VisibleRows - 1.
bool CursorLineInView(const TextRecord* record);
