#pragma once
// Joining and splitting path names. Two forms of path are understood: Linux
// paths ("dir/file", "/abs/file") and volume paths ("NAME:file", where no
// '/' stands before the colon; see volumes.h). Nothing here touches the file
// system.
#include <cstddef>

// Linux's longest path (PATH_MAX) and longest file name (NAME_MAX), each with
// its terminator. Buffers of these sizes hold any legal name whole.
constexpr size_t PathSize = 4096;
constexpr size_t NameSize = 256;
// A directory of PathSize and a name of NameSize joined by one slash.
constexpr size_t JoinedPathSize = PathSize + NameSize;

// True when `path` begins with a volume name: a non-empty "NAME:" with no
// '/' before the colon.
bool HasVolumeName(const char* path);

// Appends `name` to the directory `dir` (a buffer of `size` bytes, holding a
// terminated string) as one path. An absolute name ("/x" or "NAME:x")
// replaces dir; an empty name leaves dir as it is; after a dir that is empty
// or ends in '/' or ':' the name joins without a slash, else with one.
// Gives false, with dir unchanged, when the result and its terminator would
// not fit in `size` bytes (ERROR_LINE_TOO_LONG).
bool AddPart(char* dir, const char* name, size_t size);

// `directory` copied into `output` (JoinedPathSize bytes), then `name`
// joined to it as a path. A directory of up to PathSize - 1 bytes and a name
// of up to NameSize - 1 always fit; a longer directory is refused whole and
// `output` left empty, since a cut path would name a different file.
void JoinPath(const char* directory, const char* name, char* output);

// The last component of `path`: a pointer into it behind the last '/' or the
// volume colon; "" (the terminator) when the path ends in one of them.
const char* FilePart(const char* path);

// Where the directory part of `path` ends: writing a terminator there leaves
// the directory. Before the last '/' (behind it when that '/' is the root
// slash, so "/x" leaves "/"), behind the volume colon for "NAME:x", and the
// start of the path for a bare name.
const char* PathPart(const char* path);
