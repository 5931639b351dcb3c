#pragma once
// Moving the line under the cursor between the LineTable and the EditLine.
#include "text/record/text_position.h"

struct TextRecord;

// Writes the EditLine back to the entry of CursorLine. The EditLine is
// trimmed first (EditLength follows), then compared with the stored text:
// when equal, nothing else happens, no allocation, Modified and the last
// edit untouched. Else the line is stored (StoreLine), Modified
// set and the last edit noted. False after ReportNoMemory: the entry
// keeps its old string and the EditLine stays as typed (trimmed).
bool FlushEditLine(TextRecord* record);

// FlushEditLine without noting the last edit, for a command that changes
// many lines and notes its last edit once at its end. A line of unchanged
// length is overwritten in place.
enum class EditLineStore {
    Unchanged,
    Stored,
    Failed
};
EditLineStore StoreEditLine(TextRecord* record);

// Fetches a line into the EditLine and puts the cursor there, both clamped,
// padding with spaces up to the column. Unflushed changes of the old cursor
// line are dropped: the caller has flushed, or means to throw them away.
void LoadEditLine(TextRecord* record, LineIndex line, ColumnIndex column);

// Appends spaces until EditLength reaches CursorColumn, terminates, and
// zeroes every byte behind the terminator up to index MaxLineLength.
void PadEditLine(TextRecord* record);
