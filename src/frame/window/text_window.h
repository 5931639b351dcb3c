#pragma once
// The window of a text: opening it on the main process's screen, closing
// it, the three ways a text shows itself, its title and its font. Runs in
// the text's own process.
//
// A text shows itself as its full window (WindowOpen), as a small title
// window along the top of the screen (Iconified), or not at all (Hidden);
// exactly one of the three holds once the window was first opened. The
// menu strip belongs to the text and survives every change. Each window,
// text or title window, holds one use of the main process's screen.
#include <cstdint>

struct TextRecord;
struct Window;

// The events a text window reports: menu help, ticks, (in)activation, raw
// keys, the close gadget, menu picks, gadgets, mouse moves and buttons, new
// size.
constexpr uint32_t TextWindowIDCMP = 0x014C077A;
// The events of an iconified title window: activation, keys, buttons.
constexpr uint32_t TitleWindowIDCMP = 0x00040408;

// Opens the window with the record's box and limits on the screen main
// lends (CMD_GET_SCREEN), with the menu strip, the text's font, the six
// scroller gadgets, the six pens and file drops, and makes the text
// WindowOpen alone. The real box is written back to WindowLeft to
// WindowHeight. Null after "Error opening screen" or "Error opening window".
// Draws nothing: the caller fills the text area.
Window* OpenTextWindow(TextRecord* record);

// Closes whatever window there is, leaving every level of the busy state,
// and gives the screen back; the text is Hidden afterwards. 0.
int CloseTextWindow(TextRecord* record);

// An open window comes to the front and is activated; otherwise the window
// opens again, the title window (if any) closes and remembers where it
// stood, and the text is drawn with its cursor. 1, or 0 with a beep and
// the old state kept when the window can't open.
int RaiseTextWindow(TextRecord* record);

// True when the text has a window to draw in; an iconified or hidden text
// gets its window back first. False when that fails, or before the window
// was first opened.
bool EnsureWindow(TextRecord* record);

// The menu command "Iconify": the window's box is kept for reopening and
// the text shows itself as a title window with its file name, where main
// places it (PlaceTitleWindow). The block is dropped. Nothing unless
// WindowOpen; nothing changes when the title window can't be had.
void IconifyText(TextRecord* record);

// The menu command "Hide": whatever window there is closes (the box of a
// text window is kept for reopening); the text lives on without one.
void HideText(TextRecord* record);

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

// Makes the font of that name and size the text's font and the window's.
// 1, or 0 when there is no such font; the old font then stays. The caller
// lays out and redraws.
int OpenTextFont(TextRecord* record, const char* name, uint16_t size);
