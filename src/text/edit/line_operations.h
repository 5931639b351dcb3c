#pragma once
// Lines going in, out, apart and together. Each works at the cursor's line
// and leaves the window right: one raster scroll and one repainted row, or
// nothing at all while Batch is set (the caller repaints). Every operation
// that changes the table unmarks the block first, except adding a line at
// the very end. Bookmarks of the text follow inserted and deleted lines.
#include <cstdint>

struct TextRecord;

// An empty line goes in above the cursor's line; the cursor keeps its
// index and column, so it stands on the new line. False after "Not enough
// memory", with the text and the cursor as they were.
bool InsertLineBefore(TextRecord* record);

// Return: the line is never broken. The cursor goes to a new empty line
// below, at the indentation of its old line. On the last line the empty
// line is appended without setting Modified. False after "Not enough
// memory", the text unchanged.
bool InsertLineAfter(TextRecord* record);

// Breaks the line at the cursor; the tail goes to a new line below and the
// cursor to its first character. With `indent` the new line starts with
// the old line's indentation, cut so that the line never exceeds
// MaxLineLength. When the new line can't be had the tail goes back where
// it was, so no text is lost, and the result is false.
bool SplitLine(TextRecord* record, bool indent);

// Deletes the cursor's line, keeping it in the RecallLine unless blank.
// On a text of one line only, the line keeps its indentation alone and
// the text counts as unchanged.
void DeleteLine(TextRecord* record);
// Ctrl + Del: the line goes to the RecallLine (unless blank) and is deleted.
void KillLine(TextRecord* record);
// Alt + Del: the RecallLine goes in above the cursor's line, and stays
// there to be recalled again.
void RecallKilledLine(TextRecord* record);
// Throws away what was typed on the cursor's line since it was last
// flushed: the stored line comes back.
void UndoLine(TextRecord* record);

// Pulls the next line up behind the cursor: trailing spaces from the
// cursor on go, spaces before the cursor stay. The next line becomes the
// RecallLine. True on the last line (nothing to join). False with
// "Line too long" when the two exceed MaxLineLength (both lines stay, only
// the trailing spaces behind the cursor are gone), or when the flush fails.
bool JoinNextLine(TextRecord* record);

// Frees `count` lines from `first` and closes the gap; removing every line
// leaves one empty line. Bookmarks on the removed lines go. The cursor and
// the window are the caller's.
void RemoveLines(TextRecord* record, int32_t first, int32_t count);

// Moves the lines `first` .. `last`, which lie below the cursor's line, to
// stand before it; the cursor keeps its index and so stands on the first
// moved line. After "Not enough memory" the lines stay where they were.
// Bookmarks are not shifted.
void MoveLines(TextRecord* record, int32_t first, int32_t last);

// Sorts the lines `first` .. `last` in place (a Shell sort of the
// pointers), upward for a positive `direction`, downward for a negative
// one, byte by byte, without case under IgnoreCase. Equal lines never
// swap. Gives the number of swaps; 0 for direction 0, and 0 after "Not
// enough memory" with the lines as they were.
int32_t SortLines(TextRecord* record, int32_t first, int32_t last, int32_t direction);

// "Initialize": after asking (unless the text is one blank line) and
// after the question about unsaved changes, the text becomes one empty
// unmodified line without bookmarks.
void ClearText(TextRecord* record);
