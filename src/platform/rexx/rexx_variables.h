#pragma once
// Internal to the script layer: the variables a host command asked to set,
// kept on the sender's side until the reply comes. A script stores them
// with its own thread (the interpreter's variable pool belongs to the
// thread that runs the script); a socket connection sends them in its
// reply.
#include <string>
#include <utility>
#include <vector>

struct RexxVariables {
    std::vector<std::pair<std::string, std::string>> Pending;
    // The sender is a script that the server counts as resting until the
    // reply (see ReplyRexxMsg).
    bool FromScript = false;
};
