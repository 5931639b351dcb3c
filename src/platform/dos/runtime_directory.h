#pragma once
// The program's private places that need no user database: kept apart
// from volumes.h so that a small client (tavrel-rx) links without it.
#include <string>

// An environment value, or "" when unset or not an absolute path.
std::string AbsoluteEnvironmentPath(const char* name);

// $TMPDIR, else /tmp.
std::string TempDirectory();

// $XDG_RUNTIME_DIR/tavrel, else <temp>/tavrel-<uid>: where the clips and
// the host sockets live.
std::string RuntimeDirectory();
