#pragma once
// Finding a string in a text from the cursor, forward or backward, and
// replacing what was found. There are no patterns and no wrap-around: a
// search stops at the text's end or start, and a match lies inside one
// line. The search reads the stored lines directly; only the line of the
// match is loaded into the EditLine. A search holds no state: repeating it
// goes on from the cursor, and since a found match begins at the cursor,
// a match at the cursor itself is never found again in either direction.
//
// With IgnoreCase in the options a character matches its other case as
// ToUpper folds ISO 8859-1, accented letters included.
#include <cstddef>
#include <cstdint>

struct TextRecord;

// Finds `find` from the cursor, `direction` +1 forward or -1 backward, and
// moves the cursor to the match's first character; with `replace` the
// match is then replaced by `replacement` (ReplaceAtCursor). An empty
// `find` opens the search window instead (OpenSearchWindow) and gives
// false. Nothing found: a beep, the cursor where it was, false. The block
// is not touched; the caller marks what it found. Flushes the EditLine
// first, so the search sees the text as stored.
bool Search(TextRecord* record, int direction, bool replace, const char* find, const char* replacement);

// Replaces `length` characters at the cursor by `replacement` in the
// EditLine; the cursor stays on the replacement's first character and the
// flush makes the change final. When the line would grow beyond
// MaxLineLength: "Replacement error: line too long", nothing changes,
// false.
bool ReplaceAtCursor(TextRecord* record, const char* replacement, int32_t length);

// The first or last occurrence of `c` in the `length` characters of
// `text`, with the case ignored under IgnoreCase in `options`; null when
// there is none.
const char* FindFirstChar(const char* text, size_t length, char c, uint32_t options);
const char* FindLastChar(const char* text, size_t length, char c, uint32_t options);

// 0 when the `length` characters at `place` equal those of `find` (case
// ignored under IgnoreCase in `options`), else non-zero. `place` must hold
// `length` characters.
int MatchAt(const char* find, const char* place, size_t length, uint32_t options);

// A match: the line and the column of its first character.
struct SearchMatch {
    int32_t Line;
    int32_t Column;
};

// The scan of Search alone: the nearest match of the `length` characters
// of `find` from the cursor in `direction`, into `match`; false when there
// is none. The cursor's line is read from the EditLine, as a flush would
// store it (trailing spaces ignored), so that a caller may go on replacing
// in a line it hasn't flushed yet. Changes nothing.
bool FindMatch(const TextRecord* record, int direction, const char* find, size_t length, SearchMatch* match);

// The EditLine part of ReplaceAtCursor: false, and nothing changes, when
// the line would grow beyond MaxLineLength; nothing is drawn or reported.
bool ReplaceInEditLine(TextRecord* record, const char* replacement, int32_t length);
