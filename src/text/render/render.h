#pragma once
// Drawing a text into its window's text area.
//
// The text area is a grid of fixed-width cells: tf_XSize pixels wide and
// tf_YSize + 1 high in the rastport's font, from (BorderLeft, BorderTop).
// Rows and columns of the grid count from the viewport's corner: line l of
// the text is row l - TopLine, column c is cell c - LeftColumn. Nothing is
// buffered; every row is built again from the record when it is drawn.
//
// Every drawing operation does nothing while the text has Batch set or is
// not WindowOpen; the caller repaints once the batch is over. While a
// macro command holds the drawing (held_drawing.h) nothing is drawn either,
// and the whole viewport is drawn when the hold ends. After each
// operation the rastport's background pen is BackgroundPen again, because
// scrolling fills what it exposes with that pen.
//
// Cell colours (foreground on background):
//   plain text                          TextPen on BackgroundPen
//   text in the block                   WhitePen on TextPen
//   cursor, insert mode / overwrite     TextPen on WhitePen / BluePen
//   cursor in the block, insert / over  WhitePen on RedPen / TextPen on YellowPen
#include "text/record/text_position.h"

#include <cstdint>

struct TextRecord;

// Pixel positions, from the window's outer top-left corner, of a viewport
// column, the top of a viewport row, and the baseline of text in that row.
// The record must have a window.
int32_t ColumnToX(const TextRecord* record, int32_t column);
int32_t RowToY(const TextRecord* record, int32_t row);
int32_t RowBaseline(const TextRecord* record, int32_t row);

// Draws the rows of at most `count` lines from `first`. Only lines in
// the viewport and below LineCount are drawn; the first line outside ends
// the drawing. Each row is padded with spaces to the window's edge, so no
// clearing is needed. Nothing without a window to draw in: getting it back
// is the caller's part (refresh.h in the window layer does both).
void DrawRows(TextRecord* record, int32_t first, int32_t count);

// Sets the rastport's pens for `text`, the rest of a row's text standing at
// `line`, `column`, and gives how many of its characters keep those pens
// (at least 1 for non-empty text). `visible` is the line's length without
// trailing spaces: a block that reaches it holds the line's newline, and
// then its colour runs through the padding to the window's edge.
int32_t PaintRun(TextRecord* record, const char* text, LineIndex line, ColumnIndex column, int32_t visible);

// Draws the text columns `from` .. `to` (inclusive) of a line in block
// colour (`highlight`) or plain, padded with spaces, with one Text call.
// Clipped to the viewport; nothing when the line or the stretch is outside.
void PaintCells(TextRecord* record, LineIndex line, ColumnIndex from, ColumnIndex to, bool highlight);

// Fills the whole text area with the background; the cursor is then no
// longer shown (CursorShown = 0).
void ClearTextArea(TextRecord* record);
// Fills the rows of `count` lines from `first`, clipped to the viewport.
void ClearRows(TextRecord* record, int32_t first, int32_t count);

// Scrolls the text area from viewport row `fromRow` down by `delta`
// pixels: positive moves the contents up. Callers pass multiples of the
// row height. What comes in is background, to be drawn by the caller.
void ScrollRows(TextRecord* record, int32_t delta, int32_t fromRow = 0);
// The cursor's row from the cursor's cell to the area's right edge moves
// one cell left; the rightmost cell comes in blank.
void ScrollRowLeft(TextRecord* record);
// The same stretch moves `n` cells right; the cells it leaves come in blank.
void ScrollRowRight(TextRecord* record, int32_t n);

// Shows or hides the cursor cell. Nothing when CursorShown already equals
// `show` or the cursor is outside the viewport. Hiding repaints the cell in
// the colours PaintRun gives it, so a cursor on the block leaves block
// colours behind.
void DrawCursor(TextRecord* record, bool show);
