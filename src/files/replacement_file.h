#pragma once
// Writing a file so that a failure never leaves it half written: the new
// contents go to a temporary file in the same directory, which is synced
// and then renamed over the old file in one step. The new file keeps the
// old one's permission bits, its file note and, where the process may set
// them, its owner and group. A symbolic link is followed: the file it
// points at is replaced and the link stays. Other names of a hard-linked
// file keep the old contents.
//
// Two targets are written in place instead, with no way back from a write
// that fails halfway: one that exists but isn't a regular file (a device, a
// pipe), and a writable file in a directory that refuses new files.
#include <string>

struct ReplacementFile {
    int fd = -1;           // where the contents go
    std::string target;    // the file the contents end in, links resolved
    std::string temporary; // the temporary file; empty when written in place
};

// Opens the way to write `name` (volume names allowed). False, with IoErr
// set and nothing left on disk, when it can't be written.
bool OpenReplacement(const char* name, ReplacementFile* file);

// Syncs and closes the new contents and puts them in place of the old
// file. False, with IoErr set, when any of that fails: the old file is
// then untouched and the temporary file gone.
bool CommitReplacement(ReplacementFile* file);

// Gives up: closes and deletes the temporary file; the old file stays.
void AbandonReplacement(ReplacementFile* file);
