#pragma once
// The commands of the menu "Find/Replace", run in the text's process.
//
// The find and replace texts are the main process's, shared by every text;
// a command takes copies of them (or sets the find text, for "Selection").
// A command that finds nothing reports "String not found" with the find
// text; the search itself has beeped already. Shift held at the menu pick
// (LastQualifier) turns "Selection" and "Replace all" backward.
struct TextRecord;

// Search for `text` backward or forward; what is found becomes the block.
bool FindPrevious(TextRecord* record, const char* text);
bool FindNext(TextRecord* record, const char* text);
// Search for `find` and replace it; the replacement becomes the block, so
// the next search goes on behind its first character.
bool ReplacePrevious(TextRecord* record, const char* find, const char* replacement);
bool ReplaceNext(TextRecord* record, const char* find, const char* replacement);

// "Find previous", "Find next": the main process's find text.
void FindPreviousCommand(TextRecord* record);
void FindNextCommand(TextRecord* record);
// "Selection": the block, which must lie on one line, becomes the find
// text (the main process keeps its first 49 characters) and is searched
// for whole.
void SelectionCommand(TextRecord* record);
// "Replace previous", "Replace next": the main process's find text by its
// replace text.
void ReplacePreviousCommand(TextRecord* record);
void ReplaceNextCommand(TextRecord* record);
// "Replace all" from the cursor; then "<count> strings replaced", or
// "String not found" when nothing was replaced.
void ReplaceAllCommand(TextRecord* record);
