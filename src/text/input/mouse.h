#pragma once
// The mouse in a text window: clicks place the cursor, a double click
// marks a word or the line, Shift and Ctrl clicks move the ends of the
// block, and dragging with the left button marks. The cell of the last
// click is common to all texts; the time of the last click or drag step is
// the text's (LastClickSeconds, LastClickMicros).
#include "text/edit/cursor_placing.h"

#include <cstdint>

struct TextRecord;
struct IntuiMessage;

// IDCMP_MOUSEBUTTONS: left down and up (MouseDown bit 0 follows the
// button), right button up brings an iconified text back.
void HandleMouseButtons(TextRecord* record, const IntuiMessage& message);
// IDCMP_MOUSEMOVE while the left button is down in the text area: the
// drag marks from where it began, after a short delay.
void HandleMouseMove(TextRecord* record, const IntuiMessage& message);

// A plain click: within the double-click time on the cell of the last
// click it marks the word at the cursor, or the whole line when no word
// starts there, and gives true; else it places the cursor on the cell.
bool ClickCursor(TextRecord* record, const IntuiMessage& message);
// Begins a drag block at the cursor and moves the cursor to the pointer.
// A moved pointer counts only 400 ms after the click (800 ms on the
// cursor's own cell). True when the block began.
bool StartDrag(TextRecord* record, const IntuiMessage& message, bool moved);
// The moving end of the block comes to the pointer (with `swap` the other
// end does). Outside the text area the text scrolls at most once in 800
// ms, and only when an event comes.
void DragBlock(TextRecord* record, const IntuiMessage& message, bool swap);
