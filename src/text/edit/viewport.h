#pragma once
// The viewport: VisibleRows x VisibleColumns cells from TopLine and
// LeftColumn, and how it follows the cursor or is moved by the user.
//
// When the cursor must be brought into view it is put in the middle of the
// window, except while the left button is held (bit 0x4000 of
// LastQualifier, as when a block is dragged past an edge): then it is kept
// near the edge it left, so that the text moves slowly. No movement fails;
// movement beyond an end stops there silently. Nothing here scrolls or
// follows while Batch is set.
#include <cstdint>

struct TextRecord;

// Brings the cursor into view. With `needWindow` an iconified or hidden
// text gets its window back first. The EditLine is padded to the cursor
// and both scrollers are set from the text. True only when the viewport
// moved and the text was repainted; false without a window or in Batch.
bool FollowCursor(TextRecord* record, bool needWindow);

// Puts the cursor's column into the viewport (its right or left column),
// padding the line; the line is not changed. Serves sideways scrolling.
void ClampCursorToView(TextRecord* record);

// Makes `line` the top line, limited so that a text longer than the window
// leaves no empty rows. A cursor that leaves the viewport rides with the
// text. Uses a raster scroll when the move is shorter than the window.
// Gives the number of lines moved (negative upward), 0 in Batch.
int32_t ScrollToLine(TextRecord* record, int32_t line);
// By a window less one line: `direction` +1 down the text, -1 up.
void ScrollPage(TextRecord* record, int32_t direction);
// By one line, one raster scroll and one repainted row; nothing at an end.
void ScrollLineUp(TextRecord* record);
void ScrollLineDown(TextRecord* record);
// TopLine from a vertical scroller value 0 .. 0xFFFF, kept in LastVertPot.
void ScrollToVertPot(TextRecord* record, uint16_t pot);

// By one column; the cursor is kept in view. The leftmost column never
// goes past MaxLineLength - VisibleColumns + 1.
void ScrollColumnLeft(TextRecord* record);
void ScrollColumnRight(TextRecord* record);
// By a window width less one column; `pot` is the horizontal scroller's
// value, kept in LastHorizPot.
void ScrollPageSideways(TextRecord* record, int32_t direction, uint16_t pot);
// LeftColumn from a horizontal scroller value, kept in LastHorizPot.
void ScrollToHorizPot(TextRecord* record, uint16_t pot);

// After the window's size changed: new VisibleColumns and VisibleRows,
// the viewport follows the cursor, and everything is redrawn.
void ResizeViewport(TextRecord* record);
// After lines went away: when the viewport reaches past the last line,
// TopLine moves up so that the window stays full (or to 0), the area is
// redrawn, and the result is true. Else false and nothing happens.
bool FitTopToText(TextRecord* record);
