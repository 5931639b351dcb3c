#pragma once
// The window of a text: opening it on the main process's screen, closing
// it, bringing it back, and its title. Runs in the text's own process.
//
// A text shows itself as its full window (WindowOpen), or not at all
// (Hidden); exactly one of the window states holds once the window was
// first opened. The menu strip belongs to the text and survives the window.
#include <cstdint>

struct TextRecord;
struct Window;

// The events a text window reports: menu help, ticks, (in)activation, raw
// keys, the close gadget, menu picks, gadgets, mouse moves and buttons, new
// size.
constexpr uint32_t TextWindowIDCMP = 0x014C077A;

// Opens the window with the record's box and limits on the screen main
// lends (CMD_GET_SCREEN), shows the menu strip if there is one, and makes
// the text WindowOpen alone. The real box is written back to WindowLeft to
// WindowHeight. Null after "Error opening screen" or "Error opening window".
Window* OpenTextWindow(TextRecord* record);

// Closes whatever window there is, leaving every level of the busy state,
// and gives the screen back; the text is Hidden afterwards. 0.
int CloseTextWindow(TextRecord* record);

// An open window comes to the front and is activated; otherwise the window
// opens again and the text becomes WindowOpen. 1, or 0 with a beep and the
// old state kept when the window can't open.
int RaiseTextWindow(TextRecord* record);

// VisibleColumns and VisibleRows from the window's text area and font
// (cells are tf_XSize wide and tf_YSize + 1 high); with WindowOpen the
// title follows. Nothing for a hidden text.
void UpdateVisibleSize(TextRecord* record);

// The title: the file name (the full path when the FullName option is on),
// " (modified)" when modified, then " ($<hex> <column>-<line>/<lines>)" with
// the character under the cursor (a blank behind the end of the line),
// column and line from 1. "NoName (modified) ($20 1-1/1)". An iconified text
// shows its file name only. Nothing while Busy: a running command owns the
// title.
void UpdateStatusTitle(TextRecord* record);
