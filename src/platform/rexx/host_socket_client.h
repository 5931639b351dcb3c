#pragma once
// The client's side of the host sockets, for programs that drive a running
// editor (see socket_frames.h for what travels).
#include "platform/rexx/socket_frames.h"

#include <string>
#include <vector>

// A connection to the socket of host port `name` in the socket directory,
// or -1 (errno tells why).
int ConnectHostSocket(const char* name);
// The same for the socket at `path`.
int ConnectSocketAt(const std::string& path);

// Sends one request and reads its reply, strictly one after the other:
// false when the connection broke.
bool HostRequest(int fd, const std::string& request, HostReply* reply);

// Sends the requests keeping up to `window` of them unanswered, each batch
// in one write, and reads the replies, in order, into `replies`: false
// when the connection broke before all came.
bool PipelinedRequests(int fd, const std::vector<std::string>& requests, size_t window,
    std::vector<HostReply>* replies);
