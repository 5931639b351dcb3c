#pragma once
// The name of a text's file, kept in two fields of the record.

struct TextRecord;

// FileDirectory becomes the directory part of `name`, FileName its file
// part. "dir/file" splits at the last slash ("/file" keeps "/" as its
// directory); a name without a slash splits behind a volume name
// ("S:file"), else its directory is empty. A directory longer than
// FileDirectorySize - 1 characters is cut.
void SetTextFileName(TextRecord* record, const char* name);
