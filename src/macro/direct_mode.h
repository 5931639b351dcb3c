#pragma once
// "Direct mode": a macro command typed into a requester and run at once.
struct TextRecord;

// Asks for a command on the text's MacroCommandText (up to 255
// characters, with the button of the list of functions) and runs it. The
// text stays in the buffer, upper-cased, for the next time.
void DirectModeCommand(TextRecord* record);

// Asks for the text's click macro (up to 255 characters) and keeps it for
// the next Alt click.
void AskClickMacro(TextRecord* record);

// Gives the list of functions of the input requester the usage line of
// every built-in function. Once, at start, before any text runs.
void InstallFunctionList();
