#pragma once
// The four ways a request travels between processes. Each allocates a new
// CommandMessage, fills it and puts it at the receiver's port; none of them
// retries or reports a failed allocation: the request is lost and the
// caller sees 0 (which callers do not tell apart from a 0 result).
//
// The main process never waits for a text: SendToText and BroadcastToTexts
// are one way, and only text processes use SendToMainWait.
#include <cstdint>

struct MsgPort;
struct TextRecord;

// Puts a message with `code` (form bits included) at `port`, Sender =
// `sender`. Non-zero if posted. For callers without a record of their own.
int PostCommand(MsgPort* port, TextRecord* sender, int16_t code, intptr_t argument);

// To text->MainPort with CMD_FREE: main frees it. Non-zero if posted.
int SendToMain(TextRecord* text, int16_t code, intptr_t argument);
// To text->MainPort with CMD_REPLY, then waits at text->ReplyPort for the
// answer: the result main wrote into Argument; 0 if no memory, or when the
// text has no main port.
intptr_t SendToMainWait(TextRecord* text, int16_t code, intptr_t argument);
// To text->CommandPort, no form bits: the text frees it. Non-zero if posted.
int SendToText(TextRecord* text, int16_t code, intptr_t argument);
// SendToText with a position carried by value, `line` in Argument and
// `column` in Spare, so that the text never reads the sender's memory.
int SendPositionToText(TextRecord* text, int16_t code, int32_t line, int32_t column);
// SendToText to every text of TextList, first to last. Main process only.
void BroadcastToTexts(int16_t code, intptr_t argument);
