#pragma once
// Host ports: the public ports that scripts and other programs address by
// name. A host port is an ordinary public port (FindPort finds it) that is
// also listed here, so that a script's ADDRESS finds it with any case of
// its name, and, while the host sockets run, reachable as a Unix socket of
// the same name (see host_sockets.h).
#include "platform/exec/ports.h"

// Whoever serves a host port answers its messages with ReplyRexxMsg
// (script_server.h).
//
// A public port of the calling task under `name`; null on failure. A
// socket that cannot be made is no failure: the port still serves scripts.
MsgPort* OpenHostPort(const char* name);
// Takes the port out of every list and closes its socket: from now on
// only replies to messages it sent arrive there. The caller then serves
// what is queued and deletes the port with DeleteMsgPort. Null is allowed.
void WithdrawHostPort(MsgPort* port);

// Puts `message` at the host port called `name`, case ignored (an exact
// match wins); false when there is none. The port cannot go away between
// the look-up and the put.
bool PutToHostPort(const char* name, Message* message);
