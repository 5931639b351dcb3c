#pragma once
// The event-script driver: a script of user input, one command a line, run
// against the headless display while the program runs on its own tasks.
// The commands and their output are a stable language that end-to-end tests
// are written in; extend it, never change it.
//
// Input goes where a user's would: before a command posts input, the driver
// waits until the program could take it from a user, so that a requester a
// menu pick opens takes the keys that follow it. That is when everything is
// at rest, or waits for the user in a requester, or when a text runs a
// macro loop that watches its window for Ctrl+Alt+Esc: `key`, `activate`
// and the requester commands go ahead then, so a script stops a running
// loop, presses the search window's buttons (which only beep then) and
// works in the other texts meanwhile, as a user does.
//
// Extensions beside the commands every script knows:
// - `activate search` makes the search window active: `key`, `type`,
//   `button`, `input`, `check` and `requester` then act on it (printed
//   with `window: search` as its first line) until a text window is
//   activated or the search window closes.
// - `beeps` prints `beeps N`, the count of DisplayBeep since the start,
//   once the program has come to rest: the only trace of a refused button
//   or of a search from the search window that found nothing.
#include <istream>
#include <ostream>

class HeadlessDisplay;

// Waits for the program to come to rest, carries out the script, and at its
// end closes every text without asking. Output of `dump` goes to `out`,
// "error: ..." lines to `err`. Returns 0, or 2 once a command could not be
// carried out (the rest of the script is skipped).
int RunEventScript(std::istream& script, HeadlessDisplay& display, std::ostream& out, std::ostream& err);
