#pragma once
// The project icon a save writes beside the file. (SaveIcon is already the
// name of the option bit that asks for it.)

struct TextRecord;

// Writes "<name>.info": the built-in project icon with this program as its
// default tool (the current directory joined with "Tavrel"), no position,
// a stack of 4000, and while the text has a window the tool type
// "WINDOW=left,top,width,height" of that window. "Error saving icon" when
// no built-in icon can be had; a failed write of the icon isn't reported.
void SaveProjectIcon(TextRecord* record, const char* name);
