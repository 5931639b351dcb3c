#pragma once
// Emptying a text before a file is loaded into it.

struct TextRecord;

// Unmarks the block, then replaces LinePool by a new pool and gives back
// the loaded text, dropping every line at once: LineCount becomes 0 (the
// loader appends from there),
// and TopLine, LeftColumn, CursorLine and CursorColumn become 0. The table
// keeps its capacity; Modified and the EditLine are not touched. The text
// area is the caller's to clear. Whatever the pool did, the text takes
// `name` as in SetTextFileName. False when no new pool could be had, after
// NoMemoryRequester: the old lines stay and a load appends to them.
bool ResetText(TextRecord* record, const char* name);
