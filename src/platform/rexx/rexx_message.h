#pragma once
// Script messages: the record a text and the script server exchange, the
// counted strings that travel in it, and the variables a host command sets
// in the script that sent it.
//
// A message sent to a host port is a command (RXCOMM, the command text in
// rm_Args[0]); one sent to the script server starts a script (RXCOMM: the
// script's name in rm_Args[0]; RXFUNC: the name, then up to 15 arguments
// in rm_Args[1..], their count in the low bits of rm_Action). The receiver
// fills rm_Result1 (0, or the return code) and rm_Result2 (with a 0
// Result1 an argstring the sender frees, else an error number) and
// replies.
#include "platform/exec/ports.h"

#include <cstdint>

constexpr uint32_t RXCOMM = 0x01000000;
constexpr uint32_t RXFUNC = 0x02000000;
constexpr uint32_t RXCODEMASK = 0xFF000000;
constexpr uint32_t RXARGMASK = 0x0000000F;
constexpr int MAXRMARG = 15;

struct RexxVariables;

struct RexxMsg {
    Message rm_Node;
    uint32_t rm_Action = 0;
    long rm_Result1 = 0;
    intptr_t rm_Result2 = 0;
    char* rm_Args[MAXRMARG + 1] = {};
    char* rm_FileExt = nullptr;   // default extension of scripts, an argstring
    char* rm_CommAddr = nullptr;  // host address the script starts with, an argstring
    // Where SetRexxVarFromMsg collects variables for the sender: a script,
    // or a socket client that gets them in its reply; null when the sender
    // takes none.
    RexxVariables* rm_Variables = nullptr;
    // The answer to a script that failed: the interpreter's last trace and
    // error lines, each ended by a newline, an argstring; or null.
    char* rm_Trace = nullptr;
};

// A message that replies to `replyPort`, with copies of the extension and
// the host address (either may be null); null on failure.
RexxMsg* CreateRexxMsg(MsgPort* replyPort, const char* extension, const char* host);
// Frees the message and its two names, not its arguments. Null is allowed.
void DeleteRexxMsg(RexxMsg* message);
// Frees the message with every argstring of rm_Args, rm_Trace and, when
// rm_Result1 is 0, the result string in rm_Result2 (whoever wants it takes
// it out first). Null is allowed.
void FreeRexxMsg(RexxMsg* message);

// A counted, zero-terminated copy of `length` bytes of `text`; null on
// failure. Any thread may free it.
char* CreateArgstring(const char* text, long length);
void DeleteArgstring(char* argstring); // null is allowed
long LengthArgstring(const char* argstring);

// Sets variable `name` of the script that sent `message` to `value`, when
// the command is answered. 0 on success; non-zero when the sender takes no
// variables or the name is empty.
int SetRexxVarFromMsg(const char* name, const char* value, RexxMsg* message);
