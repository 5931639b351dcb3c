#pragma once
// Where a text's window stands now. Kept apart from the icon code, whose
// gadget constants share names with the display's.

struct TextRecord;

struct WindowBox {
    int Left, Top, Width, Height;
};

// The box of the text's window as the display has it now; false when the
// text has no window.
bool CurrentWindowBox(const TextRecord* record, WindowBox* box);
