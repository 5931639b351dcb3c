#pragma once
// Where a text last changed: kept in the record for its own return to the
// last edit, and in the main process's return bookmark, which follows the
// user from text to text.

struct TextRecord;

// LastEditLine and LastEditColumn take the cursor's position, and the
// return bookmark of the main process is set to it (a synchronous request;
// skipped for a text without a main process).
void NoteLastEdit(TextRecord* record);
