#pragma once
// Where an iconified text's title window goes. Runs in the main process,
// which keeps the row being filled (IconNextLeft, IconNextTop).
//
// Title windows line up along the top of the screen from right to left,
// one pixel apart, and start a row lower (by a title bar's height) when a
// row is full. A text that was placed before (IconLeft, IconTop not both 0)
// goes back where its title window last stood, which is where the user
// dragged it. Slots are never given back.
#include <cstdint>

struct TextRecord;
struct NewWindow;
struct CommandMessage;

// A title window for `text` on the main process's screen: a drag bar with
// the file part of its name, as wide as that name plus one character and
// as high as the text window's title bar. The result is an AllocVec copy
// (MEMF_SHARED) for the caller to free; null without memory or screen.
NewWindow* PlaceTitleWindow(TextRecord* text);

// CMD_GET_ICON_WINDOW: the argument is the text, the result its title
// window's description.
void HandleGetIconWindow(CommandMessage* message, int16_t* code);
