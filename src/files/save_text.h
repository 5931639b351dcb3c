#pragma once
// Saving a text to its file, with the options of the "Preferences" menu:
// SaveTabs, MakeBackup and SaveIcon of the text's Options mirror their
// check marks.

struct TextRecord;

// Writes the whole text to `name`: first the backup ("<name>.bak") when
// MakeBackup is on and the icon when SaveIcon is on (each reported and
// skipped on failure), then the lines, tab-compressed with SaveTabs. A
// complete write clears Modified; a failed one leaves the old file whole
// and the text modified. A text still named "NoName" takes `name` as its
// name either way. True when the file was written.
//
// A text that holds only part of its file (PartOfFile: a load that stopped
// early, a file that couldn't be read) would lose the rest of that file to
// a plain save. Saving such a text over that file asks first; a refusal
// writes nothing and gives false, and a complete save clears the mark.
bool SaveText(TextRecord* record, const char* name);

// SaveText, after asking "File allready exists / Overwrite it?" when the
// file exists. False when the user refused or the save failed.
bool SaveTextChecked(TextRecord* record, const char* name);
