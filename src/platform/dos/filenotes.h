#pragma once
// File notes: a short comment kept with a file, in its extended attribute
// "user.comment". Paths may begin with a volume name. A file system without
// user attributes makes both operations fail (ERROR_ACTION_NOT_KNOWN).
#include <cstddef>

// Longest note in bytes, the terminator not counted.
constexpr size_t MaxCommentLength = 80;

// Sets the note of the file; an empty note removes it. False when the file
// is missing, the note is longer than MaxCommentLength
// (ERROR_COMMENT_TOO_BIG) or the file system refuses.
bool SetComment(const char* path, const char* note);

// Reads the note of the file into `buffer` (of `size` bytes, terminated,
// cut to size - 1): "" for a file without a note. False, with buffer
// holding "", when the file is missing or the file system refuses.
bool GetComment(const char* path, char* buffer, size_t size);
