#pragma once
// Starting scripts from a text. The text never waits for a script: the
// answer comes back later to its host port (see arexx_command.h).
struct TextRecord;

// Starts the script `name` (a name in ScriptPath, or a full path) with
// the text's port as its host address. Every failure shows its requester.
void RunScript(TextRecord* record, const char* name);

// Opens a script as a text for editing: ScriptPath and `name` joined, or
// with ".Tavrel" (or ".tavrel") added when that is no file; loaded into
// this text when it is empty, else into a new one.
void LoadMacroFile(TextRecord* record, const char* name);
