#pragma once
// The name of a text's file, kept in two fields of the record. Both hold any
// Linux path whole; a name that doesn't fit is refused, never cut.
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
