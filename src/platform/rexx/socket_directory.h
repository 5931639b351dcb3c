#pragma once
// Where the host sockets of this user live: $XDG_RUNTIME_DIR/tavrel, or
// <temp>/tavrel-<uid> without XDG_RUNTIME_DIR.
#include <string>

std::string HostSocketDirectory();
