#pragma once
// Internal to the script layer: one script run by the interpreter in the
// calling task, answering `message` (see script_server.h for the reply).
struct RexxMsg;

void RunScriptMessage(RexxMsg* message, const char* path);

// The file that a script name means: the name, then with "." and the
// extension, then with the extension in lower case. False when none is a
// readable file.
bool FindScriptFile(const char* name, const char* extension, char* buffer, unsigned size);

// Kept by the server: a script that has put a command at a host port is
// not at work until the host replies (see ReplyRexxMsg).
void ScriptWaitsForHost();
