#pragma once
// A text's FileDirectory and FileName are also read by other processes:
// the main process when it looks a text up by name or lists the texts, a
// new text that starts in the directory of the text that asked for it. The
// text changes them only between BeginNameChange and EndNameChange, which
// hold TextListLock exclusively, and the others copy or compare them under
// a shared hold, so nobody reads half a name.
struct TextRecord;

// Nothing for a text without a main process: it is in no list.
void BeginNameChange(TextRecord* record);
void EndNameChange(TextRecord* record);
