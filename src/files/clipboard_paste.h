#pragma once
// Pasting the clip of the unit in use (clipboard_unit.h) at the cursor.

struct TextRecord;

// Inserts the text of every CHRS chunk of the clip, in order, each where
// the last one ended, as typing would: newlines break lines as Return
// does, overwrite mode overwrites, and a cursor inside the block replaces
// the block (a cursor outside unmarks it). Zero bytes are dropped, other
// chunks skipped; a CHRS chunk of size 0 or one cut short ends the clip.
// A piece too long for its line stops that chunk after "Line too long".
// Reports "Clipboard is empty" for a clip under 12 bytes, "Bad clipboard
// content" for anything but a FORM FTXT (the text unchanged); a clip that
// can't be read at all changes nothing, without a report. Nothing is
// drawn while the chunks go in; the window is repainted once at the end.
// It is also the handler of "Paste clip".
void PasteClip(TextRecord* record);
