#pragma once
// Where a text last changed, kept in the record for its own return to the
// last edit.

struct TextRecord;

// LastEditLine and LastEditColumn take the cursor's position.
void NoteLastEdit(TextRecord* record);
