#pragma once
// A host port for the tests of the script layer, served by the calling
// task until `stop` is set and the task is signalled with Ctrl-C: a
// command comes back as its own RESULT with RC 0, except
//   "fail"          RC 20
//   "set NAME VAL"  sets variable NAME of the sending script to VAL, RC 0
#include <atomic>

void ServeEchoHost(const char* name, std::atomic<bool>* open, const std::atomic<bool>* stop);
