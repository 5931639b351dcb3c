#pragma once
// Error codes of the dos layer, the last error of each thread (IoErr) and
// their readable texts (Fault). A failing operation of this layer stores its
// code with SetIoErr before it returns 0, null or false; a successful one
// leaves the stored code alone, as callers only read it after a failure.

// Codes keep the fixed values the editor compares against.
constexpr long ERROR_NO_FREE_STORE = 103;
constexpr long ERROR_BAD_TEMPLATE = 114;
constexpr long ERROR_BAD_NUMBER = 115;
constexpr long ERROR_REQUIRED_ARG_MISSING = 116;
constexpr long ERROR_KEY_NEEDS_ARG = 117;
constexpr long ERROR_TOO_MANY_ARGS = 118;
constexpr long ERROR_UNMATCHED_QUOTES = 119;
constexpr long ERROR_LINE_TOO_LONG = 120;
constexpr long ERROR_OBJECT_IN_USE = 202;
constexpr long ERROR_OBJECT_EXISTS = 203;
constexpr long ERROR_DIR_NOT_FOUND = 204;
constexpr long ERROR_OBJECT_NOT_FOUND = 205;
constexpr long ERROR_OBJECT_TOO_LARGE = 207;
constexpr long ERROR_ACTION_NOT_KNOWN = 209;
constexpr long ERROR_INVALID_COMPONENT_NAME = 210;
constexpr long ERROR_OBJECT_WRONG_TYPE = 212;
constexpr long ERROR_DISK_WRITE_PROTECTED = 214;
constexpr long ERROR_RENAME_ACROSS_DEVICES = 215;
constexpr long ERROR_DIRECTORY_NOT_EMPTY = 216;
constexpr long ERROR_TOO_MANY_LEVELS = 217;
constexpr long ERROR_SEEK_ERROR = 219;
constexpr long ERROR_COMMENT_TOO_BIG = 220;
constexpr long ERROR_DISK_FULL = 221;
constexpr long ERROR_NO_MORE_ENTRIES = 232;
constexpr long ERROR_NOT_IMPLEMENTED = 236;
constexpr long ERROR_BUFFER_OVERFLOW = 303;
constexpr long ERROR_BREAK = 304;
// A directory of the program's own (clips, runtime files) that belongs to
// another user or that others may write in.
constexpr long ERROR_PLACE_NOT_PRIVATE = 9001;

// A system error without a code of its own above is stored as this base plus
// its errno value; Fault then gives the system's text for it.
constexpr long ERROR_ERRNO_BASE = 10000;

// The calling thread's last error; 0 when none was stored yet.
long IoErr();
// Stores `code` as the calling thread's last error; returns the previous one.
long SetIoErr(long code);

// The code for a system errno value: one of the codes above where one fits,
// else ERROR_ERRNO_BASE + errnum. 0 stays 0.
long IoErrFromErrno(int errnum);
// SetIoErr(IoErrFromErrno(errnum)); returns the code stored.
long SetIoErrFromErrno(int errnum);

// Writes the text of `code` into `buffer` (of `size` bytes, always
// terminated when size > 0): "header: text", or the text alone when header
// is null. Code 0 writes nothing and gives 0. Otherwise gives the length
// written, which is cut to size - 1. An unknown code reads "Error <code>".
long Fault(long code, const char* header, char* buffer, long size);
