#pragma once
// What a text does with a message at its host port.
struct TextRecord;
struct RexxMsg;

// A command from a script runs as a macro command, as it stands (not
// upper-cased), with the message as the command's RexxMsg. Its value comes
// back as the result string, an integer in decimal, with return code 0;
// 10 when the string cannot be made; a failure shows the "ARexx command"
// requester and gives 20. The message is replied.
//
// The answer to a script of the text's own tells a failure in a requester,
// with the interpreter's own lines about it, and frees the message; when the last script of the text has ended, the
// busy level a script may have taken is given back and the title shows the
// status again.
void RunArexxCommand(TextRecord* record, RexxMsg* message);
