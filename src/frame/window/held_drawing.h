#pragma once
// Drawing held back while a macro command runs. A command that writes
// thousands of lines would otherwise scroll and repaint the window for
// each; held, every operation still moves the cursor and the viewport as it
// would by key, but nothing reaches the window until the command ends, and
// then all rows are drawn once. The end state on screen is the same.
//
// Whatever makes the user look at the text in the middle of a command (a
// requester, a pick in the text) first shows what waited and lets drawing
// through while it waits for the user, so that the text stays live.
#include <cstdint>

struct TextRecord;

// From now on drawing waits. Calls nest.
void HoldDrawing(TextRecord* record);
// Ends one HoldDrawing; the last one draws what waited.
void ReleaseDrawing(TextRecord* record);

// Draws what waited and lets drawing through until ResumeHeldDrawing with
// the value given here. Nothing waits when the text holds no drawing, and
// while Batch is set nothing is drawn: its caller repaints.
int16_t SuspendHeldDrawing(TextRecord* record);
void ResumeHeldDrawing(TextRecord* record, int16_t held);
