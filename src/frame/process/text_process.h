#pragma once
// The process of one text: it builds the text's record, registers with the
// main process, opens the window and then serves its ports in one loop
// until the text ends; then it tears everything down and tells main.
#include "frame/protocol/leave_reasons.h"

#include <cstdint>

struct MsgPort;
struct TextRecord;

// The entry of every text process; waits for its start message first.
void TextProcessEntry();

// The program's report of a memory shortage in a text's record: "Not
// enough memory" in the text's window. While the text reads its file ahead
// of its window it reports nothing: the read gives up, and the load in the
// window meets the shortage again and reports it there.
void ReportTextShortage(TextRecord* record);

// Drains the text's command port and carries out each command; every
// message is freed, with the strings it owns. The leave reason the drain
// asks for (a later close request replaces an earlier one), or 0.
int ReadCommands(TextRecord* record, MsgPort* port);

// The last act of a text process, after its record is gone: CMD_TEXT_ENDED
// to main, or CMD_QUIT_ALL when the text ended by the Quit command. An
// allocation failure is retried every half second until it succeeds,
// as main counts on this message to end.
void SendLastMessage(MsgPort* mainPort, int leaveReason);
