#pragma once
// The main process's dispatcher: one row of the code table per message.
#include <cstdint>

struct CommandMessage;

// Runs the handler of the message's code (Code & 0x1FFF), which writes its
// result into Argument; then replies if CMD_REPLY and frees if CMD_FREE is
// still in the code. A code above 61 only gets its reply or its freeing.
// A code whose subsystem has not installed a handler yet has no effect; a
// reply to it carries 0, the failure answer of every such code, so that the
// sender never takes its own argument back for a result.
void DispatchCommand(CommandMessage* message);

// True when `code` has a handler in the main process.
bool HasMainHandler(int16_t code);
