#pragma once
// Writing lines to a file.
#include <cstdint>

struct TextRecord;

// Writes every line of the text, each followed by a newline, to the file
// `name`, replacing it whole (replacement_file.h). With
// `compress` every non-empty line goes through CompressTabs, straight into
// the file block (or the WorkLine when the block is smaller than a line),
// so a line must be at most MaxLineLength characters. The
// EditLine is flushed first. The window is in the busy state while the
// file is written.
// True when every line is out and the file is in place. False after the
// report of a failed flush or a missing buffer (nothing touched), "Saving
// text" when the file can't be created or put in place, "Writing file"
// when a write fails: the old file then stays whole.
bool WriteLines(TextRecord* record, const char* name, bool compress);
