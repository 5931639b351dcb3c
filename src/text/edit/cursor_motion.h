#pragma once
// Moving the cursor by keys: lines, columns, words and line ends. Every
// move that changes the line flushes the old one (a failed flush shows its
// message and the cursor moves on) and loads the new one; the viewport
// then follows (viewport.h). Nothing happens at an end of the text.
//
// Words for moving are runs of letters and digits (CharClass bits 0x01,
// 0x02, 0x04); the hyphen and the apostrophe separate words here.

struct TextRecord;

// One line up or down, same column. A step past the window's edge scrolls
// the text by one line, not half a window.
void CursorUp(TextRecord* record);
void CursorDown(TextRecord* record);
// CursorDown for a caller that has just flushed the EditLine: the line
// stands in the table as it is, so it isn't compared with it again.
void CursorDownFlushed(TextRecord* record);
// One column. Right stops at MaxLineLength - 1; on the line's end the
// EditLine grows by a space (dropped again at the next flush).
void CursorLeft(TextRecord* record);
void CursorRight(TextRecord* record);
// To the start of the word on the left; from inside the indentation to the
// end of the line above.
void CursorWordLeft(TextRecord* record);
// To the start of the next word; from the last word of a line to the first
// non-space of the next line (of the same line on the last line).
void CursorWordRight(TextRecord* record);
// To column 0, or to the first non-space; the viewport follows.
void CursorLineStart(TextRecord* record);
void CursorFirstNonBlank(TextRecord* record);
// Behind the last non-space of the line (trailing spaces are dropped), at
// most MaxLineLength - 1.
void CursorLineEnd(TextRecord* record);
// To the end of the line above; to column 0 of the line below.
void CursorPrevLineEnd(TextRecord* record);
void CursorNextLineStart(TextRecord* record);
