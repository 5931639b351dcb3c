#pragma once
// The message that starts a script of a text, shared by the menu's
// commands and the CALL function.
struct TextRecord;
struct RexxMsg;

// The default extension of scripts.
constexpr char ScriptExtension[] = "Tavrel";

// A message of the text's host port for the script `name`, its full name
// in rm_Args[0]; null with the MessageId in *error: 130 without a port,
// 215 for a name that doesn't resolve, 218 without memory.
RexxMsg* NewScriptMessage(TextRecord* record, const char* name, int* error);
