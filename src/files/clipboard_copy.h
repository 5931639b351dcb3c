#pragma once
// Copying to the clip unit in use (clipboard_unit.h). A clip is written
// whole as one FTXT form with a single CHRS chunk; unit 0 is also the
// desktop's clipboard when the desktop program runs.
#include <cstddef>

struct TextRecord;

// Replaces the clip of the unit in use with `length` bytes of `text`.
// True when the clip was written; no report either way.
bool WriteClip(const char* text, size_t length);

// The marked block's bytes, a newline for each line end it holds, become
// the clip. The block stays marked. False after the report: "No block is
// marked", "Not enough memory", or "Error writing in clipboard" (the clip
// as it was).
bool CopyBlockToClip(TextRecord* record);
