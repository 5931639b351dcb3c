#pragma once
// Internal to the script layer: one script run by the interpreter in the
// calling task, answering `message` (see script_server.h for the reply).
#include <mutex>
#include <pthread.h>

struct RexxMsg;

// The error a halted script ends with: the interpreter's "Program
// interrupted".
constexpr long HaltedError = 4;

// The stop switch of one script, shared by the task that runs it and
// whoever halts it.
struct HaltSwitch {
    std::mutex Lock;
    bool Halted = false;
    bool Interpreting = false; // Thread is inside the interpreter
    bool Signalled = false;
    pthread_t Thread{};
};

// Halts the script: one not yet started never starts, one running stops
// at its next clause (or when the host command it waits for is answered)
// with HaltedError. A running script whose interpreter has no handler up
// yet, or has lost the halt in its first moments, hears it only when told
// again with RepeatHalt.
void HaltScript(HaltSwitch* halt);

// Tells a halted script that still runs once more. False when there is
// nothing (more) to tell.
bool RepeatHalt(HaltSwitch* halt);

// Runs the script, unless it was halted first; a halted one is answered
// with 20 and HaltedError.
void RunScriptMessage(RexxMsg* message, const char* path, HaltSwitch* halt);

// The file that a script name means: the name, then with "." and the
// extension, then with the extension in lower case. False when none is a
// readable file.
bool FindScriptFile(const char* name, const char* extension, char* buffer, unsigned size);

// Kept by the server: a script that has put a command at a host port is
// not at work until the host replies (see ReplyRexxMsg).
void ScriptWaitsForHost();
