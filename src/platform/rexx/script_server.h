#pragma once
// The script server: a task with the public host port "REXX" that runs
// REXX scripts with the embedded interpreter, each in a task of its own,
// so that a long script holds up no other.
//
// A message to the server names a script (see rexx_message.h). The name
// is tried as it stands, then with "." and the message's extension, then
// with that extension in lower case; a name that is not a path goes to the
// resolver first. The script starts at the host address of rm_CommAddr,
// and every command it sends to an address that is a host port (case
// ignored) goes there as an RXCOMM message: RC is that message's
// rm_Result1 and, when that is 0, RESULT its result string; otherwise
// RESULT is dropped. Commands to any other address are the interpreter's
// own (the shell).
//
// The reply: a script not found gives rm_Result1 5 and rm_Result2 1; a
// script stopped by an error n gives 20 and n, with the interpreter's last
// lines about it in rm_Trace. A script started by a
// command that exits with a whole number gives that number; one called as
// a function, or one that exits with any other value, gives 0 and its
// value as the result string (none when it returned nothing).
#include <cstddef>

struct MsgPort;
struct RexxMsg;

constexpr char ScriptServerName[] = "REXX";

// Turns a script name that is not a path into one; false when it can't.
using ScriptNameResolver = bool (*)(const char* name, char* buffer, size_t size);

// Starts the server; false when it could not. Idempotent. `extension` is
// the default extension of scripts whose message names none.
bool StartScriptServer(ScriptNameResolver resolver, const char* extension);
// Puts a script message at the server's port, under Forbid so that the
// server cannot go between the look-up and the put; false when it isn't
// there.
bool PutToScriptServer(RexxMsg* message);

// Script messages at the server, not yet answered, less the scripts that
// wait for a host to answer a command: zero when no script is working.
int ScriptsAtWork();

// Replies to a message at a host port. A script's command counts its
// script at work again before the script wakes, so that no moment passes
// in which the script seems to rest.
void ReplyRexxMsg(RexxMsg* message);

// Halts every running script whose message replies to `replyPort` (null:
// every script): each stops at its next clause, or when the host command
// it waits for is answered, as by error 4, and is answered with 20 and 4.
void HaltScripts(const MsgPort* replyPort);

// Halts every running script, closes the server's port, answers what
// still waits there as not found, and waits until every script has ended.
void StopScriptServer();
