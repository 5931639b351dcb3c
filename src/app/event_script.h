#pragma once
// The event-script driver: a script of user input, one command a line, run
// against the headless display while the program runs on its own tasks.
// The commands and their output are a stable language that end-to-end tests
// are written in; extend it, never change it.
#include <istream>
#include <ostream>

class HeadlessDisplay;

// Waits for the program to come to rest, carries out the script, and at its
// end closes every text without asking. Output of `dump` goes to `out`,
// "error: ..." lines to `err`. Returns 0, or 2 once a command could not be
// carried out (the rest of the script is skipped).
int RunEventScript(std::istream& script, HeadlessDisplay& display, std::ostream& out, std::ostream& err);
