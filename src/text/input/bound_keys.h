#pragma once
// Keys bound in the key map: the function keys, which have no other
// meaning, and character keys pressed with Shift, Alt or Ctrl, which are
// looked up before any built-in meaning of their character (a binding of
// Ctrl-v wins over the menu shortcut of "v").
#include <cstdint>

struct TextRecord;
struct IntuiMessage;

// F1 to F12: runs the bound macro; without one, tells the user when the
// key map is being edited by a text. The key is used up either way.
void PressFunctionKey(TextRecord* record, const IntuiMessage& message);

// A key with Shift, Alt or Ctrl held: its character without qualifiers,
// looked up under the qualifiers held. True when a bound macro ran.
bool RunBoundCharacter(TextRecord* record, const IntuiMessage& message);
