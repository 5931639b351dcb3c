#pragma once
// A raw key in a text window: the fixed keyboard of the editor. Keys with
// a table entry (editing and cursor keys, by qualifier group Alt, Shift,
// Ctrl, none) call their operation; every other key goes the character
// path, where the key's characters are typed, Ctrl + Q ends the text and
// Ctrl + a letter looks for a menu shortcut.
#include <cstdint>

struct TextRecord;
struct IntuiMessage;

struct KeyOutcome {
    int Leave = 0;           // leave reason for the event loop, 0 to stay
    bool UpdateTitle = true; // false when the key closed the text or went to another
};

// One IDCMP_RAWKEY message (a copy; key releases are ignored).
KeyOutcome HandleRawKey(TextRecord* record, const IntuiMessage& message);
