#pragma once
// The name of a text's file, kept in two fields of the record.

struct TextRecord;

// FileDirectory becomes the directory part of `name`, FileName its file
// part, split as PathPart and FilePart do ("/a/b" gives "/a" and "b",
// "/b" gives "/", "S:b" gives "S:", a bare name an empty directory). A
// directory longer than FileDirectorySize - 1 characters is cut.
void SetTextFileName(TextRecord* record, const char* name);
