#pragma once
// Scrolling part of the text area by whole rows, for lines going in or out.
#include <cstdint>

struct TextRecord;

// The rows from viewport row `fromRow` to the bottom move by `rows`:
// positive up (a line went away), negative down (a line came in); the rows
// uncovered come in blank. Nothing when the text can't be drawn now or
// `fromRow` is outside the viewport.
void ScrollRowsFrom(TextRecord* record, int32_t fromRow, int32_t rows);
