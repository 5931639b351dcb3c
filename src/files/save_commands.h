#pragma once
// The saving commands of the "Project" menu, as menu handlers: each runs in
// the text's process with the record of the text picked from.

struct TextRecord;

// "Save text": a text with a name of its own is saved under it without a
// question; a text still named "NoName" goes through "Save as".
void SaveTextCommand(TextRecord* record);

// "Save as": asks for a file ("Saving text"), saves there (asking before
// overwriting), then, when that isn't the text's own name, asks "Do you
// want to rename the document?" and on yes the text takes the new name.
void SaveAsCommand(TextRecord* record);

// "Rename": asks for a name ("Renaming file") and gives it to the text.
// Nothing on disk changes.
void RenameCommand(TextRecord* record);
