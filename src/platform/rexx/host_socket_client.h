#pragma once
// The client's side of the host sockets, for programs that drive a running
// editor (see socket_frames.h for what travels).
#include <cstdint>
#include <string>

// A connection to the socket of host port `name` in the socket directory,
// or -1 (errno tells why).
int ConnectHostSocket(const char* name);
// The same for the socket at `path`.
int ConnectSocketAt(const std::string& path);

// Sends one request and reads its reply: false when the connection broke.
bool HostRequest(int fd, const std::string& request, int32_t* returnCode, std::string* result);
