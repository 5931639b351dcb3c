#pragma once
// Every host port is also reachable from other programs of the same user:
// a Unix domain socket of the port's name in the socket directory,
// $XDG_RUNTIME_DIR/tavrel (<temp>/tavrel-<uid> without XDG_RUNTIME_DIR).
// The directory is made with mode 0700; one that exists with another mode
// or another owner is refused, and a peer of another user is refused by
// its credentials. Requests and replies are framed as socket_frames.h
// says; each connection is served by a task of its own, which hands every
// request it has received to the port as a script message and writes back
// the answers together, in order.
#include "platform/rexx/socket_directory.h"

#include <string>

// Checks or makes the directory and starts listening. "" on success, else
// a sentence saying why the sockets stay off.
std::string StartHostSockets();
// Closes every socket and connection and waits for their tasks to end.
void StopHostSockets();

// A socket for host port `name`, while the sockets run. A socket of that
// name that another program still serves is left alone.
void OpenHostSocket(const char* name);
void CloseHostSocket(const char* name);
