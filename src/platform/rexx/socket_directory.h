#pragma once
// Where the host sockets of this user live: $XDG_RUNTIME_DIR/tavrel, or
// <temp>/tavrel-<uid> without XDG_RUNTIME_DIR.
#include <string>
#include <sys/un.h>

std::string HostSocketDirectory();

// The address of the socket at `path`; false when the path is too long
// for a socket address.
bool SocketAddress(const std::string& path, sockaddr_un* address);
