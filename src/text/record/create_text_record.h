#pragma once
// Building and freeing the record of a text, in its own process.

struct TextRecord;

// Builds a record in the order the text process starts: the record itself
// (cleared, public), CommandPort (signalling the calling task), LinePool,
// a LineTable with room for 32 runs holding one empty line, and the four line buffers of
// Settings.MaxLineLength + 1 bytes. The text then holds one empty line, the
// cursor at 0/0. FileDirectory and LastDirectory are `directory` (the
// directory of the text that asked for this one) or, when null, the current
// directory, cut to 256 characters; FileName is the default name "NoName"
// in the user's language. Options, TabSize and its label, MaxLineLength,
// the window geometry and the font asked for come from Settings.
// Null when anything can't be had; everything got so far is freed again and
// nothing is reported: the process reports "Not enough memory" itself, as
// it has no window yet.
TextRecord* CreateTextRecord(const char* directory);

// Frees what CreateTextRecord made: the pool with every line string,
// CommandPort (which must be drained), the table, the buffers and the
// record. The font, window, menus, host port and macro variables are gone
// before, by their owners. Null is allowed.
void FreeTextRecord(TextRecord* record);
