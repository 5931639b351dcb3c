#pragma once
// Commands given by the user: typed into "Direct mode", bound to a key, a
// menu item or the Alt click. Each runs in the text's process, to the end,
// against the text's variables; what it shows is a message requester with
// the lines below.
#include "macro/command_pool.h"

struct TextRecord;

// What a command has to show, and the pool its result lives in.
struct MacroReport {
    CommandPool Pool;
    int LineCount = 0; // 0: nothing; 2: the result; 3: the failure
    const char* Lines[3] = {};
};

// Runs `text`, which is upper-cased in place outside strings and comments.
// The window is drawn once, when the command ends, unless the command shows
// a requester or asks for a pick first. A leading `=` asks for the value
// to be shown. On failure the three lines
// are "Macro execution", the failing function ("Function NAME", or empty)
// and the error's text; on success with `=` and a non-empty value, "Macro
// result" and the value (an integer in decimal). The lines stay valid
// until FreeMacroReport.
void MacroCommandLines(TextRecord* record, char* text, MacroReport* report);

// Frees the command's strings and empties the text's MacroScratch.
void FreeMacroReport(TextRecord* record, MacroReport* report);
