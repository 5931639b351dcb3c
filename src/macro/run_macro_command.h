#pragma once
// The one door by which the user's commands reach the macro language:
// "Direct mode", a bound key, a user menu item and the Alt click all come
// here, in the text's own process.
struct TextRecord;

// Runs `text` (upper-cased in place outside strings and comments) against
// the text's variables. A failure shows "Macro execution", the failing
// function and the error; with a leading `=`, a non-empty value shows as
// "Macro result". Nothing is shown otherwise.
void RunMacroCommand(TextRecord* record, char* text);
