#pragma once
// The host port of a text: made at the text's start under the name of its
// process ("Tavrel.1", ...), made again when a script needs it and the
// first attempt failed, and served to the end.
struct TextRecord;

// 0, or 130 when the port cannot be made.
int EnsureHostPort(TextRecord* record);

// At the text's end: no new command reaches the port; those already there
// are answered with return code 100, and the answers already back are
// served. The text's scripts still running are halted and their answers
// waited for and dropped, so no script is left holding a message to a
// port that has gone. Then the port goes.
void CloseTextHostPort(TextRecord* record);
