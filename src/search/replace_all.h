#pragma once
// Replacing every match ahead of the cursor in one direction.
//
// The outcome is exactly that of repeating Search with a replacement until
// it fails: the same matches replaced (each search goes on at the column
// behind the last replacement's start, so a replacement holding the find
// text past its first character is found again and the line grows until
// it is too long), the same count, the same stop on a line too long with
// "Replacement error: line too long", the cursor on the last match, the
// viewport where a cursor followed match by match would have left it, the
// block untouched, Modified and the last edit as those searches would set
// them, and the final beep when nothing more is found.
//
// It pays for none of the per-replacement work that gives nothing to the
// end state. The text runs in Batch, so nothing is drawn until the end;
// the status message and the title are set once, not per search; the
// viewport is moved by arithmetic alone (PlaceViewportAtCursor), without
// the scrollers; the cursor's line is stored when the cursor leaves it,
// not after every replacement, and a line that keeps its length is
// overwritten in place; and the last edit, which costs a request to the
// main process, is noted once, where the last replacement that changed the
// text stood. At the end the window is redrawn once and the title updated.
#include <cstdint>

struct TextRecord;

// Replaces `find` by `replacement` from the cursor, `direction` +1 forward
// or -1 backward, until no match is left or a line would grow too long
// (then after its message). Gives the number of replacements. An empty
// `find` opens the search window (OpenSearchWindow) and gives 0.
int32_t ReplaceAll(TextRecord* record, int direction, const char* find, const char* replacement);
