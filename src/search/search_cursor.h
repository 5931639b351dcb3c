#pragma once
// Putting the cursor on a match.
#include "text/lines/edit_line.h"

struct TextRecord;
struct SearchMatch;

// The cursor goes to the match's first character. Leaving its line stores
// the EditLine first (StoreEditLine: the caller notes the last edit) and
// loads the match's line; on the same line the EditLine keeps what it
// holds, stored or not, losing only its trailing spaces as a store would.
// Failed, with the cursor where it was, when the old line can't be stored.
// Nothing is drawn.
EditLineStore MoveToMatch(TextRecord* record, const SearchMatch& match);
