#pragma once
// A text's FileDirectory and FileName are also read by other processes:
// the main process when it looks a text up by name or lists the texts, a
// new text that starts in the directory of the text that asked for it. The
// text changes them only through the setters here, which hold TextListLock
// exclusively while they write (a text without a main process is in no
// list and takes no lock), and the others copy or compare them under a
// shared hold, so nobody reads half a name.
//
// Both fields hold any Linux path whole; a name that doesn't fit is
// refused, never cut.
#include <cstddef>

struct TextRecord;

// FileDirectory becomes the first `length` bytes of `directory`, FileName
// `file`. False, with both fields unchanged and IoErr at
// ERROR_INVALID_COMPONENT_NAME, when either doesn't fit its field.
bool SetTextFileParts(TextRecord* record, const char* directory, size_t length, const char* file);

// FileDirectory becomes the directory part of `name`, FileName its file
// part, split as PathPart and FilePart do ("/a/b" gives "/a" and "b",
// "/b" gives "/", "S:b" gives "S:", a bare name an empty directory). False,
// with the names unchanged, when a part doesn't fit (SetTextFileParts).
bool SetTextFileName(TextRecord* record, const char* name);
