#pragma once
// Whether the program has come to rest: the main process and every text
// process wait in their loops with nothing pending at their ports. The
// event-script driver waits for this before it reads the display, so that
// what it prints does not depend on thread timing.
#include <cstdint>

// The Wait of an event loop (main or text): the calling process counts as
// at rest while it sleeps here with none of `mask` pending.
uint32_t WaitInLoop(uint32_t mask);

// The calling process's loop has ended; it no longer counts.
void LeaveLoop();

// True when the main loop and one loop for every counted text sleep in
// WaitInLoop with nothing pending, and none of them woke while this was
// being checked. Any thread, while the main process runs.
bool ProgramIsIdle();

// The calling process runs a macro loop that watches its window for the
// key that stops it (true), or no longer does (false).
void NoteBreakWatch(bool watching);

// ProgramIsIdle, but a text whose loop watches its window counts as at
// rest: the program can take the user's input now, and the stop key among
// it reaches the loop. The driver posts keys once this holds.
bool ProgramTakesInput();
