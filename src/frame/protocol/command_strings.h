#pragma once
// Messages to a text are the text's to free, and some carry a string that
// the text owns too: the find and replace texts and a macro to run.
struct CommandMessage;

// Frees the message and the string it owns, if its code carries one.
void FreeCommandMessage(CommandMessage* message);
