#pragma once
// The names a text keeps of its file: FileDirectory, FileName and the
// LastDirectory that file requesters open on.

struct TextRecord;

// After a load: FileDirectory becomes the full, resolved name of the
// directory of `name` (volume names and symbolic links resolved; the
// current directory for a bare name; the directory part as written when it
// can't be resolved); LastDirectory follows it; FileName becomes the file
// part of `name`. A name too long for the record is refused with "Loading
// file" and the DOS error, and the names stay.
void SetFileIdentity(TextRecord* record, const char* name);

// After "Save as" or "Rename": FileName and FileDirectory split from `name`
// as it is written, and the title shows them. LastDirectory stays. A name
// too long for the record is refused with "Renaming file" and the DOS error.
void SetFileNames(TextRecord* record, const char* name);

// True while the text has no file name of its own (the default "NoName").
bool HasDefaultName(const TextRecord* record);
