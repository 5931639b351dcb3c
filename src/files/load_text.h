#pragma once
// Loading a file into a text, in place of its lines or before the cursor.

struct TextRecord;

// Reads the file `name` into the text. Without `insert` the text is emptied
// first (ResetText) and takes the file's name and directory. With it the
// file's lines go in before the cursor's line, the cursor on the first of
// them, and the text is modified. Into a text that was empty (no lines, or
// one empty line) both act as a load: the text ends unmodified, the cursor
// on line 0, the bookmarks of the text forgotten; an insert keeps the
// text's name.
// While a file is read the table grows by half its size at a time, at least
// 256 slots (fixed steps would copy the table once per 256 lines and make a
// load of a million lines quadratic); once 64 KB of a regular file are in,
// it grows at once to the line count they predict for the whole file.
// A file of no bytes loads as one empty line, with "Empty file!". A line
// that can't be stored ends the load and isn't counted: the text keeps the
// lines read so far. True when the file was read whole; false after the
// report of a missing buffer, a file that can't be opened (the text as it
// was), a read error or a store failure. Only regular files are read: a
// directory, a device, a FIFO or a socket is refused as a file of the wrong
// type. A load in place of the text that stops early marks the text as
// holding part of its file (PartOfFile), so that saving it over that file
// asks first.
bool LoadText(TextRecord* record, const char* name, bool insert);

// True when a load may take the place of the text: it is unmodified or
// one blank line, or the user answers "Do you want to loose the modified
// text?" with yes.
bool MayLoadOver(TextRecord* record);

// What the program calls to load: a load in place of the text first asks
// MayLoadOver, and a refusal gives false with nothing loaded. A load that fails and leaves
// one blank line names the text after the file, so that opening a file
// that doesn't exist gives an empty text which saving will create; a file
// that exists but can't be read gives the same, marked PartOfFile, and
// anything that isn't a file leaves the text's name alone.
bool LoadTextChecked(TextRecord* record, const char* name, bool insert);

// Reads the file a new text starts with before its window opens, with
// nothing shown: the text, one empty line as made, takes the lines a load
// in its place would give and the file's name. Any step a load would report
// (a file that can't be opened or read, an empty file, no memory) gives
// false instead, the text one empty line again, so that the load that
// follows in the window meets it and reports it there. A shortage the line
// table reports meanwhile is the caller's to keep quiet.
bool ReadFileAhead(TextRecord* record, const char* name);

// Once the window is open: what a load does after reading, for a text that
// ReadFileAhead filled. The text takes the file's directory, and the
// window shows it with the cursor at the top.
void ShowFileReadAhead(TextRecord* record, const char* name);
