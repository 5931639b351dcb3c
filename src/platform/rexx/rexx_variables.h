#pragma once
// Internal to the script layer: the variables a host command asked to set,
// kept on the sending script's side until the reply comes, then stored in
// the script by its own thread (the interpreter's variable pool belongs to
// the thread that runs the script).
#include <string>
#include <utility>
#include <vector>

struct RexxVariables {
    std::vector<std::pair<std::string, std::string>> Pending;
};
