#pragma once
// The commands that the search window sends to the active text. The user
// is looking at the window, so a search that finds nothing only beeps.
#include <cstdint>

struct TextRecord;

// Carries out `code`, one of CMD_FIND_PREV, CMD_FIND_NEXT (`strings` the
// find text), CMD_REPLACE_PREV, CMD_REPLACE_NEXT (`strings` the find text,
// its terminator, the replacement) and CMD_RESTORE_LINE (`strings` null).
// The strings stay the caller's.
void RunWindowCommand(TextRecord* record, int code, const char* strings);
