#pragma once
// The search window: one window for all texts, owned by the main process,
// whose buttons act on the active text. It shows SearchText, ReplaceText
// and a check box for "UPPER=lower"; what the user does there is read in
// the main loop (HandleSearchWindow) and sent to the active text as
// CMD_SET_CASE followed by a find, replace or restore command, so that the
// text changes only in its own process. While the active text runs a
// command (Busy) a button only beeps. Everything here runs in the main
// process.
#include <cstdint>

struct CommandMessage;

// The signal of the window's port, 0 while the window is closed.
uint32_t SearchWindowSignal();

// Serves what is queued at the window's port; Esc (outside a field) and
// the close gadget close the window. A field left by Tab or Esc sends
// nothing; Tab gives the keyboard to the other field.
void HandleSearchWindow();

// Disposes of the window, if open. The strings stay in Globals.
void CloseSearchWindow();

// Shows SearchText, or ReplaceText, in its field of the window, if open;
// the other field keeps what the user may be typing there.
void ShowSearchText();
void ShowReplaceText();
