#pragma once
// Asking the user to point at a place in the text, for a macro.
struct TextRecord;

// Shows `prompt` (unless empty) as the title and waits for the user, with
// the busy state taken off and the menus away so that the right button
// comes here. The left button places the cursor on its cell and gives 1
// once it is released;
// the right button, a key, a menu pick or the close gadget give -1. The
// window can still be sized and scrolled meanwhile. Afterwards the menus
// and the busy state come back as they were. Needs the text's window.
int PickPosition(TextRecord* record, const char* prompt);
