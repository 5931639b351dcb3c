#pragma once
// Finding an open text by the name of its file.

struct TextRecord;

// Walks TextList passing over `skip` (may be null). First pass: a text whose
// directory joined with its file name equals `path` gives its position + 1.
// Second pass: a text whose file name equals the file part of `path` gives
// -(position + 1). Else 0. Positions count every text, `skip` included, from
// 0; names are compared with case ignored over ISO 8859-1. Main process only
// (it reads the list without the lock, being its only writer).
long FindTextByName(const TextRecord* skip, const char* path);
