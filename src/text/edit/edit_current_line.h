#pragma once
// Changing the EditLine in place: typing, deleting by character, word and
// line part, the tab key, and text with newlines. The window is kept right
// without repainting the row: the row is shifted by a raster scroll and
// only the changed cells are drawn. Nothing is drawn while Batch is set.
#include <cstdint>

struct TextRecord;

// Types `text` (no newlines) at the cursor, in insert or overwrite mode.
// A block with the cursor inside is replaced, any other block unmarked.
// What doesn't fit in MaxLineLength is dropped and "Line too long" shown
// after the part that fits is in; a line that reaches MaxLineLength keeps
// the cursor on its last character. Gives the characters taken, 0 without
// a window.
int32_t InsertText(TextRecord* record, const char* text);

// Inserts `text`, cutting it in place at its newlines: each newline splits
// the line (insert mode) or clears the rest of the line and goes down
// (overwrite mode). Stops at a piece that didn't fit or a failed split.
// Gives the newlines met with `countLines`, else the characters taken
// (a newline counts as one in insert mode).
int32_t InsertTextLines(TextRecord* record, char* text, bool countLines);

// Del: deletes the block when the cursor is in it; else the character
// under the cursor, or at or behind the end of the text joins the next
// line at the cursor.
void DeleteChar(TextRecord* record);
// Backspace: the character left of the cursor; at column 0 the line joins
// the one above. Nothing at the very start of the text.
void DeleteBack(TextRecord* record);
// Alt + Backspace: back over spaces, over a word (letters, digits, the
// apostrophe and the hyphen) or over other signs, never past column 0.
void DeleteWordBack(TextRecord* record);
// Forward over spaces, over a word, or over other signs up to the end.
void DeleteWordForward(TextRecord* record);
// Forward over the spaces under the cursor.
void DeleteSpacesForward(TextRecord* record);
// Shift + Del: everything from the cursor on.
void DeleteToLineEnd(TextRecord* record);
// Shift + Backspace: everything left of the cursor; the cursor goes to 0.
void DeleteToLineStart(TextRecord* record);

// To the next multiple of TabSize (always at least one column on), by
// inserting spaces, or with `moveOnly` by moving (which pads the line).
void TabForward(TextRecord* record, bool moveOnly);
// To the previous multiple of TabSize, never past column 0, by deleting
// back, or with `moveOnly` by moving.
void TabBack(TextRecord* record, bool moveOnly);

// Flips InsertMode in the text's Options.
void ToggleInsertMode(TextRecord* record);

// Longest word copied from a text by WordAt; its buffer holds one more.
constexpr int32_t WordAtLimit = 30;
// Copies the word that begins at `text` into `buffer` (WordAtLimit + 1
// bytes, always terminated) and gives its length. A word of word letters
// (not starting with the hyphen) ends before the first other character or
// after 30, and right behind an apostrophe that is its second or third
// character; anything else runs up to the next word letter.
int32_t WordAt(const char* text, char* buffer);
