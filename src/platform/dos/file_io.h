#pragma once
// The few file operations loading and saving need, over POSIX descriptors.
// Names may begin with a volume name ("T:notes"). Every failure stores its
// code for IoErr (platform/dos/errors.h) before giving -1 or false.
#include <cstddef>
#include <string>

// The name as the file system knows it: the volume name resolved.
std::string SystemPath(const char* name);

// A descriptor open for reading a regular file, or -1. Anything else (a
// directory, a device, a FIFO, a socket) is refused with
// ERROR_OBJECT_WRONG_TYPE, without blocking on it and without reading it.
int OpenForReading(const char* name);

// What a name stands for, looked up without opening it.
enum class FileKind {
    Missing,   // nothing of that name (or a path through a non-directory)
    Regular,   // a regular file, or a name that can't be looked at (permissions)
    Other,     // a directory, a device, a FIFO or a socket
};
FileKind KindOfFile(const char* name);

// True when both names reach the same existing file.
bool IsSameFile(const char* first, const char* second);
// Up to `size` bytes: the count read, 0 at the end of the file, or -1.
// An interrupted read is retried.
long ReadBytes(int fd, char* buffer, size_t size);
// All `size` bytes, retrying short and interrupted writes; false when the
// file system refuses (a full disk, a size limit, an I/O error).
bool WriteBytes(int fd, const char* buffer, size_t size);
// Asks the kernel to start writing what the file holds so far to the disk,
// without waiting: a later sync then has less left to wait for. Only a
// hint; nothing is reported.
void StartWriteback(int fd);
// The length of an open regular file; -1 for anything else (a pipe, a
// device), whose length isn't known ahead.
long long FileLength(int fd);
// Closes the descriptor; false (with IoErr) when the close reports an error.
bool CloseFile(int fd);
